#include "ScreenBench.h"

#include "screens/model/UninstallModel.h"

namespace zolva::test {

namespace {

class TheUninstallScreen : public ScreenBench
{
protected:
    static QString id(const std::string& name) { return ListRows::idOf(app(name).id()); }
    /// In the order "d", "c", "b", "a".
    AppModel& withFour()
    {
        AppModel& m = ready();
        listed(m, {appOf("a", 1000), appOf("b", 2000), appOf("c", 3000), appOf("d", 4000)});
        return m;
    }
    static std::set<std::string> ticked(AppModel& m)
    {
        std::set<std::string> names;
        for (const UninstallApp& one : m.removal().checkedApps()) {
            names.insert(one.name);
        }
        return names;
    }
    using Names = std::set<std::string>;
};

TEST_F(TheUninstallScreen, ShowsOnePageForEachStateOfTheReading)
{
    AppModel& m = ready();
    UninstallModel screen(m);
    const Told told(&screen, &UninstallModel::pageChanged);
    EXPECT_EQ(screen.page(), UninstallModel::Welcome);
    screen.scan();
    EXPECT_EQ(screen.page(), UninstallModel::Scanning);
    script.lists.answer(0, tl::unexpected<MoFailure>(SystemError{"The tool is gone."}));
    EXPECT_EQ(screen.page(), UninstallModel::Failed);
    EXPECT_EQ(screen.failure(), "The tool is gone.");
    listed(m, {});
    EXPECT_EQ(screen.page(), UninstallModel::List);
    EXPECT_EQ(screen.failure(), "");
    EXPECT_GE(told.count(), 3);
}

TEST_F(TheUninstallScreen, ARescanReadsTheListAfresh)
{
    AppModel& m = withFour();
    UninstallModel screen(m);
    screen.rescan();
    EXPECT_EQ(screen.page(), UninstallModel::Scanning);
    EXPECT_EQ(script.lists.count(), 2U);
    screen.scan();
    EXPECT_EQ(script.lists.count(), 2U);
}

TEST_F(TheUninstallScreen, OffersTwoOrders)
{
    AppModel& m = withFour();
    UninstallModel screen(m);
    EXPECT_EQ(screen.sort()->names(), (QStringList{"Largest first", "Name"}));
    EXPECT_EQ(screen.sort()->label(), "Largest first");
    screen.sort()->choose(1);
    EXPECT_EQ(screen.rows()->order().front(), app("a").id());
}

TEST_F(TheUninstallScreen, CountsTheRowsShown)
{
    AppModel& m = withFour();
    UninstallModel screen(m);
    const Told told(&screen, &UninstallModel::changed);
    EXPECT_EQ(screen.countText(), "4 applications");
    screen.setQuery("C");
    EXPECT_EQ(screen.countText(), "1 application");
    screen.setQuery("cc");
    EXPECT_EQ(screen.countText(), "0 applications");
    EXPECT_EQ(told.count(), 2);
}

TEST_F(TheUninstallScreen, ASearchThatMatchesNothingLeavesAnEmptyListAndSelectAllStays)
{
    AppModel& m = withFour();
    UninstallModel screen(m);
    screen.toggleAll();
    EXPECT_EQ(screen.selectWord(), "Deselect all");
    screen.setQuery("nothing");
    EXPECT_EQ(screen.rows()->rowCount(), 0);
    EXPECT_EQ(screen.selectWord(), "Select all");
    screen.toggleAll();
    EXPECT_EQ(ticked(m).size(), 4U);
}

TEST_F(TheUninstallScreen, KeepsTheQueryForTheNextVisit)
{
    AppModel& m = withFour();
    {
        UninstallModel screen(m);
        const Told told(&screen, &UninstallModel::queryChanged);
        screen.setQuery("Ü b");
        EXPECT_EQ(told.count(), 1);
    }
    m.go("home");
    EXPECT_EQ(UninstallModel(m).query(), "Ü b");
}

TEST_F(TheUninstallScreen, TellsHowManyAreTickedAndNothingWhereNoneIs)
{
    AppModel& m = withFour();
    UninstallModel screen(m);
    EXPECT_EQ(screen.tickedText(), "");
    screen.pick(id("a"), false);
    EXPECT_EQ(screen.tickedText(), "1 selected");
    screen.pick(id("b"), false);
    EXPECT_EQ(screen.tickedText(), "2 selected");
    screen.setQuery("c");
    EXPECT_EQ(screen.tickedText(), "2 selected");
}

TEST_F(TheUninstallScreen, OneTickReadsUninstallAndTwoReadUninstallTwoApps)
{
    AppModel& m = withFour();
    UninstallModel screen(m);
    EXPECT_EQ(screen.buttonTitle(), "Uninstall 0 apps");
    EXPECT_FALSE(screen.canUninstall());
    screen.pick(id("a"), false);
    EXPECT_EQ(screen.buttonTitle(), "Uninstall");
    EXPECT_TRUE(screen.canUninstall());
    screen.pick(id("b"), false);
    EXPECT_EQ(screen.buttonTitle(), "Uninstall 2 apps");
    screen.pick(id("b"), false);
    EXPECT_EQ(screen.buttonTitle(), "Uninstall");
}

TEST_F(TheUninstallScreen, TakesAllTheRowsShownOrNoneOfThem)
{
    AppModel& m = withFour();
    UninstallModel screen(m);
    screen.pick(id("d"), false);
    screen.setQuery("b");
    EXPECT_EQ(screen.selectWord(), "Select all");
    screen.toggleAll();
    EXPECT_EQ(ticked(m), (Names{"b", "d"}));
    EXPECT_EQ(screen.selectWord(), "Deselect all");
    screen.toggleAll();
    EXPECT_EQ(ticked(m), (Names{"d"}));
}

TEST_F(TheUninstallScreen, AClickOnABoxFlipsOneRow)
{
    AppModel& m = withFour();
    UninstallModel screen(m);
    screen.pick(id("b"), false);
    EXPECT_EQ(ticked(m), (Names{"b"}));
    screen.pick(id("b"), false);
    EXPECT_EQ(ticked(m), Names());
}

TEST_F(TheUninstallScreen, ShiftTicksFromTheAnchorInTheOrderShownAndUnticksNothing)
{
    AppModel& m = withFour();
    UninstallModel screen(m);
    screen.pick(id("c"), false);
    screen.pick(id("d"), false);
    screen.pick(id("b"), true);
    EXPECT_EQ(ticked(m), (Names{"b", "c", "d"}));
    screen.pick(id("d"), true);
    EXPECT_EQ(ticked(m), (Names{"b", "c", "d"}));
}

TEST_F(TheUninstallScreen, ShiftTicksOnlyWhatTheSearchShows)
{
    AppModel& m = ready();
    UninstallModel screen(m);
    listed(m, {appOf("x1", 3000), appOf("y", 2000), appOf("x2", 1000)});
    screen.setQuery("x");
    screen.pick(id("x1"), false);
    screen.pick(id("x2"), true);
    EXPECT_EQ(ticked(m), (Names{"x1", "x2"}));
}

TEST_F(TheUninstallScreen, ShiftFromAnAnchorThatTheSearchHidesFlipsOneRow)
{
    AppModel& m = withFour();
    UninstallModel screen(m);
    screen.pick(id("d"), false);
    screen.setQuery("b");
    screen.pick(id("b"), true);
    EXPECT_EQ(ticked(m), (Names{"b", "d"}));
    EXPECT_EQ(m.live().pickAnchor(), id("b").toStdString());
}

TEST_F(TheUninstallScreen, AClickOnARowThatIsNoLongerThereDoesNothing)
{
    AppModel& m = withFour();
    UninstallModel screen(m);
    screen.setQuery("b");
    screen.pick(id("d"), false);
    screen.show(id("d"));
    EXPECT_EQ(ticked(m), Names());
    EXPECT_EQ(m.live().selectedAppID(), app("a").id());
}

TEST_F(TheUninstallScreen, ShowsAnApplicationAndLooksForItsLeftovers)
{
    AppModel& m = withFour();
    UninstallModel screen(m);
    screen.show(id("c"));
    EXPECT_EQ(screen.detail()->name(), "c");
    EXPECT_EQ(held.residues.back().first.name, "c");
    EXPECT_EQ(ticked(m), Names());
}

TEST_F(TheUninstallScreen, TicksAndFocusOutlastALeavingOfTheScreen)
{
    AppModel& m = withFour();
    {
        UninstallModel screen(m);
        screen.pick(id("b"), false);
        screen.show(id("c"));
    }
    m.go("home");
    m.go("uninstall");
    UninstallModel screen(m);
    EXPECT_EQ(screen.tickedText(), "1 selected");
    EXPECT_EQ(screen.detail()->name(), "c");
    EXPECT_EQ(screen.rows()->focusedRow(), 1);
}

TEST_F(TheUninstallScreen, NoteSaysWhatBecomesOfTheApplications)
{
    AppModel& m = withFour();
    UninstallModel screen(m);
    const Told told(&screen, &UninstallModel::noteChanged);
    EXPECT_EQ(screen.note(), "Checked apps go to the Trash, along with their leftover files.");
    m.settings().setKeepInTrash(false);
    EXPECT_EQ(screen.note(), "Checked apps are removed for good, along with their leftover files.");
    EXPECT_EQ(told.count(), 1);
}

TEST_F(TheUninstallScreen, AsksBeforeItUninstallsAndOnlyWithSomethingTicked)
{
    AppModel& m = withFour();
    UninstallModel screen(m);
    screen.uninstall();
    EXPECT_EQ(m.sheet(), std::nullopt);
    screen.pick(id("a"), false);
    screen.uninstall();
    EXPECT_EQ(m.sheet(), "uninstall");
    EXPECT_TRUE(disk->changes().empty());
}

TEST_F(TheUninstallScreen, TheRowsLeaveAtOnceAndTheFocusGoesToTheFirstOfTheRest)
{
    AppModel& m = withFour();
    UninstallModel screen(m);
    for (const char* const name : {"a", "b", "c", "d"}) {
        disk->put(app(name).path, 1000);
    }
    screen.pick(id("a"), false);
    screen.pick(id("d"), false);
    screen.uninstall();
    m.runSheet();
    EXPECT_EQ(screen.countText(), "2 applications");
    EXPECT_EQ(screen.tickedText(), "");
    EXPECT_EQ(screen.detail()->name(), "b");
    pumpUntil([&m] { return !m.toasts().toasts().empty(); });
    EXPECT_EQ(disk->changes().front(), "trash " + app("a").path);
}

TEST_F(TheUninstallScreen, WhatIsStuckComesBackUnticked)
{
    AppModel& m = withFour();
    UninstallModel screen(m);
    disk->put(app("d").path, 1000);
    disk->fail(app("d").path, "not permitted");
    screen.pick(id("d"), false);
    screen.uninstall();
    m.runSheet();
    EXPECT_EQ(screen.countText(), "3 applications");
    pumpUntil([&screen] { return screen.countText() == "4 applications"; });
    EXPECT_FALSE(screen.canUninstall());
}

} // namespace

} // namespace zolva::test
