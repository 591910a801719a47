#include "ScreenBench.h"

#include "screens/model/PurgeModel.h"

namespace zolva::test {

namespace {

class ThePurgeScreen : public ScreenBench
{
protected:
    static Project folder(const std::string& where, std::int64_t bytes)
    {
        Project one;
        one.p = where;
        one.artifact = "x";
        one.b = bytes;
        return one;
    }
    static PickSet picked(AppModel& m) { return m.lists().projPicked(); }
    /// In the order "/d", "/c", "/b", "/a".
    AppModel& withFour()
    {
        AppModel& m = ready();
        purged(m, {folder("/a", 1000), folder("/b", 2000), folder("/c", 3000), folder("/d", 4000)});
        return m;
    }
};

TEST_F(ThePurgeScreen, FollowsTheScan)
{
    AppModel& m = ready();
    PurgeModel purge(m);
    const Told told(&purge, &PurgeModel::pageChanged);
    EXPECT_EQ(purge.page(), PurgeModel::Welcome);
    purge.scan();
    EXPECT_EQ(purge.page(), PurgeModel::Scanning);
    EXPECT_FALSE(purge.isEmpty());
    held.purge.answer(0, {folder("/a", 1)});
    EXPECT_EQ(purge.page(), PurgeModel::List);
    EXPECT_FALSE(purge.isEmpty());
    EXPECT_EQ(told.count(), 2);
}

TEST_F(ThePurgeScreen, TheWelcomePageKeepsAResultThatIsHeldAndRescanDoesNot)
{
    AppModel& m = withFour();
    PurgeModel purge(m);
    purge.scan();
    EXPECT_EQ(purge.page(), PurgeModel::List);
    purge.rescan();
    EXPECT_EQ(purge.page(), PurgeModel::Scanning);
}

TEST_F(ThePurgeScreen, ARescanTakesTheLastResultAway)
{
    AppModel& m = withFour();
    PurgeModel purge(m);
    m.setLastPurgeFreed(5);
    purge.rescan();
    EXPECT_EQ(m.lastPurgeFreed(), 0);
}

TEST_F(ThePurgeScreen, SaysWhatItLists)
{
    EXPECT_EQ(PurgeModel(ready()).subtitle(),
              "Build artifacts in your project folders. Anything touched in the last week is found "
              "but left unselected.");
}

TEST_F(ThePurgeScreen, OffersThreeOrders)
{
    AppModel& m = ready();
    PurgeModel purge(m);
    EXPECT_EQ(purge.sort()->names(), (QStringList{"Largest first", "Oldest first", "Name"}));
    EXPECT_EQ(purge.sort()->current(), 0);
    purge.sort()->choose(1);
    EXPECT_EQ(m.sortOf("purge"), SortKey::AgeDesc);
}

TEST_F(ThePurgeScreen, WithNoFoldersTheCardIsEmptyAndNothingCanBePurged)
{
    AppModel& m = ready();
    PurgeModel purge(m);
    purged(m, {});
    EXPECT_TRUE(purge.isEmpty());
    EXPECT_EQ(purge.selectWord(), "Select all");
    EXPECT_EQ(purge.countText(), "");
    EXPECT_EQ(purge.buttonTitle(), "Purge 0 bytes");
    EXPECT_FALSE(purge.canRemove());
}

TEST_F(ThePurgeScreen, NothingIsTickedByAScan)
{
    AppModel& m = withFour();
    const PurgeModel purge(m);
    EXPECT_TRUE(picked(m).empty());
    EXPECT_FALSE(purge.canRemove());
}

TEST_F(ThePurgeScreen, CountsWhatIsTicked)
{
    AppModel& m = withFour();
    PurgeModel purge(m);
    purge.pick("/a/x", false);
    EXPECT_EQ(purge.countText(), "1 project selected");
    EXPECT_EQ(purge.buttonTitle(), "Purge 1 KB");
    purge.pick("/c/x", false);
    EXPECT_EQ(purge.countText(), "2 projects selected");
    EXPECT_EQ(purge.buttonTitle(), "Purge 4 KB");
    EXPECT_TRUE(purge.canRemove());
}

TEST_F(ThePurgeScreen, FoldersWithoutBytesAreNotCounted)
{
    AppModel& m = ready();
    PurgeModel purge(m);
    purged(m, {folder("/a", 0)});
    purge.pick("/a/x", false);
    EXPECT_EQ(purge.countText(), "");
    EXPECT_FALSE(purge.canRemove());
}

TEST_F(ThePurgeScreen, NoteSaysWhatBecomesOfIt)
{
    AppModel& m = ready();
    const PurgeModel purge(m);
    const Told told(&purge, &PurgeModel::changed);
    EXPECT_EQ(purge.note(), "Moved to the Trash, your next build will recreate them.");
    m.settings().setKeepInTrash(false);
    EXPECT_EQ(purge.note(), "Removed for good, your next build will recreate them.");
    EXPECT_GT(told.count(), 0);
}

TEST_F(ThePurgeScreen, TakesAllOrNone)
{
    AppModel& m = withFour();
    PurgeModel purge(m);
    purge.pick("/b/x", false);
    EXPECT_EQ(purge.selectWord(), "Select all");
    purge.toggleAll();
    EXPECT_EQ(purge.selectWord(), "Deselect all");
    EXPECT_EQ(picked(m).size(), 4U);
    purge.toggleAll();
    EXPECT_EQ(purge.selectWord(), "Select all");
    EXPECT_TRUE(picked(m).empty());
}

TEST_F(ThePurgeScreen, AnExcludedRowTicksNeitherByClickNorBySelectAll)
{
    AppModel& m = withFour();
    PurgeModel purge(m);
    exclude(m, "/d");
    purge.pick("/d/x", false);
    EXPECT_TRUE(picked(m).empty());
    EXPECT_FALSE(m.lists().pickAnchor().contains("purge"));
    purge.toggleAll();
    EXPECT_EQ(picked(m), (PickSet{"/a/x", "/b/x", "/c/x"}));
    EXPECT_EQ(purge.selectWord(), "Deselect all");
    EXPECT_EQ(purge.buttonTitle(), "Purge 6 KB");
    EXPECT_EQ(purge.countText(), "3 projects selected");
}

TEST_F(ThePurgeScreen, WhatIsExcludedAfterItsTickLeavesTheButtonsSize)
{
    AppModel& m = withFour();
    PurgeModel purge(m);
    purge.toggleAll();
    exclude(m, "/d/x");
    EXPECT_EQ(purge.buttonTitle(), "Purge 6 KB");
    EXPECT_EQ(purge.countText(), "3 projects selected");
    purge.toggleAll();
    EXPECT_TRUE(picked(m).empty());
}

TEST_F(ThePurgeScreen, AClickFlipsOneRow)
{
    AppModel& m = withFour();
    PurgeModel purge(m);
    purge.pick("/b/x", false);
    EXPECT_EQ(picked(m), PickSet{"/b/x"});
    purge.pick("/b/x", false);
    EXPECT_TRUE(picked(m).empty());
    EXPECT_EQ(m.lists().pickAnchor().at("purge"), "/b/x");
}

TEST_F(ThePurgeScreen, ShiftTicksFromTheAnchorInTheOrderShown)
{
    AppModel& m = withFour();
    PurgeModel purge(m);
    purge.pick("/d/x", false);
    purge.pick("/b/x", true);
    EXPECT_EQ(picked(m), (PickSet{"/b/x", "/c/x", "/d/x"}));
    EXPECT_EQ(m.lists().pickAnchor().at("purge"), "/b/x");
}

TEST_F(ThePurgeScreen, ShiftInsideARangeThatIsTickedLeavesAllTicked)
{
    AppModel& m = withFour();
    PurgeModel purge(m);
    purge.toggleAll();
    purge.pick("/d/x", false);
    purge.pick("/d/x", false);
    purge.pick("/b/x", true);
    EXPECT_EQ(picked(m).size(), 4U);
    purge.pick("/c/x", true);
    EXPECT_EQ(picked(m).size(), 4U);
}

TEST_F(ThePurgeScreen, AsksBeforeItPurgesAndOnlyWithSomethingTicked)
{
    AppModel& m = withFour();
    PurgeModel purge(m);
    purge.remove();
    EXPECT_EQ(m.sheet(), std::nullopt);
    purge.pick("/a/x", false);
    purge.remove();
    EXPECT_EQ(m.sheet(), "purge");
    EXPECT_TRUE(disk->changes().empty());
}

} // namespace

} // namespace zolva::test
