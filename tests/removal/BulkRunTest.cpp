#include "removal/runs/BulkRun.h"

#include "diagnostics/RunJournal.h"
#include "removal/BulkBench.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zolva {
namespace {

using test::run;
using test::RunBench;
using test::settled;
using test::whenDone;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(BulkRun, MovesEveryPathInOrderAndReportsOnce)
{
    RunBench bench;
    bench.disk->put("/h/a", 1'000'000);
    bench.disk->put("/h/b", 500'000);
    const RunResult result = run(bench, {"/h/b", "/h/a"}, 77);
    EXPECT_THAT(bench.disk->changes(), ElementsAre("trash /h/b", "trash /h/a"));
    EXPECT_EQ(result.freed, 1'500'000);
    EXPECT_FALSE(result.stopped);
    EXPECT_THAT(bench.toastTexts(), ElementsAre("success: Moved 1.5 MB to the Trash [Open Trash]"));
    EXPECT_THAT(bench.log.messages(),
                ElementsAre("clean starting: 2 paths, 77 bytes", "trashed /h/b (500000 bytes)",
                            "trashed /h/a (1000000 bytes)",
                            "clean finished: 2 moved, 0 purged, 0 problems"));
    bench.toasts.runAction(bench.toasts.toasts().front().id);
    EXPECT_EQ(bench.trashOpened, 1);
}

TEST(BulkRun, AllPathsExcludedOpensAndClosesAtOnceWithoutAToast)
{
    RunBench bench;
    bench.whitelist = {"/h"};
    bench.disk->put("/h/a", 5);
    std::vector<std::int64_t> totals;
    QObject::connect(&bench.state, &RunState::bulkChanged, &bench.state, [&] {
        totals.push_back(bench.state.bulk() ? bench.state.bulk()->total : -1);
    });
    const RunResult result = run(bench, {"/h/a"}, 5);
    EXPECT_THAT(totals, ElementsAre(0, -1));
    EXPECT_TRUE(result.items.empty());
    EXPECT_FALSE(result.stopped);
    EXPECT_THAT(bench.toastTexts(), IsEmpty());
    EXPECT_THAT(bench.disk->changes(), IsEmpty());
    EXPECT_THAT(bench.log.messages(), ElementsAre("refused /h/a: excluded in Settings",
                                                  "clean starting: 0 paths, 5 bytes",
                                                  "clean finished: 0 moved, 0 purged, 0 problems"));
}

TEST(BulkRun, ExcludedPathsLeaveTheRunBeforeItStartsAndTheOthersGo)
{
    RunBench bench;
    bench.whitelist = {"/h/b"};
    for (const char* path : {"/h/a", "/h/b", "/h/b/c", "/h/bc"}) {
        bench.disk->put(path, 1);
    }
    const RunResult result = run(bench, {"/h/b", "/h/a", "/h/b/c", "/h/bc"});
    EXPECT_THAT(bench.disk->changes(), ElementsAre("trash /h/a", "trash /h/bc"));
    EXPECT_TRUE(bench.disk->exists("/h/b") && bench.disk->exists("/h/b/c"));
    EXPECT_EQ(result.items.size(), 2u);
}

TEST(BulkRun, AnExclusionMadeDuringTheRunDoesNotChangeThatRun)
{
    RunBench bench;
    bench.disk->put("/h/a", 1);
    bench.disk->put("/h/b", 1);
    whenDone(bench, 1, [&] { bench.whitelist = {"/h/b"}; });
    run(bench, {"/h/a", "/h/b"});
    EXPECT_THAT(bench.disk->changes(), ElementsAre("trash /h/a", "trash /h/b"));
}

TEST(BulkRun, RemovingAnExclusionDuringTheRunDoesNotChangeThatRun)
{
    RunBench bench;
    bench.whitelist = {"/h/b"};
    bench.disk->put("/h/a", 1);
    bench.disk->put("/h/b", 1);
    bench.disk->put("/h/c", 1);
    whenDone(bench, 1, [&] { bench.whitelist.clear(); });
    run(bench, {"/h/a", "/h/b", "/h/c"});
    EXPECT_TRUE(bench.disk->exists("/h/b"));
}

TEST(BulkRun, ASelectionThatVanishedSinceTheScanIsToldAsGoneAndAsNoFailure)
{
    RunBench bench;
    const RunResult result = run(bench, {"/h/a", "/h/b"});
    EXPECT_EQ(result.items.size(), 2u);
    EXPECT_FALSE(hasTrouble(result));
    EXPECT_THAT(bench.toastTexts(),
                ElementsAre("info: Nothing to remove, those items were already gone"));
}

TEST(BulkRun, APathThatVanishesOrAppearsDuringTheRunIsTakenAsItStandsInItsTurn)
{
    RunBench bench;
    bench.disk->put("/h/a", 1000);
    bench.disk->put("/h/b", 1000);
    whenDone(bench, 1, [&] {
        bench.disk->take("/h/b");
        bench.disk->put("/h/c", 3000);
    });
    const RunResult result = run(bench, {"/h/a", "/h/b", "/h/c"});
    EXPECT_TRUE(std::holds_alternative<TrashAlreadyAbsent>(result.items[1].attempt.outcome));
    EXPECT_EQ(result.freed, 4000);
    EXPECT_EQ(bench.toastTexts().size(), 1u);
}

TEST(BulkRun, APathThatVanishesInTheBackgroundJustBeforeItsMoveIsNoFailure)
{
    RunBench bench;
    bench.disk->put("/h/a", 1000);
    bench.disk->beforeMove(
        [disk = bench.disk.get()](const std::string& path) { disk->take(path); });
    const RunResult result = run(bench, {"/h/a"});
    EXPECT_FALSE(hasTrouble(result));
    EXPECT_EQ(result.freed, 0);
}

TEST(BulkRun, StopBeforeTheFirstPathMovesNothingAndNoSummaryFollows)
{
    RunBench bench;
    bench.disk->put("/h/a", 1);
    bench.disk->put("/h/b", 1);
    whenDone(bench, 0, [&] { bench.state.requestCancel(); });
    const RunResult result = run(bench, {"/h/a", "/h/b"});
    EXPECT_TRUE(result.stopped);
    EXPECT_THAT(bench.disk->changes(), IsEmpty());
    EXPECT_THAT(bench.toastTexts(),
                ElementsAre("info: Stopped. 0 items already removed, 2 left alone."));
    EXPECT_FALSE(bench.state.cancelRequested());
}

TEST(BulkRun, StopWithOneMovedTellsBothAndLeavesTheRest)
{
    RunBench bench;
    for (const char* path : {"/h/a", "/h/b", "/h/c"}) {
        bench.disk->put(path, 2000);
    }
    whenDone(bench, 1, [&] { bench.state.requestCancel(); });
    run(bench, {"/h/a", "/h/b", "/h/c"}, 6000);
    EXPECT_THAT(bench.disk->changes(), ElementsAre("trash /h/a"));
    EXPECT_THAT(bench.toastTexts(),
                ElementsAre("info: Stopped. 1 item already removed, 2 left alone.",
                            "success: Moved 2 KB to the Trash [Open Trash]"));
    EXPECT_THAT(bench.log.messages(),
                ElementsAre("clean starting: 3 paths, 6000 bytes", "trashed /h/a (2000 bytes)",
                            "clean finished: 1 moved, 0 purged, 0 problems",
                            "clean stopped by the user: 1 removed, 2 left alone"));
    EXPECT_FALSE(bench.state.bulk());
}

TEST(BulkRun, TheProgressAndTheJournalAreGoneBeforeTheStopIsTold)
{
    RunBench bench;
    bench.disk->put("/h/a", 1);
    whenDone(bench, 0, [&] { bench.state.requestCancel(); });
    bool told = false;
    QObject::connect(&bench.toasts, &ToastList::rowsInserted, &bench.toasts, [&] {
        told = true;
        EXPECT_FALSE(bench.state.bulk());
        EXPECT_FALSE(journalRead(bench.journalFolder()));
    });
    run(bench, {"/h/a"});
    EXPECT_TRUE(told);
}

TEST(BulkRun, AStopDuringTheLastPathDoesNotCount)
{
    RunBench bench;
    bench.disk->put("/h/a", 1);
    bench.disk->put("/h/b", 1);
    whenDone(bench, 1, [&] {
        // The wish comes once the last path is in hand.
        QObject::connect(&bench.state, &RunState::bulkChanged, &bench.toasts, [&] {
            if (bench.state.bulk() && bench.state.bulk()->current == "/h/b" &&
                !bench.state.cancelRequested()) {
                bench.state.requestCancel();
            }
        });
    });
    const RunResult result = run(bench, {"/h/a", "/h/b"});
    EXPECT_FALSE(result.stopped);
    EXPECT_EQ(result.items.size(), 2u);
    EXPECT_FALSE(bench.state.cancelRequested());
    EXPECT_EQ(bench.toastTexts().size(), 1u);
}

TEST(BulkRun, AStopAfterTheRunDoesNothing)
{
    RunBench bench;
    bench.disk->put("/h/a", 1);
    run(bench, {"/h/a"});
    bench.state.requestCancel();
    EXPECT_FALSE(bench.state.cancelRequested());
    EXPECT_FALSE(bench.state.bulk());
}

TEST(BulkRun, AStopChangesTheTitleAndThePathInHandIsFinished)
{
    RunBench bench;
    bench.disk->put("/h/a", 1);
    bench.disk->put("/h/b", 1);
    std::vector<std::string> titles;
    QObject::connect(&bench.state, &RunState::bulkChanged, &bench.state, [&] {
        const auto& bulk = bench.state.bulk();
        titles.push_back(bulk ? bulk->title.toStdString() : "-");
        if (bulk && bulk->current == "/h/a" && !bench.state.cancelRequested()) {
            bench.state.requestCancel();
        }
    });
    const RunResult result = run(bench, {"/h/a", "/h/b"});
    EXPECT_EQ(result.items.size(), 1u);
    EXPECT_TRUE(result.stopped);
    EXPECT_THAT(titles, ::testing::Contains("Stopping…"));
    EXPECT_EQ(titles.front(), "Removing caches");
    EXPECT_EQ(titles.back(), "-");
}

TEST(BulkRun, NoFailureStopsTheRunAndTheProblemsAreCounted)
{
    RunBench bench;
    bench.keepInTrash = false;
    for (const char* path : {"/h/a", "/h/b", "/h/c", "/h/d"}) {
        bench.disk->put(path, 1000);
    }
    bench.disk->refuse("/h/a", "protected container");
    bench.disk->fail("/h/b", "No space left");
    bench.disk->failPurge("c", "Busy");
    const RunResult result = run(bench, {"/h/a", "/h/b", "/h/c", "/h/d"});
    EXPECT_TRUE(hasTrouble(result));
    EXPECT_EQ(bench.log.messages().back(), "clean finished: 2 moved, 1 purged, 3 problems");
    EXPECT_THAT(bench.toastTexts(),
                ElementsAre("success: Cleaned 2 KB, 1 item left in the Trash",
                            "warning: Skipped 2 items: 2 paths couldn't be removed",
                            "warning: Left in the Trash: Busy"));
    EXPECT_TRUE(bench.disk->exists("/h/a") && bench.disk->exists("/h/b"));
}

TEST(BulkRun, ProgressIsToldAtEveryPath)
{
    RunBench bench;
    bench.disk->put("/h/a", 1);
    std::vector<BulkProgress> seen;
    QObject::connect(&bench.state, &RunState::bulkChanged, &bench.state, [&] {
        if (bench.state.bulk()) {
            seen.push_back(*bench.state.bulk());
        }
    });
    run(bench, {"/h/a", "/h/b"});
    const QString title = "Removing caches";
    EXPECT_THAT(seen,
                ElementsAre(BulkProgress{title, 2, 0, ""}, BulkProgress{title, 2, 0, "/h/a"},
                            BulkProgress{title, 2, 1, "/h/a"}, BulkProgress{title, 2, 1, "/h/b"},
                            BulkProgress{title, 2, 2, "/h/b"}));
}

TEST(BulkRun, TheJournalAndTheLockAreThereExactlyDuringTheRun)
{
    RunBench bench;
    bench.disk->put("/h/a", 1);
    std::optional<std::string> journal;
    RunLock::State lock = RunLock::State::Unavailable;
    whenDone(bench, 0, [&] {
        // The mark of the run is put up before its journal is.
        QMetaObject::invokeMethod(
            &bench.state,
            [&] {
                journal = journalRead(bench.journalFolder());
                lock = RunLock(bench.journalFolder()).state();
            },
            Qt::QueuedConnection);
    });
    bench.disk->beforeMove([&](const std::string&) {
        EXPECT_TRUE(journalRead(bench.journalFolder())) << "no journal at the first move";
    });
    run(bench, {"/h/a"});
    ASSERT_TRUE(journal);
    EXPECT_THAT(*journal, ::testing::HasSubstr("clean\t1 paths"));
    EXPECT_EQ(lock, RunLock::State::HeldByOther);
    EXPECT_FALSE(journalRead(bench.journalFolder()));
    EXPECT_EQ(RunLock(bench.journalFolder()).state(), RunLock::State::Held);
}

TEST(BulkRun, ARunThatLosesItsOwnerTouchesNothingMoreAndLeavesItsJournal)
{
    RunBench bench;
    bench.disk->put("/h/a", 1);
    bench.disk->put("/h/b", 1);
    auto state = std::make_unique<RunState>();
    RunTools tools = bench.tools();
    tools.state = state.get();
    HeldRunLock lock;
    ASSERT_EQ(enterRun(tools, lock), RunStart::Started);
    BulkOrder order{runname::clean, {"/h/a", "/h/b"}, 0};
    auto task = runBulk(tools, std::move(order), std::move(lock));
    state.reset();
    const RunResult result = settled(std::move(task));
    EXPECT_THAT(bench.disk->changes(), ElementsAre("trash /h/a"));
    EXPECT_THAT(bench.toastTexts(), IsEmpty());
    EXPECT_TRUE(journalRead(bench.journalFolder()));
    EXPECT_FALSE(bench.trash.didJustTrash());
}

TEST(BulkRun, ItsOwnMovesNeverRaiseTheToastOfNewItemsAlsoWhileItGoesOn)
{
    RunBench bench;
    bench.trash.refreshTrashMeter();
    bench.disk->put("/h/a", 1000);
    bench.disk->put("/h/b", 1000);
    EXPECT_FALSE(bench.trash.didJustTrash());
    whenDone(bench, 1, [&] {
        // Longer than any quiet period since the last run.
        bench.clock.advance(std::chrono::minutes(5));
        bench.trash.trashFolderChanged();
        EXPECT_EQ(bench.trash.trashCount(), 1);
    });
    run(bench, {"/h/a", "/h/b"});
    bench.trash.trashFolderChanged();
    EXPECT_EQ(bench.trash.trashCount(), 2);
    EXPECT_THAT(bench.toastTexts(), ElementsAre("success: Moved 2 KB to the Trash [Open Trash]"));
    bench.clock.advance(std::chrono::seconds(11));
    EXPECT_TRUE(bench.trash.didJustTrash());
    bench.clock.advance(std::chrono::seconds(1));
    EXPECT_FALSE(bench.trash.didJustTrash());
    bench.settleMeasure();
}

TEST(BulkRun, ARunThatMovedNothingBeginsNoQuietPeriod)
{
    RunBench bench;
    run(bench, {"/h/a"});
    EXPECT_FALSE(bench.trash.didJustTrash());
}

} // namespace
} // namespace zolva
