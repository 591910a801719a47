#include "updates/UpdateController.h"

#include "support/RecordedLog.h"
#include "support/TempTree.h"
#include "support/qt/EventLoop.h"
#include "support/qt/ManualClock.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace zolva::test {

namespace {

using namespace std::chrono_literals;
using Messages = std::vector<std::string>;

constexpr auto feed = "https://example.org/feed.json";
constexpr auto day = std::chrono::seconds(86'400);
constexpr auto checkTakes = 1s;

UpdateManifest offer(const std::string& url = "https://example.org/get")
{
    return {7, "1.2", url, std::nullopt};
}

/// A controller over a check that takes a second, and finds what the test says.
class Updates : public ::testing::Test
{
protected:
    void configure(const std::string& address, const std::string& key)
    {
        tree.text(
            "UpdateConfig.plist",
            R"(<?xml version="1.0"?><plist version="1.0"><dict><key>ManifestURL</key><string>)" +
                address + "</string><key>PublicKey</key><string>" + key +
                "</string></dict></plist>");
    }

    UpdateController& start()
    {
        controller = std::make_unique<UpdateController>(
            clock,
            AppUpdates{
                AppBundle{.shortVersion = "0.1.0",
                          .version = "5",
                          .resourceFolders = {tree.root()},
                          .checksForUpdates = checksForUpdates},
                [this](QUrl url, std::string key, std::int64_t build, std::stop_token token) {
                    return found(std::move(url), std::move(key), build, std::move(token));
                }},
            [this](const std::string& url) { opened.push_back(url); });
        QObject::connect(controller.get(), &UpdateController::changed, controller.get(),
                         [this] { ++changes; });
        return *controller;
    }
    UpdateController& startConfigured()
    {
        configure(feed, "KEY=");
        return start();
    }
    /// One check from its beginning to its end.
    void check(UpdateCheckResult found)
    {
        result = std::move(found);
        controller->checkNow();
        clock.advance(checkTakes);
    }
    void checkIfDue()
    {
        controller->checkIfDue(
            {[this] { return lastCheck; }, [this](double now) { lastCheck = now; }}, day);
    }
    [[nodiscard]] double now() const
    {
        return std::chrono::duration<double>(clock.now().time_since_epoch()).count();
    }

    TempTree tree;
    RecordedLog log;
    ManualClock clock;
    bool checksForUpdates = true;
    UpdateCheckResult result = UpToDate();
    double lastCheck = 0;
    int changes = 0;
    Messages checks;
    Messages opened;
    std::stop_token stop;
    std::unique_ptr<UpdateController> controller;

private:
    QCoro::Task<UpdateCheckResult> found(QUrl url, std::string key, std::int64_t build,
                                         std::stop_token token)
    {
        checks.push_back(url.toString().toStdString() + " " + key + " " + std::to_string(build));
        stop = std::move(token);
        co_await clock.sleep(checkTakes);
        co_return UpdateCheckResult(result); // QCoro 0.8 would move the member
    }
};

} // namespace

TEST_F(Updates, WithoutAConfigurationNothingIsCheckedAndTheLogSaysSoOnce)
{
    const UpdateController& updates = start();
    EXPECT_FALSE(updates.isConfigured());
    EXPECT_EQ(updates.lastResult(), UpdateCheckResult(UpdateNotConfigured()));
    EXPECT_FALSE(updates.isChecking());
    controller->checkNow();
    checkIfDue();
    clock.advance(2 * day);
    EXPECT_TRUE(checks.empty());
    EXPECT_FALSE(updates.isChecking());
    EXPECT_EQ(lastCheck, 0);
    EXPECT_EQ(changes, 0);
    EXPECT_EQ(log.records(), (std::vector<LogRecord>{
                                 {LogCategory::App, LogLevel::Default,
                                  "updater inert: no signed feed configured for this build"}}));
}

TEST_F(Updates, AreConfiguredByAnAddressAndAKey)
{
    const UpdateController& updates = startConfigured();
    EXPECT_TRUE(updates.isConfigured());
    EXPECT_EQ(updates.manifestURL(), QUrl(feed));
    EXPECT_EQ(updates.publicKey(), "KEY=");
    EXPECT_EQ(updates.lastResult(), UpdateCheckResult(UpToDate()));
    EXPECT_TRUE(checks.empty());
    EXPECT_EQ(log.records(),
              (std::vector<LogRecord>{{LogCategory::App, LogLevel::Default,
                                       std::string("updater enabled, feed ") + feed}}));
}

TEST_F(Updates, AreNotConfiguredByHalfOfIt)
{
    for (const auto& [address, key] : {std::pair{"", "KEY="},
                                       {feed, ""},
                                       {feed, "  "},
                                       {"https://replace_me/x", "KEY="},
                                       {feed, "my replace_me key"},
                                       {feed, "REPLACE_ME"},
                                       {"https://not an address", "KEY="}}) {
        configure(address, key);
        EXPECT_FALSE(start().isConfigured()) << address << " and " << key;
        EXPECT_EQ(controller->lastResult(), UpdateCheckResult(UpdateNotConfigured()));
    }
}

TEST_F(Updates, OfABuildThatLeavesThemToOthersAreNeverConfigured)
{
    checksForUpdates = false;
    const UpdateController& updates = startConfigured();
    EXPECT_TRUE(updates.isSwitchedOff());
    EXPECT_FALSE(updates.isConfigured());
    controller->checkNow();
    checkIfDue();
    EXPECT_TRUE(checks.empty());
    EXPECT_EQ(lastCheck, 0);
}

TEST_F(Updates, WithoutABundleNothingIsSaid)
{
    const UpdateController bare(clock, {}, {});
    EXPECT_FALSE(bare.isConfigured());
    EXPECT_TRUE(log.records().empty());
}

TEST_F(Updates, AFirstStartChecksAndNotesTheTimeAtOnce)
{
    startConfigured();
    checkIfDue();
    EXPECT_EQ(checks, Messages{std::string(feed) + " KEY= 5"});
    EXPECT_EQ(lastCheck, now());
    EXPECT_TRUE(controller->isChecking());
}

TEST_F(Updates, AreNotLookedForAgainBeforeADayIsOver)
{
    startConfigured();
    lastCheck = now();
    clock.advance(day - 1ms);
    checkIfDue();
    EXPECT_TRUE(checks.empty());
    EXPECT_LT(lastCheck, now());
    clock.advance(1ms);
    checkIfDue();
    EXPECT_EQ(checks.size(), 1U);
    EXPECT_EQ(lastCheck, now());
}

TEST_F(Updates, ATimeInTheFutureHoldsThemBackUntilADayAfterIt)
{
    startConfigured();
    lastCheck = now() + 1000;
    checkIfDue();
    EXPECT_TRUE(checks.empty());
    clock.advance(day + 999s);
    checkIfDue();
    EXPECT_TRUE(checks.empty());
    clock.advance(1s);
    checkIfDue();
    EXPECT_EQ(checks.size(), 1U);
}

TEST_F(Updates, ATimeOfNoughtOrBelowCountsAsNoneAndACheckRuns)
{
    startConfigured();
    // Within a day of either, where a time above nought would hold it back.
    const std::chrono::system_clock::time_point nought;
    std::size_t expected = 0;
    for (const double none : {0.0, -1.0}) {
        clock.setWall(nought + 1h);
        lastCheck = none;
        checkIfDue();
        EXPECT_EQ(checks.size(), ++expected) << none;
        clock.advance(checkTakes);
    }
}

TEST_F(Updates, AProgramThatStaysOpenChecksOnce)
{
    startConfigured();
    checkIfDue();
    clock.advance(8 * day);
    EXPECT_EQ(checks.size(), 1U);
    EXPECT_EQ(clock.sleepers(), 0U);
}

TEST_F(Updates, AFailedCheckStillMovesTheTime)
{
    startConfigured();
    result = UpdateCheckFailed{"no network"};
    checkIfDue();
    const double tried = now();
    clock.advance(checkTakes);
    EXPECT_EQ(controller->lastResult(), result);
    EXPECT_EQ(lastCheck, tried);
    checkIfDue();
    EXPECT_EQ(checks.size(), 1U);
}

TEST_F(Updates, ACheckThatIsAskedForLeavesTheTimeAlone)
{
    startConfigured();
    check(UpToDate());
    EXPECT_EQ(checks.size(), 1U);
    EXPECT_EQ(lastCheck, 0);
}

TEST_F(Updates, TwoCallsInARowStartOneCheck)
{
    startConfigured();
    controller->checkNow();
    controller->checkNow();
    EXPECT_EQ(checks.size(), 1U);
    clock.advance(checkTakes);
    controller->checkNow();
    EXPECT_EQ(checks.size(), 2U);
}

TEST_F(Updates, ACheckThatIsDueWhileOneRunsOnlyNotesTheTime)
{
    startConfigured();
    controller->checkNow();
    checkIfDue();
    EXPECT_EQ(checks.size(), 1U);
    EXPECT_EQ(lastCheck, now());
}

TEST_F(Updates, TheOldResultStaysWhileANewCheckRuns)
{
    startConfigured();
    check(UpdateAvailable{offer()});
    result = UpToDate();
    controller->checkNow();
    EXPECT_TRUE(controller->isChecking());
    EXPECT_EQ(controller->lastResult(), UpdateCheckResult(UpdateAvailable{offer()}));
    clock.advance(checkTakes);
    EXPECT_FALSE(controller->isChecking());
    EXPECT_EQ(controller->lastResult(), UpdateCheckResult(UpToDate()));
}

TEST_F(Updates, EachEndOfACheckHasItsLineInTheLog)
{
    using enum LogLevel;
    startConfigured();
    check(UpdateAvailable{offer()});
    check(UpToDate());
    check(UpdateCheckFailed{"The update information could not be verified."});
    check(UpdateNotConfigured());
    const std::vector<LogRecord> all = log.records();
    EXPECT_EQ((std::vector<LogRecord>(all.begin() + 1, all.end())),
              (std::vector<LogRecord>{
                  {LogCategory::App, Default, "update check: build 7 available"},
                  {LogCategory::App, Default, "update check: already current"},
                  {LogCategory::App, Error,
                   "update check failed: The update information could not be verified."},
                  {LogCategory::App, Default, "update check skipped: not configured"}}));
}

TEST_F(Updates, TellTheBeginningAndTheEndOfACheck)
{
    startConfigured();
    result = UpToDate();
    controller->checkNow();
    EXPECT_EQ(changes, 1);
    clock.advance(checkTakes);
    EXPECT_EQ(changes, 2);
}

TEST_F(Updates, AreOpenedInTheBrowserOnlyWhileTheyAreOffered)
{
    startConfigured();
    controller->download();
    check(UpdateCheckFailed{"x"});
    controller->download();
    EXPECT_TRUE(opened.empty());
    check(UpdateAvailable{offer("HTTPS://Example.org/get?a=b%20c#\xC3\xBC")});
    controller->download();
    EXPECT_EQ(opened, Messages{"https://example.org/get?a=b%20c#%C3%BC"});
}

TEST_F(Updates, AnOfferWithAnUnsafeAddressIsNotOpened)
{
    startConfigured();
    for (const char* url : {"http://example.org", "file:///etc/passwd", "https://", ""}) {
        check(UpdateAvailable{offer(url)});
        controller->download();
    }
    EXPECT_TRUE(opened.empty());
}

TEST_F(Updates, TheEndOfTheControllerStopsTheCheckAndDropsWhatItFinds)
{
    startConfigured();
    controller->checkNow();
    ASSERT_FALSE(stop.stop_requested());
    controller.reset();
    EXPECT_TRUE(stop.stop_requested());
    clock.advance(checkTakes);
    EXPECT_EQ(log.records().size(), 1U);
    EXPECT_EQ(changes, 1);
}

TEST_F(Updates, TellTheVersionThatRuns)
{
    EXPECT_EQ(start().versionText(), "0.1.0 (5)");
    EXPECT_EQ(controller->shortVersionText(), "0.1.0");
}

} // namespace zolva::test
