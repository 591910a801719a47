#include "updates/UpdateController.h"

#include "async/Unawaited.h"
#include "diagnostics/Log.h"

#include <QPointer>

#include <utility>

namespace zolva {

namespace {

struct LogResult
{
    void operator()(const UpdateNotConfigured& /*result*/) const { log::updateSkipped(); }
    void operator()(const UpToDate& /*result*/) const { log::updateCurrent(); }
    void operator()(const UpdateAvailable& result) const
    {
        log::updateAvailable(result.manifest.build);
    }
    void operator()(const UpdateCheckFailed& result) const { log::updateFailed(result.text); }
};

std::optional<QUrl> parsedURL(const std::string& text)
{
    const QUrl url(QString::fromStdString(text), QUrl::StrictMode);
    return url.isValid() ? std::optional(url) : std::nullopt;
}

} // namespace

UpdateController::UpdateController(Clock& clock, AppUpdates from,
                                   std::function<void(const std::string&)> open, QObject* parent)
    : QObject(parent), m_clock(clock), m_bundle(from.bundle.value_or(AppBundle())),
      m_check(std::move(from.check)), m_open(std::move(open))
{
    if (from.bundle) {
        readConfiguration();
    }
}

UpdateController::~UpdateController()
{
    m_stop.request_stop();
}

void UpdateController::readConfiguration()
{
    const UpdateConfig config = m_bundle.checksForUpdates ? readConfig(m_bundle) : UpdateConfig();
    if (isUsableSetting(config.manifestURL)) {
        m_manifestURL = parsedURL(config.manifestURL);
    }
    if (isUsableSetting(config.publicKey)) {
        m_publicKey = config.publicKey;
    }
    if (isConfigured()) {
        m_lastResult = UpToDate();
        log::updaterEnabled(config.manifestURL);
    } else {
        log::updaterInert();
    }
}

void UpdateController::checkIfDue(const LastUpdateCheck& last,
                                  std::chrono::duration<double> interval)
{
    if (!isConfigured()) {
        return;
    }
    using Seconds = std::chrono::duration<double>;
    const Seconds now = m_clock.now().time_since_epoch();
    const Seconds before(last.read());
    if (before > Seconds::zero() && now - before < interval) {
        return;
    }
    // Before the check, whatever comes of it: a feed that fails is not asked again and again.
    last.write(now.count());
    checkNow();
}

void UpdateController::checkNow()
{
    if (!isConfigured() || m_isChecking) {
        return;
    }
    m_isChecking = true;
    Q_EMIT changed();
    unawaited(check());
}

QCoro::Task<> UpdateController::check()
{
    const QPointer<UpdateController> self(this);
    UpdateCheckResult result =
        co_await m_check(*m_manifestURL, m_publicKey, currentBuild(m_bundle), m_stop.get_token());
    if (!self) {
        co_return;
    }
    m_lastResult = std::move(result);
    m_isChecking = false;
    std::visit(LogResult(), m_lastResult);
    Q_EMIT changed();
}

void UpdateController::download() const
{
    const auto* const offer = std::get_if<UpdateAvailable>(&m_lastResult);
    if (offer != nullptr && m_open && isSafeDownloadURL(offer->manifest.url)) {
        if (const std::optional<QUrl> url = parsedURL(offer->manifest.url)) {
            m_open(url->toEncoded().toStdString());
        }
    }
}

} // namespace zolva
