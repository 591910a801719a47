#include "core/RunningBundle.h"
#include "core/WholeModel.h"

#include "core/Resources.h"

#include "support/qt/EventLoop.h"

#include <algorithm>
#include <chrono>

namespace zolva::test {

namespace {

class ModelUpdates : public WholeModel
{
protected:
    void configure() { bundle = bundleWithFeed(tree.root()); }
    [[nodiscard]] double now() const
    {
        return std::chrono::duration<double>(clock.now().time_since_epoch()).count();
    }
};

} // namespace

TEST_F(ModelUpdates, OfABuildWithoutAFeedSaySoFirstAndAreNeverDue)
{
    bundle = AppBundle();
    AppModel& m = start();
    EXPECT_EQ(steps.front(), "logged updater inert: no signed feed configured for this build");
    m.checkForUpdatesIfDue();
    EXPECT_EQ(updateChecks.count(), 0U);
    EXPECT_TRUE(store.writes.empty());
}

TEST_F(ModelUpdates, OfAProgramWithoutAWindowAreNone)
{
    AppModel& m = start();
    m.checkForUpdatesIfDue();
    EXPECT_FALSE(m.updates().isConfigured());
    EXPECT_TRUE(log.messages().empty());
    EXPECT_TRUE(store.writes.empty());
}

TEST_F(ModelUpdates, AreNotLookedForByTheConstructionItself)
{
    configure();
    start();
    pumpOnce();
    EXPECT_EQ(steps.front(), "logged updater enabled, feed https://example.org/feed");
    EXPECT_EQ(updateChecks.count(), 0U);
    EXPECT_EQ(std::count(steps.begin(), steps.end(), "read zolva.lastUpdateCheck"), 0);
    EXPECT_TRUE(store.writes.empty());
}

TEST_F(ModelUpdates, NoteTheTimeBeforeTheyAreLookedFor)
{
    configure();
    AppModel& m = start();
    m.checkForUpdatesIfDue();
    ASSERT_EQ(store.writes.size(), 1U);
    EXPECT_EQ(store.writes[0],
              (RecordingStore::Written{{"zolva.lastUpdateCheck", PrefValue(now())}}));
    EXPECT_EQ(steps.back(), "update check of https://example.org/feed with KEY for 5");
}

TEST_F(ModelUpdates, AreLookedForOnceADayAcrossStarts)
{
    configure();
    start().checkForUpdatesIfDue();
    clock.advance(std::chrono::hours(24) - std::chrono::milliseconds(1));
    start().checkForUpdatesIfDue();
    EXPECT_EQ(updateChecks.count(), 1U);
    clock.advance(std::chrono::milliseconds(1));
    start().checkForUpdatesIfDue();
    EXPECT_EQ(updateChecks.count(), 2U);
}

TEST_F(ModelUpdates, AreOpenedThroughTheDoorForPages)
{
    configure();
    AppModel& m = start();
    m.updates().checkNow();
    updateChecks.answer(0, UpdateAvailable{{6, "2", "https://example.org/get", std::nullopt}});
    m.updates().download();
    EXPECT_EQ(steps.back(), "page https://example.org/get");
    m.openPage("https://example.org/other");
    EXPECT_EQ(steps.back(), "page https://example.org/other");
}

TEST_F(ModelUpdates, FoundAfterTheModelEndedAreDropped)
{
    configure();
    start().checkForUpdatesIfDue();
    model.reset();
    updateChecks.answer(0, UpToDate());
    EXPECT_EQ(log.messages().size(), 1U);
}

TEST(RunningBundle, TellsTheVersionAndTheBuildThatWereConfigured)
{
    EXPECT_EQ(versionText(runningBundle()), ZOLVA_VERSION " (" + std::to_string(ZOLVA_BUILD) + ")");
    EXPECT_EQ(currentBuild(runningBundle()), ZOLVA_BUILD);
    EXPECT_EQ(runningBundle().resourceFolders, resourceFolders());
    EXPECT_EQ(runningBundle().checksForUpdates, ZOLVA_UPDATE_CHECK == 1);
}

} // namespace zolva::test
