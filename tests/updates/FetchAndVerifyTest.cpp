#include "updates/FetchAndVerify.h"

#include "support/ScopedHome.h"
#include "support/qt/EventLoop.h"
#include "support/qt/ManualClock.h"
#include "updates/FeedKey.h"
#include "updates/FeedServer.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace zolva::test {

namespace {

using namespace std::chrono_literals;

const auto path = QStringLiteral("/feed.json");
const auto signaturePath = QStringLiteral("/feed.json.sig");

const UpdateCheckResult unverified =
    UpdateCheckFailed{"The update information could not be verified."};

UpdateCheckResult failure(const char* text)
{
    return UpdateCheckFailed{text};
}

/// A feed on a server of its own, read by a program of build 5 on time that stands.
class Feed : public ::testing::Test
{
protected:
    void publish(const std::string& manifest) { publish(manifest, key.sign(manifest)); }
    void publish(const std::string& manifest, const std::string& signature)
    {
        server.document(path, QByteArray::fromStdString(manifest));
        server.document(signaturePath, QByteArray::fromStdString(signature));
    }
    [[nodiscard]] QCoro::Task<UpdateCheckResult> begin(const QUrl& url)
    {
        return fetchAndVerify(
            std::make_unique<FeedReader>(clock, stop.get_token(), FeedLimits(), tls), url,
            key.publicKey(), 5);
    }
    [[nodiscard]] UpdateCheckResult check() { return settled(begin(server.url(path))); }

    // The machine's own way to the web does not lead to this one.
    ScopedVariable noProxy{"https_proxy", std::nullopt};
    FeedKey key;
    FeedServer server;
    ManualClock clock;
    std::stop_source stop;
    QSslConfiguration tls = FeedServer::authority().trust();
};

} // namespace

TEST_F(Feed, OffersABuildThatIsStrictlyNewer)
{
    publish(manifestOf(6));
    EXPECT_EQ(check(),
              UpdateCheckResult(UpdateAvailable{{6, "1.2", "https://example.org/get", "Faster."}}));
}

TEST_F(Feed, OffersNeitherTheRunningBuildNorAnOlderOne)
{
    for (const int build : {5, 4, 0, -6}) {
        publish(manifestOf(build));
        EXPECT_EQ(check(), UpdateCheckResult(UpToDate())) << build;
    }
}

TEST_F(Feed, IsAskedForTheManifestAndThenForItsSignature)
{
    publish(manifestOf(6));
    static_cast<void>(check());
    EXPECT_EQ(server.requested, (QStringList{path, signaturePath}));
}

TEST_F(Feed, IsReadPastEveryCacheAndTellsNothingOfTheReader)
{
    publish(manifestOf(6));
    static_cast<void>(check());
    ASSERT_EQ(server.heads.size(), 2);
    for (const QByteArray& head : server.heads) {
        const QByteArray lower = head.toLower();
        EXPECT_TRUE(lower.contains("\r\ncache-control: no-cache\r\n")) << head.toStdString();
        EXPECT_TRUE(lower.contains("\r\naccept-encoding: identity\r\n")) << head.toStdString();
        EXPECT_TRUE(lower.contains("\r\nuser-agent: zolva\r\n")) << head.toStdString();
        EXPECT_FALSE(lower.contains("cookie:")) << head.toStdString();
    }
}

TEST_F(Feed, WithTheSignatureOfAnotherKeyIsNotVerified)
{
    publish(manifestOf(6), FeedKey(2).sign(manifestOf(6)));
    EXPECT_EQ(check(), unverified);
}

TEST_F(Feed, WithAByteChangedIsNotVerified)
{
    const std::string manifest = manifestOf(6);
    std::string changed = manifest;
    changed.back() = ' ';
    publish(changed, key.sign(manifest));
    EXPECT_EQ(check(), unverified);
}

TEST_F(Feed, WithANewlineBehindTheSignatureIsVerified)
{
    publish(manifestOf(5), key.sign(manifestOf(5)) + "\n");
    EXPECT_EQ(check(), UpdateCheckResult(UpToDate()));
}

TEST_F(Feed, WithASignatureThatIsNoTextIsNotVerified)
{
    publish(manifestOf(6), key.sign(manifestOf(6)) + "\xFF\xFE");
    EXPECT_EQ(check(), unverified);
}

TEST_F(Feed, ThatIsSignedAndNoJsonIsUnreadable)
{
    publish("{\"build\": 6,");
    EXPECT_EQ(check(), failure("The update information was unreadable."));
}

TEST_F(Feed, ThatIsSignedAndPointsToAnUnsafePlaceIsNotFollowed)
{
    publish(R"({"build":6,"version":"1","url":"http://example.org"})");
    EXPECT_EQ(check(), failure("The update points somewhere Zolva will not follow."));
}

TEST_F(Feed, ThatIsNotThereIsAPageThatIsNotVerified)
{
    EXPECT_EQ(check(), unverified);
    EXPECT_EQ(server.requested, (QStringList{path, signaturePath}));
}

TEST_F(Feed, CountsWhateverTheStatusOfTheAnswer)
{
    const std::string manifest = manifestOf(6);
    for (const char* status : {"404 Not Found", "400 Bad Request", "401 Unauthorized",
                               "407 Proxy Authentication Required", "500 Internal Server Error",
                               "503 Service Unavailable"}) {
        server.document(path, QByteArray::fromStdString(manifest), status);
        server.document(signaturePath, QByteArray::fromStdString(key.sign(manifest)), status);
        EXPECT_TRUE(std::holds_alternative<UpdateAvailable>(check())) << status;
    }
}

TEST_F(Feed, IsFollowedToAnotherSecureAddress)
{
    const std::string manifest = manifestOf(6);
    server.redirect(path, server.url(QStringLiteral("/moved")));
    server.document(QStringLiteral("/moved"), QByteArray::fromStdString(manifest));
    server.document(signaturePath, QByteArray::fromStdString(key.sign(manifest)));
    EXPECT_TRUE(std::holds_alternative<UpdateAvailable>(check()));
    EXPECT_EQ(server.requested, (QStringList{path, QStringLiteral("/moved"), signaturePath}));
}

TEST_F(Feed, IsNotFollowedToAnInsecureAddress)
{
    server.redirect(path, QUrl(QStringLiteral("http://127.0.0.1:1/feed.json")));
    EXPECT_EQ(check(), failure("The update address is not a secure one."));
    EXPECT_EQ(server.requested, QStringList{path});
}

TEST_F(Feed, IsNotFollowedToWhatIsNoWebAddress)
{
    for (const char* elsewhere : {"file:///etc/passwd", "ftp://127.0.0.1/feed.json", "data:,x"}) {
        server.requested.clear();
        server.redirect(path, QUrl(QString::fromLatin1(elsewhere)));
        EXPECT_EQ(check(), failure("The update address is not a secure one.")) << elsewhere;
        EXPECT_EQ(server.requested, QStringList{path}) << elsewhere;
    }
}

TEST_F(Feed, IsNotFollowedInCircles)
{
    server.redirect(path, server.url(path));
    EXPECT_EQ(check(), failure("The update server sends the check in circles."));
    EXPECT_LE(server.requested.size(), 7);
}

TEST_F(Feed, AtAnInsecureAddressIsNeverAsked)
{
    QUrl insecure = server.url(path);
    insecure.setScheme(QStringLiteral("http"));
    for (const QUrl& url : {insecure, QUrl(QStringLiteral("file:///etc/passwd")),
                            QUrl(QStringLiteral("feed.json")), QUrl()}) {
        EXPECT_EQ(settled(begin(url)), failure("The update address is not a secure one."));
    }
    EXPECT_EQ(server.connections, 0);
}

TEST_F(Feed, ThatTakesAMinuteHasFailed)
{
    server.silence(path);
    auto task = begin(server.url(path));
    pumpUntil([this] { return !server.requested.isEmpty(); });
    clock.advance(59'999ms);
    pumpOnce();
    EXPECT_FALSE(task.isReady());
    clock.advance(1ms);
    EXPECT_EQ(settled(std::move(task)), failure("The update server took too long to answer."));
    EXPECT_EQ(server.requested, QStringList{path}) << "a failure ends the check";
}

TEST_F(Feed, HasAMinuteForEachOfTheTwo)
{
    publish(manifestOf(6));
    server.silence(signaturePath);
    auto task = begin(server.url(path));
    pumpUntil([this] { return server.requested.size() == 2; });
    clock.advance(59'999ms);
    pumpOnce();
    EXPECT_FALSE(task.isReady());
    clock.advance(1ms);
    EXPECT_EQ(settled(std::move(task)), failure("The update server took too long to answer."));
}

TEST_F(Feed, WithoutAnEndIsGivenUp)
{
    server.endless(path);
    EXPECT_EQ(check(), failure("The update information is too large to be real."));
    EXPECT_LT(server.sent, qint64{16} << 20);
}

TEST_F(Feed, OfExactlyTheLargestSizeIsRead)
{
    std::string manifest = manifestOf(6);
    manifest.resize(std::size_t{1} << 20, ' ');
    publish(manifest);
    EXPECT_TRUE(std::holds_alternative<UpdateAvailable>(check()));
    publish(manifest + " ");
    EXPECT_EQ(check(), failure("The update information is too large to be real."));
}

TEST_F(Feed, ThatIsCutOffHasFailed)
{
    server.cutShort(path);
    EXPECT_EQ(check(), failure("The connection to the update server was lost."));
}

TEST_F(Feed, OfAServerThatNobodyVouchesForIsNotAsked)
{
    publish(manifestOf(6));
    tls = QSslConfiguration::defaultConfiguration();
    EXPECT_EQ(check(), failure("The update server could not prove who it is."));
    EXPECT_TRUE(server.requested.isEmpty());
}

TEST_F(Feed, OfAServerOfAnotherNameIsNotAsked)
{
    publish(manifestOf(6));
    QUrl renamed = server.url(path);
    renamed.setHost(QStringLiteral("localhost"));
    EXPECT_EQ(settled(begin(renamed)), failure("The update server could not prove who it is."));
    EXPECT_TRUE(server.requested.isEmpty());
}

TEST_F(Feed, OfAServerThatIsNotThereHasFailed)
{
    QUrl nobody = server.url(path);
    nobody.setPort(1);
    EXPECT_EQ(settled(begin(nobody)), failure("The update server could not be reached."));
}

TEST_F(Feed, CanBeStopped)
{
    server.silence(path);
    auto task = begin(server.url(path));
    pumpUntil([this] { return !server.requested.isEmpty(); });
    stop.request_stop();
    EXPECT_EQ(settled(std::move(task)), failure("The update check was stopped."));
    clock.advance(60s);
    EXPECT_EQ(clock.sleepers(), 0U);
}

TEST_F(Feed, ThatIsStoppedBeforeItBeginsIsNotAsked)
{
    stop.request_stop();
    EXPECT_EQ(check(), failure("The update check was stopped."));
    EXPECT_TRUE(server.requested.isEmpty());
}

TEST(SignatureURL, HasTheExtensionBehindThePathOfTheManifest)
{
    const auto of = [](const char* url) {
        return signatureURL(QUrl(QString::fromUtf8(url))).toEncoded().toStdString();
    };
    EXPECT_EQ(of("https://x.org/feed.json"), "https://x.org/feed.json.sig");
    EXPECT_EQ(of("https://x.org/feed"), "https://x.org/feed.sig");
    EXPECT_EQ(of("https://x.org/feed.json?channel=a#b"), "https://x.org/feed.json.sig?channel=a#b");
    EXPECT_EQ(of("https://x.org/a%2Fb%20c"), "https://x.org/a%2Fb%20c.sig");
    EXPECT_EQ(of("https://x.org/folder/"), "https://x.org/folder.sig/");
    EXPECT_EQ(of("https://x.org"), "https://x.org");
}

} // namespace zolva::test
