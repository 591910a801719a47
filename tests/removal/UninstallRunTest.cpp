#include "removal/runs/UninstallRun.h"

#include "diagnostics/RunJournal.h"
#include "removal/TrashMessages.h"
#include "removal/UninstallBench.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace zolva {
namespace {

using namespace std::chrono_literals;
using test::app;
using test::row;
using test::UninstallBench;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(Uninstall, RemovesWhatIsTheApplicationsOwnForGood)
{
    UninstallBench b;
    b.check({"Two"});
    const UninstallReport report = b.uninstall();
    EXPECT_EQ(report.uninstalled, 1);
    EXPECT_THAT(b.bench.disk->changes(),
                ElementsAre("trash ~/Caches/Two", "trash /Applications/Two.app", "purge /trash/Two",
                            "purge /trash/Two.app"));
    EXPECT_THAT(b.list.names(), ElementsAre("One", "Three"));
    EXPECT_THAT(b.bench.toastTexts(), ElementsAre("success: Uninstalled 1 app"));
    EXPECT_TRUE(b.bench.disk->exists("/Applications/One.app"));
}

TEST(Uninstall, DeletesForGoodAlsoWhereTheSettingKeepsThingsInTheTrash)
{
    UninstallBench b;
    b.bench.keepInTrash = true;
    b.check({"Two"});
    b.uninstall();
    EXPECT_FALSE(b.bench.disk->exists("/trash/Two.app"));
}

TEST(Uninstall, TheRowsLeaveTheListBeforeAnythingIsDone)
{
    UninstallBench b;
    b.list.shown = app("One").id();
    b.check({"One", "Three"});
    auto task = uninstallChecked(b.tools());
    EXPECT_THAT(b.list.names(), ElementsAre("Two"));
    EXPECT_THAT(b.list.checked, IsEmpty());
    EXPECT_EQ(b.list.shown, app("Two").id());
    EXPECT_THAT(b.list.scanned, ElementsAre("Two"));
    EXPECT_FALSE(b.bench.state.bulk());
    EXPECT_FALSE(journalRead(b.bench.journalFolder()));
    b.finish(std::move(task));
}

TEST(Uninstall, AFocusThatStaysIsLeftAlone)
{
    UninstallBench b;
    b.list.shown = app("Two").id();
    b.check({"One"});
    b.uninstall();
    EXPECT_EQ(b.list.shown, app("Two").id());
    EXPECT_THAT(b.list.scanned, IsEmpty());
}

TEST(Uninstall, OfTheLastApplicationLeavesNoFocus)
{
    UninstallBench b({"One"});
    b.list.shown = app("One").id();
    b.check({"One"});
    b.uninstall();
    EXPECT_FALSE(b.list.shown);
    EXPECT_THAT(b.list.names(), IsEmpty());
}

TEST(Uninstall, WithoutALoadedListNothingHappens)
{
    UninstallBench b;
    b.check({"One"});
    b.list.apps.reset();
    EXPECT_EQ(b.uninstall().start, RunStart::NothingToDo);
    EXPECT_THAT(b.bench.disk->changes(), IsEmpty());
}

TEST(Uninstall, AListThatIsReadAnewAsSoonAsItChangesHindersNothing)
{
    UninstallBench b;
    b.check({"One"});
    b.list.onStore = [&b] { b.list.apps.reset(); };
    EXPECT_EQ(b.uninstall().uninstalled, 1);
    EXPECT_THAT(*b.scans, ElementsAre("One: Two Three"));
}

TEST(Uninstall, SharedLeftoversStay)
{
    UninstallBench b;
    b.residue["Two"] = {row("~/Caches/Two", true), row("/Applications/Two.app")};
    b.check({"Two"});
    b.uninstall();
    EXPECT_TRUE(b.bench.disk->exists("~/Caches/Two"));
    EXPECT_FALSE(b.bench.disk->exists("/Applications/Two.app"));
}

TEST(Uninstall, WhereOnlySharedRowsAreFoundTheBundleAloneGoes)
{
    UninstallBench b;
    b.residue["Two"] = {row("~/Caches/Two", true)};
    b.check({"Two"});
    b.uninstall();
    EXPECT_THAT(b.bench.disk->changes(),
                ElementsAre("trash /Applications/Two.app", "purge /trash/Two.app"));
}

TEST(Uninstall, ExcludedPathsAreLeftOutAndLogged)
{
    UninstallBench b;
    b.bench.whitelist = {"~/Caches"};
    b.check({"Two"});
    b.uninstall();
    EXPECT_TRUE(b.bench.disk->exists("~/Caches/Two"));
    EXPECT_EQ(b.bench.log.messages().front(), "refused ~/Caches/Two: excluded in Settings");
}

TEST(Uninstall, AnExcludedBundleIsNotTouchedAndComesBackIntoTheList)
{
    UninstallBench b;
    b.bench.whitelist = {"/Applications", "~/Caches"};
    b.check({"Two"});
    const UninstallReport report = b.uninstall();
    EXPECT_EQ(report.uninstalled, 0);
    EXPECT_THAT(b.bench.disk->changes(), IsEmpty());
    EXPECT_THAT(b.list.names(), ElementsAre("One", "Three", "Two"));
}

TEST(Uninstall, TwoChosenTogetherDoNotProtectEachOthersLeftovers)
{
    UninstallBench b;
    b.check({"One", "Two"});
    b.uninstall();
    EXPECT_THAT(*b.scans, ElementsAre("One: Three", "Two: Three"));
    EXPECT_THAT(b.bench.toastTexts(), ElementsAre("success: Uninstalled 2 apps"));
}

TEST(Uninstall, TheLeftoversAreScannedAfterTheApplicationQuit)
{
    UninstallBench b;
    b.processes.apps["org.Two"] = {{7, 1}};
    std::size_t scansThen = 9;
    b.processes.onTerminate = [&] { scansThen = b.scans->size(); };
    b.check({"Two"});
    b.uninstall();
    EXPECT_EQ(scansThen, 0u);
    EXPECT_EQ(b.scans->size(), 1u);
}

TEST(Uninstall, AnApplicationThatQuitsInTimeIsRemovedWithoutAWarning)
{
    UninstallBench b;
    b.processes.apps["org.Two"] = {{7, 1}, {8, 1}};
    b.processes.stubborn = true;
    b.check({"Two"});
    auto task = uninstallChecked(b.tools());
    EXPECT_THAT(b.processes.asked, ElementsAre(7, 8));
    b.bench.clock.advance(2900ms);
    EXPECT_THAT(*b.scans, IsEmpty());
    b.processes.ended = {7, 8};
    b.bench.clock.advance(150ms);
    b.processes.stubborn = false;
    b.finish(std::move(task));
    EXPECT_THAT(b.bench.toastTexts(), ElementsAre("success: Uninstalled 1 app"));
}

TEST(Uninstall, OneThatIgnoresTheRequestAndCannotBeMovedIsToBeQuitByHand)
{
    UninstallBench b;
    b.processes.apps["org.Two"] = {{7, 1}};
    b.processes.stubborn = true;
    b.bench.disk->fail("/Applications/Two.app", "Busy");
    b.check({"Two"});
    const UninstallReport report = b.uninstall();
    EXPECT_EQ(report.stillRunning.size(), 1u);
    EXPECT_THAT(b.bench.toastTexts(),
                ElementsAre("warning: Couldn't quit 1 app to uninstall it. Quit it manually and "
                            "try again."));
    EXPECT_THAT(b.list.names(), ElementsAre("One", "Three", "Two"));
}

TEST(Uninstall, OneThatQuitButCannotBeMovedMayNeedAPassword)
{
    UninstallBench b;
    b.processes.apps["org.Two"] = {{7, 1}};
    b.bench.disk->fail("/Applications/Two.app", "Permission denied");
    b.check({"Two"});
    EXPECT_THAT(b.uninstall().stillRunning, IsEmpty());
    EXPECT_THAT(b.bench.toastTexts(),
                ElementsAre("warning: Couldn't uninstall 1 app. It may need an administrator "
                            "password. [Authenticate…]"));
}

TEST(Uninstall, OneThatIgnoresTheRequestButWasMovedAnywayCountsAsUninstalled)
{
    UninstallBench b;
    b.processes.apps["org.Two"] = {{7, 1}};
    b.processes.stubborn = true;
    b.check({"Two"});
    EXPECT_EQ(b.uninstall().uninstalled, 1);
    EXPECT_THAT(b.bench.toastTexts(), ElementsAre("success: Uninstalled 1 app"));
}

TEST(Uninstall, WaitsAtMostTwentyRoundsForAnApplication)
{
    UninstallBench b;
    b.processes.apps["org.Two"] = {{7, 1}};
    b.processes.stubborn = true;
    auto task = quitRunningApp(b.tools(), "org.Two");
    b.bench.clock.advance(2999ms);
    EXPECT_FALSE(task.isReady());
    b.bench.clock.advance(1ms);
    ASSERT_TRUE(task.isReady());
    EXPECT_TRUE(test::settled(std::move(task)));
    EXPECT_TRUE(isStillRunning(b.processes, "org.Two"));
}

TEST(Uninstall, OfAnApplicationThatRunsTwiceAsksBothToQuit)
{
    UninstallBench b;
    b.check({"Two"});
    b.processes.apps["org.Two"] = {{7, 1}, {8, 1}};
    EXPECT_EQ(b.uninstall().uninstalled, 1);
    EXPECT_THAT(b.processes.asked, ElementsAre(7, 8));
}

TEST(Uninstall, QuittingWhatDoesNotRunWaitsForNothing)
{
    UninstallBench b;
    auto task = quitRunningApp(b.tools(), "org.Two");
    ASSERT_TRUE(task.isReady());
    EXPECT_FALSE(test::settled(std::move(task)));
    EXPECT_FALSE(isStillRunning(b.processes, "org.Two"));
}

TEST(Uninstall, ABundleThatIsGoneCountsAlsoWhereALeftoverFailed)
{
    UninstallBench b;
    b.bench.disk->fail("~/Caches/Two", "Busy");
    b.check({"Two"});
    EXPECT_EQ(b.uninstall().uninstalled, 1);
    EXPECT_THAT(b.bench.toastTexts(), ElementsAre("success: Uninstalled 1 app"));
}

TEST(Uninstall, ProblemsOfThePurgeAreDroppedWithoutAWord)
{
    UninstallBench b;
    b.bench.disk->failPurge("Two.app", "Busy");
    b.check({"Two"});
    b.uninstall();
    EXPECT_THAT(b.bench.toastTexts(), ElementsAre("success: Uninstalled 1 app"));
    EXPECT_TRUE(b.bench.disk->exists("/trash/Two.app"));
}

TEST(Uninstall, MixedResultsAreToldInOrder)
{
    UninstallBench b;
    b.processes.apps["org.One"] = {{7, 1}};
    b.processes.stubborn = true;
    b.bench.disk->fail("/Applications/One.app", "Busy");
    b.bench.disk->fail("/Applications/Two.app", "Permission denied");
    b.check({"One", "Two", "Three"});
    b.uninstall();
    EXPECT_THAT(b.bench.toastTexts(),
                ElementsAre("warning: Couldn't quit 1 app to uninstall it. Quit it manually and "
                            "try again.",
                            "warning: Couldn't uninstall 1 app. It may need an administrator "
                            "password. [Authenticate…]",
                            "success: Uninstalled 1 app"));
    EXPECT_THAT(b.list.names(), ElementsAre("One", "Two"));
}

TEST(Uninstall, ItMayOverlapABulkRunOfThisProcess)
{
    UninstallBench b;
    b.bench.state.setBulk(BulkProgress{"Removing caches", 1, 0, ""});
    HeldRunLock held = b.bench.state.lockRuns(b.bench.journalFolder());
    b.check({"Two"});
    EXPECT_EQ(b.uninstall().uninstalled, 1);
    EXPECT_TRUE(b.bench.state.bulk());
}

TEST(Uninstall, WhileAnotherProcessRemovesTheRowsStayAndNothingIsTouched)
{
    UninstallBench b;
    const RunLock another(b.bench.journalFolder());
    b.check({"Two"});
    EXPECT_EQ(b.uninstall().start, RunStart::OtherProcess);
    EXPECT_EQ(b.list.names().size(), 3u);
    EXPECT_THAT(b.bench.disk->changes(), IsEmpty());
}

TEST(Uninstall, ItsOwnItemsInTheTrashRaiseNoToastOfNewItems)
{
    UninstallBench b;
    b.bench.trash.refreshTrashMeter();
    b.check({"Two"});
    // Stays in the Trash, so that there is something new in it.
    b.bench.disk->failPurge("Two", "Operation not permitted");
    b.bench.disk->failPurge("Two.app", "Operation not permitted");
    b.uninstall();
    const auto told = [&] {
        b.bench.trash.trashFolderChanged();
        const auto texts = b.bench.toastTexts();
        return std::count_if(texts.begin(), texts.end(), [](const std::string& text) {
            return text.starts_with("info: " + newItemsText().toStdString());
        });
    };
    const std::int64_t own = b.bench.trash.trashCount();
    EXPECT_EQ(told(), 0);
    EXPECT_GT(b.bench.trash.trashCount(), own);
    b.bench.clock.advance(12s);
    b.bench.disk->putInTrash("somebody's", 1);
    EXPECT_EQ(told(), 1);
}

} // namespace
} // namespace zolva
