#include "updates/FeedReader.h"

#include "async/Unawaited.h"
#include "updates/FeedMessages.h"

#include <QNetworkReply>
#include <QNetworkRequest>
#include <QObject>
#include <QPointer>

#include <coroutine>
#include <memory>
#include <utility>

namespace zolva {

namespace {

constexpr int mostRedirects = 5;

QNetworkRequest requestFor(const QUrl& address, const QSslConfiguration& tls)
{
    QNetworkRequest request(address);
    request.setSslConfiguration(tls);
    request.setAttribute(QNetworkRequest::CacheLoadControlAttribute,
                         QNetworkRequest::AlwaysNetwork);
    request.setAttribute(QNetworkRequest::CacheSaveControlAttribute, false);
    request.setAttribute(QNetworkRequest::RedirectPolicyAttribute,
                         QNetworkRequest::NoLessSafeRedirectPolicy);
    request.setMaximumRedirectsAllowed(mostRedirects);
    for (const auto what :
         {QNetworkRequest::CookieLoadControlAttribute, QNetworkRequest::CookieSaveControlAttribute,
          QNetworkRequest::AuthenticationReuseAttribute}) {
        request.setAttribute(what, QNetworkRequest::Manual);
    }
    // The signature is over the bytes as they come.
    request.setRawHeader("Accept-Encoding", "identity");
    request.setRawHeader("User-Agent", "Zolva");
    return request;
}

/// Whether the error only tells the status of an answer, whose body counts all the same.
bool isStatusAlone(const QNetworkReply& reply)
{
    constexpr int firstOfStatus = QNetworkReply::ContentAccessDenied;
    constexpr int firstThatIsAnError = 400;
    // A body that broke off, or a way on that cannot be gone, comes with a status that is none; the
    // refusal of a proxy, which has an error of an earlier group, with none where it is one's own.
    return reply.attribute(QNetworkRequest::HttpStatusCodeAttribute).toInt() >=
               firstThatIsAnError &&
           (reply.error() >= firstOfStatus ||
            reply.error() == QNetworkReply::ProxyAuthenticationRequiredError);
}

/// One document on its way, to be awaited once. It may end when its `done` has.
class Download final : public QObject
{
public:
    Download(std::unique_ptr<QNetworkReply> reply, std::int64_t largest)
        : m_reply(std::move(reply)), m_largest(largest)
    {
        connect(m_reply.get(), &QNetworkReply::readyRead, this, [this] { take(); });
        // Queued: whoever waits ends this, and the reply must have returned from its own signal.
        connect(
            m_reply.get(), &QNetworkReply::finished, this, [this] { wake(); },
            Qt::QueuedConnection);
    }

    /// Awaiters are copied on their way, so this one only refers to the download.
    struct Done
    {
        Download* download;

        [[nodiscard]] bool await_ready() const noexcept { return false; }
        void await_suspend(std::coroutine_handle<> waiting) const { download->m_waiting = waiting; }
        void await_resume() const noexcept {}
    };

    [[nodiscard]] Done done() { return {this}; }

    /// The first reason counts.
    void end(const char* why)
    {
        if (m_why.empty()) {
            m_why = why;
        }
        m_reply->abort();
    }

    [[nodiscard]] FeedReader::Document result()
    {
        if (!m_why.empty()) {
            return tl::unexpected(m_why);
        }
        if (m_reply->error() != QNetworkReply::NoError && !isStatusAlone(*m_reply)) {
            return tl::unexpected(networkFailureText(m_reply->error(), m_reply->errorString()));
        }
        return std::move(m_body);
    }

private:
    void take()
    {
        m_body += m_reply->readAll();
        if (m_body.size() > m_largest) {
            end(feedwords::tooLarge);
        }
    }

    void wake()
    {
        if (m_waiting) {
            std::exchange(m_waiting, nullptr).resume(); // which ends this object
        }
    }

    std::unique_ptr<QNetworkReply> m_reply;
    std::int64_t m_largest;
    QByteArray m_body;
    std::string m_why; ///< it was ended from here, if it was
    std::coroutine_handle<> m_waiting;
};

QCoro::Task<> endAfter(Clock* clock, std::chrono::milliseconds patience,
                       QPointer<Download> download)
{
    co_await clock->sleep(patience);
    if (download) {
        download->end(feedwords::tooSlow);
    }
}

} // namespace

FeedReader::FeedReader(Clock& clock, std::stop_token stop, FeedLimits limits,
                       const QSslConfiguration& tls)
    : m_clock(clock), m_stop(std::move(stop)), m_limits(limits), m_tls(tls)
{}

QCoro::Task<FeedReader::Document> FeedReader::document(QUrl address)
{
    if (address.scheme() != QLatin1String("https")) {
        co_return tl::unexpected(std::string(feedwords::insecure));
    }
    Download download(std::unique_ptr<QNetworkReply>(m_network.get(requestFor(address, m_tls))),
                      m_limits.bytes);
    const std::stop_callback stopped(m_stop, [&download] { download.end(feedwords::stopped); });
    unawaited(endAfter(&m_clock, m_limits.patience, QPointer<Download>(&download)));
    co_await download.done();
    co_return download.result();
}

} // namespace zolva
