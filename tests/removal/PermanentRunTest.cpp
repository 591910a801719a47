#include "removal/runs/BulkRun.h"

#include "removal/BulkBench.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zolva {
namespace {

using test::run;
using test::RunBench;
using test::whenDone;
using ::testing::ElementsAre;

TEST(PermanentRun, WithKeepInTrashOffWhatLandedIsDeletedAfterAllMoves)
{
    RunBench bench;
    bench.keepInTrash = false;
    bench.disk->put("/h/a", 3000);
    bench.disk->put("/h/b", 4000);
    const RunResult result = run(bench, {"/h/a", "/h/b"});
    EXPECT_THAT(bench.disk->changes(),
                ElementsAre("trash /h/a", "trash /h/b", "purge /trash/a", "purge /trash/b"));
    EXPECT_EQ(result.purged, 2);
    EXPECT_THAT(bench.toastTexts(), ElementsAre("success: Deleted 7 KB permanently"));
    EXPECT_EQ(bench.log.messages().back(), "clean finished: 2 moved, 2 purged, 0 problems");
}

TEST(PermanentRun, WithKeepInTrashOnNothingIsEverDeleted)
{
    RunBench bench;
    bench.disk->put("/h/a", 3000);
    run(bench, {"/h/a"});
    EXPECT_TRUE(bench.disk->exists("/trash/a"));
    EXPECT_THAT(bench.disk->changes(), ElementsAre("trash /h/a"));
}

TEST(PermanentRun, AnItemWithoutALandingPlaceStaysInTheTrashAndIsTold)
{
    RunBench bench;
    bench.keepInTrash = false;
    bench.disk->put("/h/a", 3000);
    bench.disk->put("/h/b", 4000);
    bench.disk->tellNoLanding("/h/b");
    const RunResult result = run(bench, {"/h/a", "/h/b"});
    EXPECT_EQ(result.purged, 1);
    EXPECT_THAT(bench.toastTexts(), ElementsAre("success: Cleaned 7 KB, 1 item left in the Trash"));
}

TEST(PermanentRun, AStoppedPermanentRunDeletesWhatItHasMovedAndNothingElse)
{
    RunBench bench;
    bench.keepInTrash = false;
    bench.disk->put("/h/a", 3000);
    bench.disk->put("/h/b", 4000);
    bench.disk->putInTrash("another's", 1);
    whenDone(bench, 1, [&] { bench.state.requestCancel(); });
    run(bench, {"/h/a", "/h/b"});
    EXPECT_THAT(bench.disk->changes(), ElementsAre("trash /h/a", "purge /trash/a"));
    EXPECT_TRUE(bench.disk->exists("/h/b"));
    EXPECT_TRUE(bench.disk->exists("/trash/another's"));
}

TEST(PermanentRun, NothingStopsThePermanentPhaseAndTheWishEndsWithTheRun)
{
    RunBench bench;
    bench.keepInTrash = false;
    bench.disk->put("/h/a", 1);
    std::vector<BulkProgress> phases;
    QObject::connect(&bench.state, &RunState::bulkChanged, &bench.state, [&] {
        const auto& bulk = bench.state.bulk();
        if (bulk && bulk->title == "Emptying the Trash" && !bench.state.cancelRequested()) {
            phases.push_back(*bulk);
            bench.state.requestCancel();
            phases.push_back(*bench.state.bulk());
        }
    });
    const RunResult result = run(bench, {"/h/a"});
    ASSERT_EQ(phases.size(), 2u);
    EXPECT_EQ(phases[0], (BulkProgress{"Emptying the Trash", 1, 0, ""}));
    EXPECT_EQ(phases[1].title, QStringLiteral("Stopping…"));
    EXPECT_EQ(result.purged, 1);
    EXPECT_FALSE(result.stopped);
    EXPECT_FALSE(bench.state.cancelRequested());
}

TEST(PermanentRun, AnItemThatCannotBeDeletedIsNoNewItemWhenItIsBack)
{
    RunBench bench;
    bench.keepInTrash = false;
    bench.disk->put("/h/a", 1000);
    bench.disk->failPurge("a", "a/b: Permission denied");
    QObject::connect(&bench.state, &RunState::bulkChanged, &bench.trash, [&] {
        const auto& bulk = bench.state.bulk();
        if (bulk && bulk->title == "Emptying the Trash") {
            // A deletion that outlasts the quiet period, with the item out of sight until its end.
            bench.clock.advance(std::chrono::seconds(13));
            if (bulk->done == 0) {
                bench.disk->take("/trash/a");
            } else {
                bench.disk->putInTrash("a", 1000);
            }
            bench.trash.trashFolderChanged();
        }
    });
    run(bench, {"/h/a"});
    EXPECT_THAT(bench.toastTexts(),
                ElementsAre("success: Cleaned 1 KB, 1 item left in the Trash",
                            "warning: Left in the Trash: a/b: Permission denied"));
    EXPECT_FALSE(bench.trash.didJustTrash());
    bench.settleMeasure();
}

TEST(PermanentRun, NorIsItIfTheWatchTellsOnlyAfterTheRun)
{
    RunBench bench;
    bench.keepInTrash = false;
    bench.disk->put("/h/a", 1000);
    bench.disk->failPurge("a", "a/b: Permission denied");
    QObject::connect(&bench.state, &RunState::bulkChanged, &bench.trash, [&] {
        const auto& bulk = bench.state.bulk();
        if (bulk && bulk->title == "Emptying the Trash" && bulk->done == 0) {
            bench.clock.advance(std::chrono::seconds(13));
            bench.disk->take("/trash/a");
            bench.trash.trashFolderChanged();
        } else if (bulk && bulk->title == "Emptying the Trash") {
            bench.disk->putInTrash("a", 1000);
        }
    });
    run(bench, {"/h/a"});
    bench.trash.trashFolderChanged();
    EXPECT_EQ(bench.trash.trashCount(), 1);
    EXPECT_EQ(bench.toastTexts().size(), 2u);
    bench.settleMeasure();
}

TEST(PermanentRun, TheSettingAtTheEndOfTheMovesDecidesTheDeletion)
{
    RunBench bench;
    bench.disk->put("/h/a", 1000);
    whenDone(bench, 0, [&] { bench.keepInTrash = false; });
    const RunResult result = run(bench, {"/h/a"});
    EXPECT_EQ(result.purged, 1);
}

TEST(PermanentRun, TheSettingAtTheSummaryDecidesTheWords)
{
    RunBench bench;
    bench.keepInTrash = false;
    bench.disk->put("/h/a", 1000);
    QObject::connect(&bench.state, &RunState::bulkChanged, &bench.state, [&] {
        if (!bench.state.bulk()) {
            bench.keepInTrash = true;
        }
    });
    const RunResult result = run(bench, {"/h/a"});
    EXPECT_EQ(result.purged, 1);
    EXPECT_THAT(bench.toastTexts(), ElementsAre("success: Moved 1 KB to the Trash [Open Trash]"));
}

} // namespace
} // namespace zolva
