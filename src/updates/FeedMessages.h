#pragma once

#include <QNetworkReply>
#include <QString>

#include <string>

/// What the user is told where a feed cannot be read.
namespace zolva {

namespace feedwords {
inline constexpr auto insecure = "The update address is not a secure one.";
inline constexpr auto tooSlow = "The update server took too long to answer.";
inline constexpr auto tooLarge = "The update information is too large to be real.";
inline constexpr auto stopped = "The update check was stopped.";
} // namespace feedwords

/// `detail` is the network's own word, for what has no sentence of ours. Pure.
[[nodiscard]] std::string networkFailureText(QNetworkReply::NetworkError error,
                                             const QString& detail);

} // namespace zolva
