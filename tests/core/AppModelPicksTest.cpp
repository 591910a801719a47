#include "core/WholeModel.h"

#include "async/Unawaited.h"

#include <functional>

namespace zolva::test {

namespace {

using Keys = AppLists::Keys;

/// One of the three lists of the model, as far as picking goes.
struct PickedList
{
    std::string name;
    std::function<void(const std::string&, const Keys&, bool)> pick;
    std::function<PickSet()> picked;
};

PickSet ticked(const PickMap& sel)
{
    PickSet keys;
    for (const auto& [key, on] : sel) {
        if (on) {
            keys.insert(key);
        }
    }
    return keys;
}

class ModelPicks : public WholeModel
{
protected:
    [[nodiscard]] std::vector<PickedList> allLists()
    {
        AppLists& lists = start().lists();
        return {{"clean",
                 [&lists](const std::string& key, const Keys& order, bool shift) {
                     lists.pickClean(key, order, shift);
                 },
                 [&lists] { return ticked(lists.sel()); }},
                {"purge",
                 [&lists](const std::string& key, const Keys& order, bool shift) {
                     lists.pickPurge(key, order, shift);
                 },
                 [&lists] { return lists.projPicked(); }},
                {"installer",
                 [&lists](const std::string& key, const Keys& order, bool shift) {
                     lists.pickInstaller(key, order, shift);
                 },
                 [&lists] { return lists.instPicked(); }}};
    }
    [[nodiscard]] PickAnchor anchor(const std::string& list) const
    {
        return model->lists().pickAnchor().at(list);
    }
};

} // namespace

TEST_F(ModelPicks, AClickFlipsItsRowAndMakesItTheAnchorOfItsOwnList)
{
    for (const PickedList& list : allLists()) {
        const auto before = model->lists().pickAnchor();
        list.pick("b", {"a", "b"}, false);
        EXPECT_EQ(list.picked(), (PickSet{"b"})) << list.name;
        EXPECT_EQ(anchor(list.name), "b") << list.name;
        EXPECT_EQ(model->lists().pickAnchor().size(), before.size() + 1) << list.name;
        list.pick("b", {"a", "b"}, false);
        EXPECT_TRUE(list.picked().empty()) << list.name;
        EXPECT_EQ(anchor(list.name), "b") << list.name;
    }
}

TEST_F(ModelPicks, AShiftClickWithNoEarlierClickFlipsTheOneRowAndAnchorsIt)
{
    for (const PickedList& list : allLists()) {
        list.pick("b", {"a", "b", "c"}, true);
        EXPECT_EQ(list.picked(), (PickSet{"b"})) << list.name;
        EXPECT_EQ(anchor(list.name), "b") << list.name;
    }
}

TEST_F(ModelPicks, AShiftClickTicksTheRowsThatAreShownBetweenAndUnticksNone)
{
    for (const PickedList& list : allLists()) {
        list.pick("d", {"a", "b", "c", "d"}, false);
        list.pick("b", {"a", "b", "d"}, true); // "c" is filtered away
        EXPECT_EQ(list.picked(), (PickSet{"b", "d"})) << list.name;
        list.pick("d", {"a", "b", "d"}, true);
        EXPECT_EQ(list.picked(), (PickSet{"b", "d"})) << list.name;
    }
}

TEST_F(ModelPicks, TheAnchorSurvivesANewOrder)
{
    for (const PickedList& list : allLists()) {
        list.pick("a", {"a", "b", "c"}, false);
        list.pick("b", {"c", "b", "a"}, true);
        EXPECT_EQ(list.picked(), (PickSet{"a", "b"})) << list.name;
    }
}

TEST_F(ModelPicks, AShiftClickAfterTheAnchorsRowWasScannedAwayFlipsTheOneRowAndReanchors)
{
    AppModel& m = start();
    unawaited(m.scanClean(true));
    held.clean.answer(0, {category("a"), category("b"), category("c")});
    m.lists().pickClean("a", {"a", "b", "c"}, false);
    unawaited(m.scanClean(true));
    held.clean.answer(1, {category("b"), category("c")});
    m.lists().pickClean("c", {"b", "c"}, true);
    EXPECT_EQ(m.lists().sel(), (PickMap{{"c", true}}));
    EXPECT_EQ(anchor("clean"), "c");
}

TEST_F(ModelPicks, TheFirstFlipOfACategoryTicksItAndTheSecondLeavesAFalseEntry)
{
    AppLists& lists = start().lists();
    lists.pickClean("a", {"a"}, false);
    EXPECT_EQ(lists.sel(), (PickMap{{"a", true}}));
    lists.pickClean("a", {"a"}, false);
    EXPECT_EQ(lists.sel(), (PickMap{{"a", false}}));
}

TEST_F(ModelPicks, AllRowsGivenArePutInOrTakenOutAndTheOthersStay)
{
    AppLists& lists = start().lists();
    lists.setClean({"a", "b"}, true);
    lists.setClean({"b"}, false);
    EXPECT_EQ(lists.sel(), (PickMap{{"a", true}, {"b", false}}));
    lists.setPurge({"a", "b"}, true);
    lists.setPurge({"b", "c"}, false);
    EXPECT_EQ(lists.projPicked(), (PickSet{"a"}));
    lists.setInstallers({"a", "b"}, true);
    lists.setInstallers({"b"}, false);
    EXPECT_EQ(lists.instPicked(), (PickSet{"a"}));
}

TEST_F(ModelPicks, EveryPickIsToldByItsOwnList)
{
    AppLists& lists = start().lists();
    const Told sel(&lists, &AppLists::selChanged);
    const Told projects(&lists, &AppLists::projPickedChanged);
    const Told items(&lists, &AppLists::instPickedChanged);
    lists.pickClean("a", {}, false);
    EXPECT_EQ(sel.count(), 1);
    lists.pickPurge("a", {}, false);
    EXPECT_EQ(projects.count(), 1);
    lists.pickInstaller("a", {}, false);
    EXPECT_EQ(items.count(), 1);
    EXPECT_EQ(sel.count(), 1);
}

TEST_F(ModelPicks, ANewOpenRowClosesTheOldOneOfItsKind)
{
    AppLists& lists = start().lists();
    const Told told(&lists, &AppLists::openCatChanged);
    lists.setOpenCat("a");
    lists.setOpenCat("b");
    lists.setOpenCat("b");
    lists.setResOpen("r");
    EXPECT_EQ(lists.openCat(), "b");
    EXPECT_EQ(lists.resOpen(), "r");
    EXPECT_EQ(told.count(), 2);
}

TEST_F(ModelPicks, GoingToAScreenClosesTheSheetAndForgetsTheBytesOfTheLastRuns)
{
    AppModel& m = start();
    m.setSheet("erase");
    m.setLastCleanFreed(3);
    m.setLastPurgeFreed(4);
    m.lists().setOpenCat("a");
    m.go("purge");
    EXPECT_EQ(m.screen(), "purge");
    EXPECT_EQ(m.sheet(), std::nullopt);
    EXPECT_EQ(m.lastCleanFreed(), 0);
    EXPECT_EQ(m.lastPurgeFreed(), 0);
    EXPECT_EQ(m.lists().openCat(), "a");
}

TEST_F(ModelPicks, GoingToTheScreenAlreadyShownForgetsTheBytesJustTheSame)
{
    AppModel& m = start();
    m.setLastCleanFreed(3);
    m.setLastPurgeFreed(4);
    const Told screen(&m, &AppModel::screenChanged);
    const Told freed(&m, &AppModel::lastCleanFreedChanged);
    m.go("home");
    EXPECT_EQ(m.lastCleanFreed(), 0);
    EXPECT_EQ(m.lastPurgeFreed(), 0);
    EXPECT_EQ(screen.count(), 0);
    EXPECT_EQ(freed.count(), 1);
    m.go("home");
    EXPECT_EQ(freed.count(), 1);
}

TEST_F(ModelPicks, GoingFromScreenToScreenStartsNoScan)
{
    AppModel& m = start({.journalCheck = false, .accessProbe = false});
    for (const char* screen : {"clean", "purge", "installer", "uninstall", "analyze", "status"}) {
        m.go(screen);
    }
    EXPECT_EQ(held.clean.count() + held.purge.count() + held.analyze.count(), 0U);
    EXPECT_EQ(installers.count() + script.lists.count() + probes.count(), 0U);
    EXPECT_TRUE(script.intervals.empty());
}

TEST_F(ModelPicks, EachScreenHasItsOwnOrderAndOneWithoutShowsTheLargestFirst)
{
    AppModel& m = start();
    EXPECT_EQ(m.sortOf("purge"), SortKey::SizeDesc);
    m.setSort("purge", SortKey::AgeDesc);
    m.setSort("clean", SortKey::NameAsc);
    EXPECT_EQ(m.sortOf("purge"), SortKey::AgeDesc);
    EXPECT_EQ(m.sortOf("clean"), SortKey::NameAsc);
    EXPECT_EQ(m.sortOf("installer"), SortKey::SizeDesc);
    EXPECT_EQ(m.sort().size(), 2U);
}

TEST_F(ModelPicks, TheOrdersHaveTheNamesOfTheMenus)
{
    Keys names;
    for (const SortKey key : sortKeys) {
        names.emplace_back(sortKeyText(key));
    }
    EXPECT_EQ(names,
              (Keys{"Largest first", "Smallest first", "Name", "Oldest first", "Newest first"}));
}

TEST_F(ModelPicks, AnAbsentSearchTextReadsAsEmpty)
{
    AppModel& m = start();
    EXPECT_EQ(m.queryOf("uninstall"), "");
    m.setQuery("uninstall", "edit");
    EXPECT_EQ(m.queryOf("uninstall"), "edit");
}

TEST_F(ModelPicks, TheStartedConfirmationsAreKept)
{
    AppModel& m = start();
    m.markDone("purge");
    m.markDone("purge");
    EXPECT_EQ(m.done(), (std::set<std::string>{"purge"}));
}

} // namespace zolva::test
