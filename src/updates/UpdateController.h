#pragma once

#include "async/Clock.h"
#include "updates/AppBundle.h"
#include "updates/UpdateCheckResult.h"

#include <QCoroTask>
#include <QObject>
#include <QUrl>

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <stop_token>
#include <string>

namespace zolva {

/// One check of a feed, as `fetchAndVerify` does it. A stop ends it soon, with any result.
using UpdateCheck = std::function<QCoro::Task<UpdateCheckResult>(
    QUrl manifestURL, std::string publicKey, std::int64_t currentBuild, std::stop_token stop)>;

/// What the updates are built from.
struct AppUpdates
{
    /// Without one there are no updates, and nothing is said of them.
    std::optional<AppBundle> bundle;
    UpdateCheck check;
};

/// The time of the last check that was not asked for, in seconds since 1970; 0 for never.
struct LastUpdateCheck
{
    std::function<double()> read;
    std::function<void(double)> write;
};

/// When is looked for updates, and what is known of the last look. It never fetches or installs
/// one: it opens an address. Its end stops the check under way. Main thread.
class UpdateController final : public QObject
{
    Q_OBJECT

public:
    /// Reads the configuration, and logs whether it is of use. `open` takes an address.
    UpdateController(Clock& clock, AppUpdates from, std::function<void(const std::string&)> open,
                     QObject* parent = nullptr);
    ~UpdateController() override;

    /// While a check runs, that of the one before.
    [[nodiscard]] const UpdateCheckResult& lastResult() const { return m_lastResult; }
    [[nodiscard]] bool isChecking() const { return m_isChecking; }
    [[nodiscard]] const std::optional<QUrl>& manifestURL() const { return m_manifestURL; }
    [[nodiscard]] const std::string& publicKey() const { return m_publicKey; }
    [[nodiscard]] bool isConfigured() const { return m_manifestURL && !m_publicKey.empty(); }
    /// The build leaves updates to others.
    [[nodiscard]] bool isSwitchedOff() const { return !m_bundle.checksForUpdates; }

    /// Checks, unless an earlier call did within the interval. The try counts, not its outcome.
    void checkIfDue(const LastUpdateCheck& last, std::chrono::duration<double> interval);
    /// Unless one runs, or this build has no feed.
    void checkNow();
    /// Opens the address of what is offered.
    void download() const;

    [[nodiscard]] std::string shortVersionText() const { return zolva::shortVersionText(m_bundle); }
    [[nodiscard]] std::string versionText() const { return zolva::versionText(m_bundle); }

Q_SIGNALS:
    void changed(); ///< the result, or whether a check runs

private:
    void readConfiguration();
    [[nodiscard]] QCoro::Task<> check();

    Clock& m_clock;
    AppBundle m_bundle;
    UpdateCheck m_check;
    std::function<void(const std::string&)> m_open;
    std::optional<QUrl> m_manifestURL;
    std::string m_publicKey; ///< as it stands; empty where it is of no use
    UpdateCheckResult m_lastResult;
    bool m_isChecking = false;
    std::stop_source m_stop;
};

} // namespace zolva
