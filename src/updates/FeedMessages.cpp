#include "updates/FeedMessages.h"

#include <algorithm>
#include <array>

namespace zolva {

namespace {

struct Sentence
{
    QNetworkReply::NetworkError error;
    const char* text;
};

constexpr auto noConnection = "The update server could not be reached.";
constexpr auto lost = "The connection to the update server was lost.";

constexpr std::array<Sentence, 12> sentences = {{
    {QNetworkReply::HostNotFoundError, "The update server was not found. Is there a network?"},
    {QNetworkReply::ConnectionRefusedError, noConnection},
    {QNetworkReply::NetworkSessionFailedError, noConnection},
    {QNetworkReply::UnknownNetworkError, noConnection},
    {QNetworkReply::RemoteHostClosedError, lost},
    {QNetworkReply::TemporaryNetworkFailureError, lost},
    {QNetworkReply::TimeoutError, feedwords::tooSlow},
    {QNetworkReply::OperationCanceledError, feedwords::stopped},
    {QNetworkReply::SslHandshakeFailedError, "The update server could not prove who it is."},
    {QNetworkReply::InsecureRedirectError, feedwords::insecure},
    {QNetworkReply::ProtocolUnknownError, feedwords::insecure}, // sent on to where no web is
    {QNetworkReply::TooManyRedirectsError, "The update server sends the check in circles."},
}};

} // namespace

std::string networkFailureText(QNetworkReply::NetworkError error, const QString& detail)
{
    const auto* const found =
        std::find_if(sentences.begin(), sentences.end(),
                     [error](const Sentence& sentence) { return sentence.error == error; });
    if (found != sentences.end()) {
        return found->text;
    }
    return "The update information could not be fetched: " + detail.toStdString();
}

} // namespace zolva
