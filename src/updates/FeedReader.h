#pragma once

#include "async/Clock.h"

#include <QByteArray>
#include <QCoroTask>
#include <QNetworkAccessManager>
#include <QSslConfiguration>
#include <QUrl>

#include <tl/expected.hpp>

#include <chrono>
#include <cstdint>
#include <stop_token>
#include <string>

namespace zolva {

/// How long a document may take, and how large it may be.
struct FeedLimits
{
    std::chrono::milliseconds patience{60'000};
    std::int64_t bytes = std::int64_t{1} << 20;
};

/// Fetches the documents of a feed whole into memory, over HTTPS alone, past every cache and
/// without cookies or passwords. It goes where a server sends it on, if that is HTTPS too. Main
/// thread; the clock outlives it, and it outlives its tasks.
class FeedReader
{
public:
    /// The error is for the user.
    using Document = tl::expected<QByteArray, std::string>;

    /// A stop ends what is under way, with any error.
    FeedReader(Clock& clock, std::stop_token stop, FeedLimits limits = {},
               const QSslConfiguration& tls = QSslConfiguration::defaultConfiguration());

    /// The body of the answer, whatever its status; an error where none came whole.
    [[nodiscard]] QCoro::Task<Document> document(QUrl address);

private:
    Clock& m_clock;
    std::stop_token m_stop;
    FeedLimits m_limits;
    QSslConfiguration m_tls;
    QNetworkAccessManager m_network;
};

} // namespace zolva
