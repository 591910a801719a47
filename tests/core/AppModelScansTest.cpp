#include "core/WholeModel.h"

#include "async/Unawaited.h"

#include <algorithm>
#include <array>
#include <functional>

namespace zolva::test {

namespace {

using Names = std::vector<std::string>;

class ModelScans : public WholeModel
{
protected:
    /// Started, with the intro's probe out of the way.
    AppModel& ready() { return start({.journalCheck = false, .accessProbe = false}); }

    /// A Clean scan from its start to its end.
    void cleaned(const Names& names)
    {
        std::vector<Category> found;
        for (const std::string& name : names) {
            found.push_back(category(name));
        }
        unawaited(model->scanClean(true));
        held.clean.answer(held.clean.count() - 1, std::move(found));
    }
    void purged(const Names& paths)
    {
        std::vector<Project> found;
        for (const std::string& path : paths) {
            found.push_back(project(path));
        }
        unawaited(model->scanPurge(true));
        held.purge.answer(held.purge.count() - 1, std::move(found));
    }
    void listed(const Names& paths)
    {
        std::vector<InstallerItem> found;
        for (const std::string& path : paths) {
            found.push_back(installer(path));
        }
        model->scanInstallers();
        installers.answer(installers.count() - 1, std::move(found));
    }

    [[nodiscard]] Names categoryNames() const
    {
        Names names;
        for (const Category& one : model->lists().liveCats().value()) {
            names.push_back(one.name);
        }
        return names;
    }
    [[nodiscard]] Names projectPaths() const
    {
        Names paths;
        for (const Project& one : model->lists().liveProjects().value()) {
            paths.push_back(one.p);
        }
        return paths;
    }
    [[nodiscard]] Names installerPaths() const
    {
        Names paths;
        for (const InstallerItem& one : model->lists().installerList()) {
            paths.push_back(one.p);
        }
        return paths;
    }
};

using Order = std::array<std::size_t, 3>;

void inEveryOrder(const std::function<void(const Order&)>& check)
{
    Order order = {0, 1, 2};
    do {
        check(order);
    } while (std::next_permutation(order.begin(), order.end()));
}

} // namespace

TEST_F(ModelScans, ACleanScanBringsItsCategoriesIntoTheModel)
{
    AppModel& m = ready();
    const Told told(&m.lists(), &AppLists::liveCatsChanged);
    unawaited(m.scanClean(true));
    EXPECT_TRUE(m.live().clean().isLoading());
    EXPECT_EQ(m.lists().liveCats(), std::nullopt);
    held.clean.answer(0, {category("a"), category("b")});
    EXPECT_EQ(categoryNames(), (Names{"a", "b"}));
    EXPECT_EQ(told.count(), 1);
}

TEST_F(ModelScans, AfterACleanScanOnlyTickedCategoriesThatAreStillThereStayTicked)
{
    AppModel& m = ready();
    cleaned({"a", "b", "c"});
    m.lists().setClean({"a", "b"}, true);
    cleaned({"a", "c"});
    EXPECT_EQ(m.lists().sel(), (PickMap{{"a", true}}));
}

TEST_F(ModelScans, AFalseEntryDisappearsAtTheNextCleanScanAlthoughItsCategoryIsListed)
{
    AppModel& m = ready();
    cleaned({"a"});
    m.lists().pickClean("a", {"a"}, false);
    m.lists().pickClean("a", {"a"}, false);
    EXPECT_EQ(m.lists().sel(), (PickMap{{"a", false}}));
    cleaned({"a"});
    EXPECT_TRUE(m.lists().sel().empty());
}

TEST_F(ModelScans, ACleanScanClosesTheOpenCategoryAndNoOtherRow)
{
    AppModel& m = ready();
    cleaned({"a"});
    m.lists().setOpenCat("a");
    m.lists().setResOpen("row");
    const Told told(&m.lists(), &AppLists::openCatChanged);
    unawaited(m.scanClean(true));
    EXPECT_EQ(m.lists().openCat(), "a");
    held.clean.answer(1, {category("a")});
    EXPECT_EQ(m.lists().openCat(), std::nullopt);
    EXPECT_EQ(m.lists().resOpen(), "row");
    EXPECT_EQ(told.count(), 1);
}

TEST_F(ModelScans, AnEmptyCleanScanLeavesNothingTickedAndNothingOpen)
{
    AppModel& m = ready();
    cleaned({"a"});
    m.lists().setClean({"a"}, true);
    m.lists().setOpenCat("a");
    cleaned({});
    EXPECT_EQ(categoryNames(), Names{});
    EXPECT_TRUE(m.lists().sel().empty());
    EXPECT_EQ(m.lists().openCat(), std::nullopt);
}

TEST_F(ModelScans, WhatHoldsTogetherIsChangedBeforeAnyOfItIsTold)
{
    AppModel& m = ready();
    cleaned({"a"});
    m.lists().setClean({"a"}, true);
    m.lists().setOpenCat("a");
    bool whole = false;
    QObject::connect(&m.lists(), &AppLists::liveCatsChanged, &m,
                     [&] { whole = m.lists().sel().empty() && !m.lists().openCat(); });
    cleaned({"b"});
    EXPECT_TRUE(whole);
}

TEST_F(ModelScans, ACleanScanThatWasOvertakenLeavesTheFieldsAsTheyWere)
{
    AppModel& m = ready();
    cleaned({"a"});
    m.lists().setClean({"a"}, true);
    m.lists().setOpenCat("a");
    unawaited(m.scanClean(true));
    unawaited(m.scanClean(true));
    held.clean.answer(1, {category("stale")});
    EXPECT_TRUE(m.live().clean().isLoading());
    EXPECT_EQ(categoryNames(), (Names{"a"}));
    EXPECT_EQ(m.lists().sel(), (PickMap{{"a", true}}));
    EXPECT_EQ(m.lists().openCat(), "a");
    held.clean.answer(2, {category("newest")});
    EXPECT_EQ(categoryNames(), (Names{"newest"}));
}

TEST_F(ModelScans, WithoutForceAHeldCleanResultIsTakenOverAgainWithoutAScan)
{
    AppModel& m = ready();
    cleaned({"a"});
    m.lists().setOpenCat("a");
    m.lists().forgetCategories();
    unawaited(m.scanClean(false));
    EXPECT_EQ(held.clean.count(), 1U);
    EXPECT_EQ(categoryNames(), (Names{"a"}));
    EXPECT_EQ(m.lists().openCat(), std::nullopt);
}

TEST_F(ModelScans, TheNewestCleanAndPurgeResultsWinInWhateverOrderTheyArrive)
{
    inEveryOrder([&](const Order& order) {
        AppModel& m = ready();
        const std::size_t clean = held.clean.count();
        const std::size_t purge = held.purge.count();
        for (int i = 0; i < 3; ++i) {
            unawaited(m.scanClean(true));
            unawaited(m.scanPurge(true));
        }
        for (const std::size_t call : order) {
            held.clean.answer(clean + call, {category(std::to_string(call))});
            held.purge.answer(purge + call, {project(std::to_string(call))});
        }
        EXPECT_EQ(categoryNames(), (Names{"2"}));
        EXPECT_EQ(projectPaths(), (Names{"2"}));
    });
}

TEST_F(ModelScans, APurgeScanTrimsWhatIsPickedAndPicksNothing)
{
    AppModel& m = ready();
    purged({"~/a", "~/b"});
    EXPECT_EQ(projectPaths(), (Names{"~/a", "~/b"}));
    EXPECT_TRUE(m.lists().projPicked().empty());
    m.lists().setPurge({"~/a/build", "~/b/build"}, true);
    m.lists().setOpenCat("category");
    purged({"~/b", "~/c"});
    EXPECT_EQ(m.lists().projPicked(), (PickSet{"~/b/build"}));
    EXPECT_EQ(m.lists().openCat(), "category");
}

TEST_F(ModelScans, AForcedPurgeScanForgetsTheBytesOfTheLastRunAsItBegins)
{
    AppModel& m = ready();
    m.setLastPurgeFreed(5);
    m.setLastCleanFreed(6);
    unawaited(m.scanPurge(false));
    EXPECT_EQ(m.lastPurgeFreed(), 5);
    unawaited(m.scanPurge(true));
    EXPECT_EQ(m.lastPurgeFreed(), 0);
    unawaited(m.scanClean(true));
    EXPECT_EQ(m.lastCleanFreed(), 6);
}

TEST_F(ModelScans, ForgottenListsStayAbsentUntilTheNextScanHasEnded)
{
    AppModel& m = ready();
    cleaned({"a"});
    purged({"~/a"});
    m.lists().setClean({"a"}, true);
    m.lists().setPurge({"~/a/build"}, true);
    m.lists().forgetCategories();
    m.lists().forgetProjects();
    EXPECT_EQ(m.lists().liveCats(), std::nullopt);
    EXPECT_EQ(m.lists().liveProjects(), std::nullopt);
    EXPECT_EQ(m.lists().sel(), (PickMap{{"a", true}}));
    EXPECT_EQ(m.lists().projPicked(), (PickSet{"~/a/build"}));
    cleaned({"a"});
    purged({"~/a"});
    EXPECT_EQ(m.lists().sel(), (PickMap{{"a", true}}));
    EXPECT_EQ(m.lists().projPicked(), (PickSet{"~/a/build"}));
}

TEST_F(ModelScans, AnInstallerScanProbesTheAccessAndLoadsItsList)
{
    AppModel& m = ready();
    m.scanInstallers();
    EXPECT_EQ(probes.count(), 1U);
    EXPECT_TRUE(m.lists().installerState().isLoading());
    EXPECT_EQ(m.lists().installerGen(), 1);
    installers.answer(0, {installer("~/a.dmg")});
    EXPECT_TRUE(m.lists().installerState().isLoaded());
    EXPECT_EQ(installerPaths(), (Names{"~/a.dmg"}));
}

TEST_F(ModelScans, AFinishedInstallerScanForgetsTheWholeSelection)
{
    AppModel& m = ready();
    listed({"~/a.dmg"});
    m.lists().pickInstaller("~/a.dmg", {"~/a.dmg"}, false);
    m.scanInstallers();
    EXPECT_EQ(m.lists().instPicked(), (PickSet{"~/a.dmg"}));
    EXPECT_EQ(installerPaths(), (Names{"~/a.dmg"}));
    installers.answer(1, {installer("~/a.dmg")});
    EXPECT_TRUE(m.lists().instPicked().empty());
}

TEST_F(ModelScans, TheNewestInstallerScanWinsInWhateverOrderTheyArrive)
{
    inEveryOrder([&](const Order& order) {
        AppModel& m = ready();
        const std::size_t first = installers.count();
        for (int i = 0; i < 3; ++i) {
            m.scanInstallers();
        }
        for (const std::size_t call : order) {
            installers.answer(first + call, {installer(std::to_string(call))});
            const bool newest = call == 2;
            if (newest) {
                m.lists().setInstallers({"2"}, true);
            }
        }
        EXPECT_TRUE(m.lists().installerState().isLoaded());
        EXPECT_EQ(installerPaths(), (Names{"2"}));
        EXPECT_EQ(m.lists().instPicked(), (PickSet{"2"}));
    });
}

TEST_F(ModelScans, AnOvertakenInstallerResultLeavesTheStateLoading)
{
    AppModel& m = ready();
    m.scanInstallers();
    m.scanInstallers();
    installers.answer(0, {installer("stale")});
    EXPECT_TRUE(m.lists().installerState().isLoading());
    EXPECT_TRUE(m.lists().installerList().empty());
}

TEST_F(ModelScans, DroppedInstallersLoseTheirRowsAndTheirTicks)
{
    AppModel& m = ready();
    listed({"~/a.dmg", "~/b.dmg", "~/c.dmg"});
    m.lists().setInstallers({"~/a.dmg", "~/b.dmg"}, true);
    m.lists().dropInstallers({"~/a.dmg", "~/c.dmg"});
    EXPECT_EQ(installerPaths(), (Names{"~/b.dmg"}));
    EXPECT_EQ(m.lists().instPicked(), (PickSet{"~/b.dmg"}));
    EXPECT_TRUE(m.lists().installerState().isLoaded());
}

TEST_F(ModelScans, AProbeReplacesWhatWasBlockedAndLogsOnlyWhatIs)
{
    AppModel& m = ready();
    m.scanInstallers();
    probes.answer(0, blocked({"Desktop", "Trash"}));
    m.scanInstallers();
    probes.answer(1, {});
    EXPECT_TRUE(m.blockedLocations().empty());
    EXPECT_EQ(log.messages(), (Names{"blocked by privacy settings: Desktop, Trash"}));
}

TEST_F(ModelScans, ScanAllStartsEveryScanAfreshAndTheProbeTwice)
{
    AppModel& m = ready();
    cleaned({"a"});
    purged({"~/a"});
    m.scanAll();
    EXPECT_EQ(probes.count(), 2U);
    EXPECT_EQ(installers.count(), 1U);
    EXPECT_EQ(held.clean.count(), 2U);
    EXPECT_EQ(held.purge.count(), 2U);
    EXPECT_EQ(script.lists.count(), 1U);
    EXPECT_TRUE(m.live().apps().isLoading());
    held.clean.answer(1, {category("b")});
    EXPECT_EQ(categoryNames(), (Names{"b"}));
}

TEST_F(ModelScans, TheMenuKeepsTheResultsHeldAndReadsTheMetersLast)
{
    AppModel& m = ready();
    cleaned({"a"});
    purged({"~/a"});
    steps.clear();
    m.scanForMenu();
    EXPECT_EQ(held.clean.count(), 1U);
    EXPECT_EQ(held.purge.count(), 1U);
    EXPECT_EQ(installers.count(), 1U);
    EXPECT_EQ(script.lists.count(), 0U);
    EXPECT_EQ(steps, (Names{"access probed", "space read"}));
}

TEST_F(ModelScans, TheMenusFirstScanReadsWhatIsNotHeld)
{
    ready().scanForMenu();
    EXPECT_EQ(held.clean.count(), 1U);
    EXPECT_EQ(held.purge.count(), 1U);
}

TEST_F(ModelScans, TheMenusRescanIsForcedAndComesAfterTheMeters)
{
    AppModel& m = ready();
    cleaned({"a"});
    purged({"~/a"});
    m.setLastPurgeFreed(5);
    steps.clear();
    QObject::connect(&m.live(), &LiveData::cleanChanged, &m, [&] { steps.push_back("clean"); });
    QObject::connect(&m.live(), &LiveData::purgeChanged, &m, [&] { steps.push_back("purge"); });
    m.rescanForMenu();
    EXPECT_EQ(steps, (Names{"access probed", "space read", "clean", "purge"}));
    EXPECT_EQ(held.clean.count(), 2U);
    EXPECT_EQ(held.purge.count(), 2U);
    EXPECT_EQ(m.lastPurgeFreed(), 0);
}

} // namespace zolva::test
