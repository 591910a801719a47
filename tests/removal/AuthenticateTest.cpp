#include "removal/runs/UninstallRun.h"

#include "removal/UninstallBench.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace zolva {
namespace {

using namespace std::chrono_literals;
using test::app;
using test::UninstallBench;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

/// An application that needs a password, after the first pass.
struct StuckBench : UninstallBench
{
    StuckBench()
    {
        bench.disk->fail("/Applications/Two.app", "Permission denied");
        check({"Two"});
        uninstall();
    }
    void authenticate()
    {
        const std::size_t toasts = bench.toastTexts().size();
        bench.toasts.runAction(bench.toasts.toasts().front().id);
        test::pumpUntil([&] { return bench.toastTexts().size() > toasts; });
    }
};

TEST(Authenticate, MovesABundleThatNeedsAPasswordAndLeavesItInTheTrash)
{
    StuckBench b;
    ASSERT_THAT(b.bench.toastTexts(),
                ElementsAre("warning: Couldn't uninstall 1 app. It may need an administrator "
                            "password. [Authenticate…]"));
    b.bench.disk->allowAdmin("/Applications/Two.app");
    const std::size_t before = b.bench.disk->changes().size();
    b.authenticate();
    EXPECT_EQ(b.bench.toastTexts().back(), "success: Uninstalled 1 app");
    const auto changes = b.bench.disk->changes();
    EXPECT_THAT(std::vector<std::string>(changes.begin() + static_cast<std::ptrdiff_t>(before),
                                         changes.end()),
                ElementsAre("admin /Applications/Two.app"))
        << "only what still exists, and nothing is purged";
    EXPECT_EQ(b.scans->back(), "Two: One Three Two");
}

TEST(Authenticate, ACancelledPromptIsTold)
{
    StuckBench b;
    b.authenticate();
    EXPECT_EQ(b.bench.toastTexts().back(),
              "warning: Still couldn't uninstall 1 app. The authentication may have been "
              "canceled.");
    EXPECT_THAT(b.list.names(), ElementsAre("One", "Three", "Two")) << "once, not twice";
    EXPECT_TRUE(b.bench.disk->exists("/Applications/Two.app"));
}

TEST(Authenticate, WhileTheListIsReadAnewTheOneOfTheFirstPassStillTellsWhatIsShared)
{
    StuckBench b;
    b.bench.disk->allowAdmin("/Applications/Two.app");
    b.list.apps.reset(); // as a rescan does
    b.authenticate();
    EXPECT_EQ(b.bench.toastTexts().back(), "success: Uninstalled 1 app");
    EXPECT_EQ(b.scans->back(), "Two: One Three Two");
}

TEST(Authenticate, AListThatWasReadAnewIsTheOneThatTellsWhatIsShared)
{
    StuckBench b;
    b.bench.disk->allowAdmin("/Applications/Two.app");
    b.list.apps = {app("Two"), app("Four")};
    b.authenticate();
    EXPECT_EQ(b.scans->back(), "Two: Two Four");
}

TEST(Authenticate, PressedTwiceItMakesOnePass)
{
    StuckBench b;
    const std::size_t scans = b.scans->size();
    const QUuid offer = b.bench.toasts.toasts().front().id;
    b.bench.toasts.runAction(offer);
    b.bench.toasts.runAction(offer);
    test::pumpUntil([&] { return b.bench.toastTexts().size() > 1; });
    test::pumpOnce();
    EXPECT_EQ(b.scans->size(), scans + 1);
    const auto changes = b.bench.disk->changes();
    EXPECT_EQ(std::count(changes.begin(), changes.end(), "admin /Applications/Two.app"), 1);
    EXPECT_EQ(b.bench.toastTexts().size(), 2U);
}

TEST(Authenticate, AfterACancelledPromptItMayBePressedAgainAndAfterASuccessThereIsNothingLeft)
{
    StuckBench b;
    const QUuid offer = b.bench.toasts.toasts().front().id;
    b.authenticate();
    b.bench.disk->allowAdmin("/Applications/Two.app");
    b.authenticate();
    EXPECT_EQ(b.bench.toastTexts().back(), "success: Uninstalled 1 app");
    const std::size_t scans = b.scans->size();
    b.bench.toasts.runAction(offer);
    test::pumpOnce();
    EXPECT_EQ(b.scans->size(), scans);
    EXPECT_EQ(b.bench.toastTexts().size(), 3U);
}

TEST(Authenticate, AsksNoExclusionList)
{
    StuckBench b;
    b.bench.whitelist = {"/Applications"};
    b.bench.disk->allowAdmin("/Applications/Two.app");
    b.authenticate();
    EXPECT_FALSE(b.bench.disk->exists("/Applications/Two.app"));
}

TEST(Authenticate, BeginsNoQuietPeriod)
{
    StuckBench b;
    b.bench.clock.advance(9s); // the toast still stands
    UninstallTools tools = b.tools();
    b.bench.disk->allowAdmin("/Applications/Two.app");
    // The leftovers of the first pass began one.
    b.bench.clock.advance(3s);
    ASSERT_FALSE(b.bench.trash.didJustTrash());
    const UninstallReport report = b.finish(retryWithAdmin(tools, {app("Two")}, {}));
    EXPECT_EQ(report.uninstalled, 1);
    EXPECT_FALSE(b.bench.trash.didJustTrash());
}

TEST(Authenticate, TheOfferIsGoneWithItsToast)
{
    StuckBench b;
    b.bench.clock.advance(10s);
    EXPECT_THAT(b.bench.toastTexts(), IsEmpty());
}

} // namespace
} // namespace zolva
