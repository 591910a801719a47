#include "ScreenBench.h"

#include "screens/model/CleanModel.h"

namespace zolva::test {

namespace {

class TheCleanScreen : public ScreenBench
{
protected:
    static bool isPicked(AppModel& m, const std::string& id)
    {
        const PickMap& picks = m.lists().sel();
        return picks.contains(id) && picks.at(id);
    }
    /// In the order "d", "c", "b", "a".
    AppModel& withFour()
    {
        AppModel& m = ready();
        scanned(m, {cache("a", {path("/a", 1000)}), cache("b", {path("/b", 2000)}),
                    cache("c", {path("/c", 3000)}), cache("d", {path("/d", 4000)})});
        return m;
    }
};

TEST_F(TheCleanScreen, ShowsOnePageForEachStateOfTheScan)
{
    EXPECT_EQ(CleanModel::pageOf(LoadState::Idle), CleanModel::Welcome);
    EXPECT_EQ(CleanModel::pageOf(LoadState::Failed), CleanModel::Welcome);
    EXPECT_EQ(CleanModel::pageOf(LoadState::Loading), CleanModel::Scanning);
    EXPECT_EQ(CleanModel::pageOf(LoadState::Loaded), CleanModel::List);
}

TEST_F(TheCleanScreen, FollowsTheScan)
{
    AppModel& m = ready();
    CleanModel clean(m);
    const Told told(&clean, &CleanModel::pageChanged);
    EXPECT_EQ(clean.page(), CleanModel::Welcome);
    clean.scan();
    EXPECT_EQ(clean.page(), CleanModel::Scanning);
    EXPECT_FALSE(clean.isEmpty());
    held.clean.answer(0, {cache("a", paths(1))});
    EXPECT_EQ(clean.page(), CleanModel::List);
    EXPECT_FALSE(clean.isEmpty());
    EXPECT_EQ(told.count(), 2);
}

TEST_F(TheCleanScreen, SubtitleSaysWhatBecomesOfWhatIsCleaned)
{
    AppModel& m = ready();
    CleanModel clean(m);
    const Told told(&clean, &CleanModel::changed);
    EXPECT_EQ(clean.subtitle(),
              "Caches and build artifacts your Mac rebuilds on its own. These go to the Trash, so "
              "you can put them back.");
    m.settings().setKeepInTrash(false);
    EXPECT_EQ(clean.subtitle(),
              "Caches and build artifacts your Mac rebuilds on its own. Cleaning deletes them for "
              "good, so the space comes back straight away.");
    EXPECT_GT(told.count(), 0);
}

TEST_F(TheCleanScreen, OffersTwoOrders)
{
    AppModel& m = withFour();
    CleanModel clean(m);
    EXPECT_EQ(clean.sort()->names(), (QStringList{"Largest first", "Name"}));
    clean.sort()->choose(1);
    EXPECT_EQ(clean.rows()->order(), (Texts{"a", "b", "c", "d"}));
}

TEST_F(TheCleanScreen, WithNoCategoriesTheCardIsEmptyAndNothingCanBeCleaned)
{
    AppModel& m = ready();
    CleanModel clean(m);
    scanned(m, {});
    EXPECT_TRUE(clean.isEmpty());
    EXPECT_EQ(clean.selectWord(), "Select all");
    EXPECT_FALSE(clean.canRemove());
    EXPECT_EQ(clean.selectedCount(), "0 of 0 categories selected");
    EXPECT_EQ(clean.buttonTitle(), "Clean 0 bytes");
    clean.toggleAll();
    EXPECT_TRUE(m.lists().sel().empty());
}

TEST_F(TheCleanScreen, SumsUpTheTicks)
{
    AppModel& m = withFour();
    CleanModel clean(m);
    const Told told(&clean, &CleanModel::changed);
    clean.pick("a", false);
    clean.pick("c", false);
    EXPECT_EQ(clean.selectedSize(), "4 KB");
    EXPECT_EQ(clean.selectedCount(), "2 of 4 categories selected");
    EXPECT_EQ(clean.buttonTitle(), "Clean 4 KB");
    EXPECT_TRUE(clean.canRemove());
    EXPECT_EQ(told.count(), 2);
}

TEST_F(TheCleanScreen, OneCategoryIsSingular)
{
    AppModel& m = ready();
    const CleanModel clean(m);
    scanned(m, {cache("a", paths(1))});
    EXPECT_EQ(clean.selectedCount(), "0 of 1 category selected");
}

TEST_F(TheCleanScreen, TakesAllOrNone)
{
    AppModel& m = withFour();
    CleanModel clean(m);
    clean.pick("b", false);
    EXPECT_EQ(clean.selectWord(), "Select all");
    clean.toggleAll();
    EXPECT_EQ(clean.selectWord(), "Deselect all");
    EXPECT_EQ(clean.selectedCount(), "4 of 4 categories selected");
    clean.toggleAll();
    EXPECT_EQ(clean.selectWord(), "Select all");
    EXPECT_EQ(clean.selectedCount(), "0 of 4 categories selected");
    EXPECT_FALSE(clean.canRemove());
}

TEST_F(TheCleanScreen, TakesAllAlsoWhereOneIsProtected)
{
    AppModel& m = ready();
    CleanModel clean(m);
    scanned(m, {cache("a", {path("/a", 1000)}), cache("p", {path("/p", 9000, true)})});
    clean.toggleAll();
    EXPECT_EQ(clean.selectWord(), "Deselect all");
    EXPECT_EQ(clean.selectedSize(), "1 KB");
    EXPECT_FALSE(flagAt(*clean.rows(), 0, CleanRows::TickedRole));
}

TEST_F(TheCleanScreen, AClickOnAProtectedCategoryDoesNothing)
{
    AppModel& m = ready();
    CleanModel clean(m);
    scanned(m, {cache("p", {path("/p", 9000, true)})});
    clean.pick("p", false);
    clean.pick("nowhere", false);
    EXPECT_TRUE(m.lists().sel().empty());
}

TEST_F(TheCleanScreen, AClickFlipsOneRow)
{
    AppModel& m = withFour();
    CleanModel clean(m);
    clean.pick("b", false);
    EXPECT_TRUE(isPicked(m, "b"));
    clean.pick("b", false);
    EXPECT_FALSE(isPicked(m, "b"));
}

TEST_F(TheCleanScreen, ShiftWithoutAnAnchorFlipsOneRowAndSetsTheAnchor)
{
    AppModel& m = withFour();
    CleanModel clean(m);
    clean.pick("b", true);
    EXPECT_EQ(clean.selectedCount(), "1 of 4 categories selected");
    EXPECT_EQ(m.lists().pickAnchor().at("clean"), "b");
}

TEST_F(TheCleanScreen, ShiftTicksFromTheAnchorInTheOrderShownAndUnticksNothing)
{
    AppModel& m = withFour();
    CleanModel clean(m);
    clean.pick("b", false);
    clean.pick("d", false); // the anchor
    clean.pick("b", true);
    EXPECT_TRUE(isPicked(m, "d") && isPicked(m, "c") && isPicked(m, "b"));
    EXPECT_FALSE(isPicked(m, "a"));
    EXPECT_EQ(m.lists().pickAnchor().at("clean"), "b");
}

TEST_F(TheCleanScreen, ShiftWhereTheAnchorHasLeftTheListFlipsOneRow)
{
    AppModel& m = withFour();
    CleanModel clean(m);
    clean.pick("a", false);
    scanned(m, {cache("c", {path("/c", 3000)}), cache("d", {path("/d", 4000)})});
    clean.pick("c", true);
    EXPECT_EQ(clean.selectedCount(), "1 of 2 categories selected");
    EXPECT_EQ(m.lists().pickAnchor().at("clean"), "c");
}

TEST_F(TheCleanScreen, AtMostOneCategoryIsOpen)
{
    AppModel& m = withFour();
    CleanModel clean(m);
    clean.toggleOpen("a");
    clean.toggleOpen("b");
    EXPECT_EQ(m.lists().openCat(), "b");
    clean.toggleOpen("b");
    EXPECT_EQ(m.lists().openCat(), std::nullopt);
}

TEST_F(TheCleanScreen, NoteCountsWhatStaysInEveryCategoryTickedOrNot)
{
    AppModel& m = ready();
    CleanModel clean(m);
    const Told told(&clean, &CleanModel::changed);
    scanned(m, {cache("a", {path("/a", 1), path("/p", 1, true)}), cache("b", {path("/x/b", 1)})});
    EXPECT_EQ(clean.note(), "1 path protected and skipped.");
    exclude(m, "/x");
    EXPECT_EQ(clean.note(), "2 paths protected and skipped.");
    EXPECT_GT(told.count(), 0);
}

TEST_F(TheCleanScreen, NoteSaysWhatBecomesOfIt)
{
    AppModel& m = withFour();
    CleanModel clean(m);
    EXPECT_EQ(clean.note(),
              "Everything selected goes to the Trash. Your Mac rebuilds these on its own.");
    m.settings().setKeepInTrash(false);
    EXPECT_EQ(clean.note(),
              "Everything selected is deleted for good. Your Mac rebuilds these on its own.");
}

TEST_F(TheCleanScreen, AsksBeforeItCleansAndOnlyWithSomethingTicked)
{
    AppModel& m = withFour();
    CleanModel clean(m);
    clean.remove();
    EXPECT_EQ(m.sheet(), std::nullopt);
    clean.pick("a", false);
    clean.remove();
    EXPECT_EQ(m.sheet(), "erase");
    EXPECT_TRUE(disk->changes().empty());
}

TEST_F(TheCleanScreen, ARescanTakesTheSheetAndTheLastResultAway)
{
    AppModel& m = withFour();
    CleanModel clean(m);
    m.setLastCleanFreed(5);
    m.setSheet("erase");
    clean.rescan();
    EXPECT_EQ(m.sheet(), std::nullopt);
    EXPECT_EQ(m.lastCleanFreed(), 0);
    EXPECT_EQ(clean.page(), CleanModel::Scanning);
}

} // namespace

} // namespace zolva::test
