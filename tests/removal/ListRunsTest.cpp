#include "removal/runs/ListRuns.h"

#include "async/Unawaited.h"
#include "removal/RunBench.h"
#include "removal/runs/EmptyTrashRun.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zolva {
namespace {

using test::RunBench;
using test::settled;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

CatPath catPath(std::string path, std::int64_t bytes)
{
    CatPath row;
    row.p = std::move(path);
    row.b = bytes;
    return row;
}

Project project(std::string folder, std::string artifact, std::int64_t bytes)
{
    Project row;
    row.p = std::move(folder);
    row.artifact = std::move(artifact);
    row.b = bytes;
    return row;
}

InstallerItem installer(std::string path, std::int64_t bytes)
{
    InstallerItem row;
    row.p = std::move(path);
    row.b = bytes;
    return row;
}

QCoro::Task<> noteScan(std::vector<std::string>& notes)
{
    notes.push_back("scan");
    co_return;
}

AfterRun noting(RunBench& bench, std::vector<std::string>& notes)
{
    return {[&bench, &notes](std::int64_t freed) {
                notes.push_back("freed " + std::to_string(freed) + " toasts " +
                                std::to_string(bench.toasts.rowCount()));
            },
            [&bench, &notes] {
                notes.push_back("forget toasts " + std::to_string(bench.toasts.rowCount()) +
                                " reads " + std::to_string(bench.spaceReads));
            },
            [&notes] { return noteScan(notes); }};
}

TEST(CleanRun, ReportsThenForgetsTheListThenScansAnew)
{
    RunBench bench;
    bench.disk->put("/h/a", 1000);
    std::vector<std::string> notes;
    const RunReport report =
        settled(runClean(bench.tools(), {catPath("/h/a", 900)}, noting(bench, notes)));
    EXPECT_EQ(report.start, RunStart::Started);
    EXPECT_THAT(notes, ElementsAre("freed 1000 toasts 0", "forget toasts 1 reads 1", "scan"));
    EXPECT_EQ(bench.log.messages().front(), "clean starting: 1 paths, 900 bytes");
    EXPECT_EQ(bench.log.messages().back(), "clean finished: 1 moved, 0 purged, 0 problems");
}

TEST(CleanRun, AStoppedRunGoesThroughTheSameStepsWithTheFiguresOfWhatWasMoved)
{
    RunBench bench;
    bench.disk->put("/h/a", 1000);
    bench.disk->put("/h/b", 500);
    QObject::connect(&bench.state, &RunState::bulkChanged, &bench.toasts, [&] {
        if (bench.state.bulk() && bench.state.bulk()->done == 1 && !bench.state.cancelRequested()) {
            bench.state.requestCancel();
        }
    });
    std::vector<std::string> notes;
    settled(runClean(bench.tools(), {catPath("/h/a", 1000), catPath("/h/b", 500)},
                     noting(bench, notes)));
    EXPECT_THAT(notes, ElementsAre("freed 1000 toasts 1", "forget toasts 2 reads 1", "scan"));
}

TEST(CleanRun, WithNothingSelectedNothingHappens)
{
    RunBench bench;
    std::vector<std::string> notes;
    const RunReport report = settled(runClean(bench.tools(), {}, noting(bench, notes)));
    EXPECT_EQ(report.start, RunStart::NothingToDo);
    EXPECT_THAT(notes, IsEmpty());
    EXPECT_THAT(bench.log.messages(), IsEmpty());
}

TEST(CleanRun, ASecondStartDuringARunDoesNothingSilently)
{
    RunBench bench;
    bench.disk->put("/h/a", 1000);
    bench.disk->put("/h/b", 1000);
    auto first = runClean(bench.tools(), {catPath("/h/a", 1)}, {});
    ASSERT_TRUE(bench.state.bulk());
    std::vector<std::string> notes;
    const DropRows drop = [&notes](const auto&) { notes.push_back("drop"); };
    EXPECT_EQ(settled(runClean(bench.tools(), {catPath("/h/b", 1)}, noting(bench, notes))).start,
              RunStart::Busy);
    EXPECT_EQ(settled(runPurge(bench.tools(), {project("/h", "b", 1)}, noting(bench, notes))).start,
              RunStart::Busy);
    EXPECT_EQ(settled(runInstallers(bench.tools(), {installer("/h/b", 1)}, drop)).start,
              RunStart::Busy);
    EXPECT_EQ(settled(removeInstaller(bench.tools(), installer("/h/b", 1), drop)).start,
              RunStart::Busy);
    EXPECT_EQ(settled(emptyTrash(bench.tools())).start, RunStart::Busy);
    EXPECT_EQ(settled(std::move(first)).start, RunStart::Started);
    EXPECT_THAT(notes, IsEmpty());
    EXPECT_THAT(bench.disk->changes(), ElementsAre("trash /h/a"));
    EXPECT_EQ(bench.toastTexts().size(), 1u);
}

TEST(CleanRun, WhileAnotherProcessRemovesNothingIsTouchedAndTheUserIsTold)
{
    RunBench bench;
    bench.disk->put("/h/a", 1000);
    const RunLock another(bench.journalFolder());
    ASSERT_EQ(another.state(), RunLock::State::Held);
    std::vector<std::string> notes;
    const DropRows drop = [&notes](const auto&) { notes.push_back("drop"); };
    EXPECT_EQ(settled(runClean(bench.tools(), {catPath("/h/a", 1)}, noting(bench, notes))).start,
              RunStart::OtherProcess);
    EXPECT_EQ(settled(runInstallers(bench.tools(), {installer("/h/a", 1)}, drop)).start,
              RunStart::OtherProcess);
    EXPECT_EQ(settled(emptyTrash(bench.tools())).start, RunStart::OtherProcess);
    EXPECT_THAT(notes, IsEmpty());
    EXPECT_THAT(bench.disk->changes(), IsEmpty());
    EXPECT_FALSE(bench.state.bulk());
    EXPECT_EQ(bench.toastTexts().size(), 3u);
    EXPECT_EQ(bench.toastTexts().front(),
              "info: Zolva is already removing files in another process.");
}

TEST(CleanRun, AfterARunTheNextMayStart)
{
    RunBench bench;
    bench.disk->put("/h/a", 1000);
    bench.disk->put("/h/b", 1000);
    settled(runClean(bench.tools(), {catPath("/h/a", 1)}, {}));
    EXPECT_EQ(settled(runClean(bench.tools(), {catPath("/h/b", 1)}, {})).start, RunStart::Started);
    EXPECT_EQ(bench.disk->changes().size(), 2u);
}

TEST(CleanRun, TheLastPathExcludedBehindTheOpenSheetDropsOutWithoutAToast)
{
    RunBench bench;
    bench.disk->put("/h/a", 1000);
    bench.whitelist = {"/h/a"};
    settled(runClean(bench.tools(), {catPath("/h/a", 1000)}, {}));
    EXPECT_THAT(bench.toastTexts(), IsEmpty());
    EXPECT_THAT(bench.disk->changes(), IsEmpty());
}

TEST(CleanRun, TheLockIsFreeWhileTheScanBehindTheRunGoesOn)
{
    RunBench bench;
    bench.disk->put("/h/a", 1000);
    AfterRun after;
    std::optional<RunLock::State> lock;
    std::vector<std::string> notes;
    after.rescan = [&] {
        lock = RunLock(bench.journalFolder()).state();
        return noteScan(notes);
    };
    settled(runClean(bench.tools(), {catPath("/h/a", 1)}, after));
    EXPECT_EQ(lock, RunLock::State::Held);
}

TEST(PurgeRun, RemovesTheArtifactsByTheProjectsKeys)
{
    RunBench bench;
    bench.disk->put("/h/app/node_modules", 7000);
    std::vector<std::string> notes;
    settled(
        runPurge(bench.tools(), {project("/h/app", "node_modules", 7000)}, noting(bench, notes)));
    EXPECT_THAT(bench.disk->changes(), ElementsAre("trash /h/app/node_modules"));
    EXPECT_THAT(notes, ElementsAre("freed 7000 toasts 0", "forget toasts 1 reads 1", "scan"));
    EXPECT_EQ(bench.log.messages().front(), "purge starting: 1 paths, 7000 bytes");
}

TEST(InstallersRun, RowsLeaveTheListBeforeAnythingIsDoneOnDiskAndNoScanFollows)
{
    RunBench bench;
    bench.disk->put("/h/a.dmg", 1000);
    bench.disk->put("/h/b.pkg", 2000);
    bench.disk->fail("/h/b.pkg", "Busy");
    std::vector<std::string> dropped;
    std::size_t changesThen = 99;
    const RunReport report =
        settled(runInstallers(bench.tools(), {installer("/h/a.dmg", 1), installer("/h/b.pkg", 2)},
                              [&](const std::vector<std::string>& paths) {
                                  dropped = paths;
                                  changesThen = bench.disk->changes().size();
                              }));
    EXPECT_EQ(report.start, RunStart::Started);
    EXPECT_THAT(dropped, ElementsAre("/h/a.dmg", "/h/b.pkg"));
    EXPECT_EQ(changesThen, 0u);
    // The one that failed has its toast, and is in no list until the next scan.
    EXPECT_THAT(bench.toastTexts(), ElementsAre("success: Moved 1 KB to the Trash [Open Trash]",
                                                "warning: Skipped 1 item: Busy"));
    EXPECT_EQ(bench.log.messages().front(), "installers starting: 2 paths, 3 bytes");
    EXPECT_EQ(bench.spaceReads, 1);
}

TEST(InstallersRun, OneThatFailsKeepsItsToastButIsGoneFromTheList)
{
    RunBench bench;
    bench.disk->put("/h/a.dmg", 1000);
    bench.disk->fail("/h/a.dmg", "Busy");
    std::vector<std::string> list = {"/h/a.dmg", "/h/b.pkg"};
    settled(runInstallers(bench.tools(), {installer("/h/a.dmg", 1)},
                          [&](const std::vector<std::string>& paths) {
                              for (const std::string& path : paths) {
                                  std::erase(list, path);
                              }
                          }));
    EXPECT_THAT(list, ElementsAre("/h/b.pkg"));
    EXPECT_TRUE(bench.disk->exists("/h/a.dmg"));
    EXPECT_THAT(bench.toastTexts(), ElementsAre("warning: Skipped 1 item: Busy"));
}

TEST(InstallersRun, WithNothingSelectedNoRowIsDropped)
{
    RunBench bench;
    bool dropped = false;
    settled(runInstallers(bench.tools(), {}, [&dropped](const auto&) { dropped = true; }));
    EXPECT_FALSE(dropped);
}

TEST(InstallersRun, AnExcludedInstallerStaysOnDiskThoughItsRowIsGone)
{
    RunBench bench;
    bench.disk->put("/h/a.dmg", 1000);
    bench.whitelist = {"/h"};
    std::vector<std::string> dropped;
    settled(removeInstaller(bench.tools(), installer("/h/a.dmg", 1000),
                            [&](const std::vector<std::string>& paths) { dropped = paths; }));
    EXPECT_EQ(dropped.size(), 1u);
    EXPECT_THAT(bench.disk->changes(), IsEmpty());
    EXPECT_TRUE(bench.disk->exists("/h/a.dmg"));
}

TEST(InstallersRun, OneInstallerHasALabelAndATitleOfItsOwn)
{
    RunBench bench;
    bench.disk->put("/h/a.dmg", 1000);
    QString title;
    QObject::connect(&bench.state, &RunState::bulkChanged, &bench.toasts,
                     [&] { title = bench.state.bulk() ? bench.state.bulk()->title : title; });
    settled(removeInstaller(bench.tools(), installer("/h/a.dmg", 1000), {}));
    EXPECT_EQ(title, "Removing installer");
    EXPECT_EQ(bench.log.messages().front(), "installer starting: 1 paths, 1000 bytes");
}

TEST(PathsRun, TakesAnyPathsUnderALabelOfItsOwn)
{
    RunBench bench;
    bench.disk->put("/h/a", 1000);
    settled(runPaths(bench.tools(), {"/h/a"}));
    EXPECT_EQ(bench.log.messages().front(), "trash starting: 1 paths, 0 bytes");
}

TEST(Unawaited, ARunMayGoOnByItselfWithItsReportDropped)
{
    RunBench bench;
    bench.disk->put("/h/a", 1000);
    unawaited(runPaths(bench.tools(), {"/h/a"}));
    test::pumpUntil([&] { return !bench.state.bulk(); });
    EXPECT_FALSE(bench.disk->exists("/h/a"));
}

} // namespace
} // namespace zolva
