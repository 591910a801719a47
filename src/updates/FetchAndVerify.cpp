#include "updates/FetchAndVerify.h"

#include "updates/UpdateChecker.h"

#include <string_view>
#include <utility>

namespace zolva {

namespace {

std::string_view textOf(const QByteArray& bytes)
{
    return {bytes.constData(), static_cast<std::size_t>(bytes.size())};
}

UpdateCheckResult outcome(std::string_view manifest, std::string_view signature,
                          std::string_view publicKey, std::int64_t currentBuild)
{
    auto verified = updateChecker::verifiedManifest(manifest, signature, publicKey);
    if (!verified) {
        return UpdateCheckFailed{std::string(updateChecker::failureText(verified.error()))};
    }
    if (currentBuild >= verified->build) {
        return UpToDate{};
    }
    return UpdateAvailable{*std::move(verified)};
}

} // namespace

QUrl signatureURL(const QUrl& manifestURL)
{
    QString path = manifestURL.path(QUrl::FullyEncoded);
    const qsizetype end = [&path] {
        qsizetype at = path.size();
        while (at > 0 && path.at(at - 1) == QLatin1Char('/')) {
            --at;
        }
        return at;
    }();
    QUrl url = manifestURL;
    if (end > 0) {
        url.setPath(path.insert(end, QLatin1String(".sig")), QUrl::StrictMode);
    }
    return url;
}

QCoro::Task<UpdateCheckResult> fetchAndVerify(std::unique_ptr<FeedReader> reader, QUrl manifestURL,
                                              std::string publicKey, std::int64_t currentBuild)
{
    const FeedReader::Document manifest = co_await reader->document(manifestURL);
    if (!manifest) {
        co_return UpdateCheckFailed{manifest.error()};
    }
    // What is no UTF-8 in it is no base64 either.
    const FeedReader::Document signature = co_await reader->document(signatureURL(manifestURL));
    if (!signature) {
        co_return UpdateCheckFailed{signature.error()};
    }
    co_return outcome(textOf(*manifest), textOf(*signature), publicKey, currentBuild);
}

} // namespace zolva
