#include "removal/runs/EmptyTrashRun.h"

#include "diagnostics/RunJournal.h"
#include "removal/RunBench.h"
#include "removal/runs/ListRuns.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zolva {
namespace {

using test::RunBench;
using test::settled;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

TEST(EmptyTrash, DeletesEveryEntryAndReadsTheMetersAnew)
{
    RunBench bench;
    bench.disk->putInTrash("a", 1000);
    bench.disk->putInTrash(".hidden", 500);
    bench.trash.refreshTrashMeter();
    bench.settleMeasure();
    ASSERT_EQ(bench.trash.trashBytes(), 1500);
    const EmptyReport report = settled(emptyTrash(bench.tools()));
    bench.settleMeasure();
    EXPECT_EQ(report.emptied, 2);
    EXPECT_THAT(bench.disk->changes(), ElementsAre("delete .hidden", "delete a"));
    EXPECT_THAT(bench.toastTexts(), ElementsAre("success: Trash emptied."));
    EXPECT_THAT(bench.log.messages(),
                ElementsAre("empty trash starting: 2 paths, 1500 bytes",
                            "purged from Trash /trash/.hidden", "purged from Trash /trash/a",
                            "empty trash finished: 2 moved, 2 purged, 0 problems"));
    EXPECT_EQ(bench.trash.trashCount(), 0);
    EXPECT_EQ(bench.trash.trashBytes(), 0);
    EXPECT_EQ(bench.spaceReads, 1);
    EXPECT_FALSE(bench.state.bulk());
    EXPECT_FALSE(journalRead(bench.journalFolder()));
}

TEST(EmptyTrash, OneThatCannotBeDeletedIsCountedAndTheMeterStillShowsIt)
{
    RunBench bench;
    for (const char* name : {"a", "b", "c", "d"}) {
        bench.disk->putInTrash(name, 1000);
    }
    bench.disk->failDelete("b", "Operation not permitted");
    const EmptyReport report = settled(emptyTrash(bench.tools()));
    bench.settleMeasure();
    EXPECT_EQ(report.emptied, 3);
    EXPECT_THAT(report.failures, ElementsAre("Operation not permitted"));
    EXPECT_THAT(bench.toastTexts(),
                ElementsAre("warning: Emptied 3 items, 1 could not be removed."));
    EXPECT_EQ(bench.log.messages().back(), "empty trash finished: 3 moved, 3 purged, 1 problems");
    EXPECT_EQ(bench.trash.trashCount(), 1);
    EXPECT_EQ(bench.trash.trashBytes(), 1000);
}

TEST(EmptyTrash, WhatOthersTookMeanwhileIsNeitherCountedNorAFailure)
{
    RunBench bench;
    bench.disk->putInTrash("a", 1000);
    bench.disk->putInTrash("b", 1000);
    auto task = emptyTrash(bench.tools());
    bench.disk->take("/trash/b");
    const EmptyReport report = settled(std::move(task));
    bench.settleMeasure();
    EXPECT_EQ(report.emptied, 1);
    EXPECT_THAT(report.failures, IsEmpty());
    EXPECT_THAT(bench.toastTexts(), ElementsAre("success: Trash emptied."));
    EXPECT_THAT(bench.log.messages(),
                ElementsAre("empty trash starting: 2 paths, 0 bytes", "purged from Trash /trash/a",
                            "already gone /trash/b",
                            "empty trash finished: 1 moved, 1 purged, 0 problems"));
}

TEST(EmptyTrash, AnEmptyTrashIsToldAndNothingRuns)
{
    RunBench bench;
    settled(emptyTrash(bench.tools()));
    EXPECT_THAT(bench.toastTexts(), ElementsAre("info: The Trash is already empty."));
    EXPECT_THAT(bench.log.messages(), IsEmpty());
    EXPECT_THAT(bench.disk->changes(), IsEmpty());
}

TEST(EmptyTrash, AHiddenFileOfTheFileManagerAloneIsNoEmptyTrash)
{
    RunBench bench;
    bench.disk->putInTrash(".DS_Store", 10);
    settled(emptyTrash(bench.tools()));
    EXPECT_THAT(bench.toastTexts(), ElementsAre("success: Trash emptied."));
}

TEST(EmptyTrash, AnUnreadableTrashIsToldAndNothingElseHappens)
{
    RunBench bench;
    bench.disk->putInTrash("a", 10);
    bench.disk->setUnreadable(true);
    const EmptyReport report = settled(emptyTrash(bench.tools()));
    EXPECT_TRUE(report.unreadable);
    EXPECT_THAT(bench.toastTexts(),
                ElementsAre("warning: Zolva can't read the Trash. Grant Full Disk Access in "
                            "System Settings."));
    EXPECT_THAT(bench.log.messages(), ElementsAre("blocked by privacy settings: Trash"));
    EXPECT_THAT(bench.disk->changes(), IsEmpty());
}

TEST(EmptyTrash, ShowsItsProgressWithTheNamesAndHoldsTheJournal)
{
    RunBench bench;
    bench.disk->putInTrash("a", 10);
    bench.disk->putInTrash("b", 10);
    std::vector<BulkProgress> seen;
    QObject::connect(&bench.state, &RunState::bulkChanged, &bench.toasts, [&] {
        if (bench.state.bulk()) {
            seen.push_back(*bench.state.bulk());
        }
    });
    auto task = emptyTrash(bench.tools());
    const auto journal = journalRead(bench.journalFolder());
    settled(std::move(task));
    ASSERT_TRUE(journal);
    EXPECT_THAT(*journal, ::testing::HasSubstr("empty trash\t2 paths"));
    const QString title = "Emptying the Trash";
    EXPECT_THAT(seen, ElementsAre(BulkProgress{title, 2, 0, ""}, BulkProgress{title, 2, 0, "a"},
                                  BulkProgress{title, 2, 1, "a"}, BulkProgress{title, 2, 1, "b"},
                                  BulkProgress{title, 2, 2, "b"}));
}

TEST(EmptyTrash, ShowsAnyNameOnOneLineAndInItsOwnDirection)
{
    RunBench bench;
    bench.disk->putInTrash("a\nb\u202Ec", 10);
    QString current;
    QObject::connect(&bench.state, &RunState::bulkChanged, &bench.toasts, [&] {
        if (bench.state.bulk()) {
            current = bench.state.bulk()->current;
        }
    });
    settled(emptyTrash(bench.tools()));
    EXPECT_EQ(current.toStdString(), "a\uFFFDb\uFFFDc");
    bench.settleMeasure();
}

TEST(EmptyTrash, StopChangesTheTitleAndStopsNothingAndTheNextRunEndsBeforeItsFirstPath)
{
    RunBench bench;
    bench.disk->putInTrash("a", 10);
    bench.disk->putInTrash("b", 10);
    bench.disk->put("/h/x", 10);
    auto task = emptyTrash(bench.tools());
    bench.state.requestCancel();
    EXPECT_EQ(bench.state.bulk()->title, QStringLiteral("Stopping…"));
    EXPECT_EQ(settled(std::move(task)).emptied, 2);
    EXPECT_TRUE(bench.state.cancelRequested());

    settled(runPaths(bench.tools(), {"/h/x"}));
    EXPECT_TRUE(bench.disk->exists("/h/x"));
    EXPECT_EQ(bench.toastTexts().back(), "info: Stopped. 0 items already removed, 1 left alone.");
    EXPECT_FALSE(bench.state.cancelRequested());

    settled(runPaths(bench.tools(), {"/h/x"}));
    EXPECT_FALSE(bench.disk->exists("/h/x"));
    bench.settleMeasure();
}

TEST(EmptyTrash, TheWishToStopSurvivesASecondEmptyingToo)
{
    RunBench bench;
    bench.disk->putInTrash("a", 10);
    auto task = emptyTrash(bench.tools());
    bench.state.requestCancel();
    settled(std::move(task));
    bench.disk->putInTrash("b", 10);
    EXPECT_EQ(settled(emptyTrash(bench.tools())).emptied, 1);
    EXPECT_TRUE(bench.state.cancelRequested());
    bench.settleMeasure();
}

TEST(EmptyTrash, AnEntryThatCannotBeDeletedIsNoNewItemWhenItIsBack)
{
    RunBench bench;
    bench.disk->putInTrash("a", 10);
    bench.disk->putInTrash("b", 10);
    bench.disk->failDelete("b", "Operation not permitted");
    bench.trash.refreshTrashMeter();
    QObject::connect(&bench.state, &RunState::bulkChanged, &bench.trash, [&] {
        if (bench.state.bulk() && bench.state.bulk()->done == 1 &&
            bench.state.bulk()->current == "b") {
            // As the watch sees it: out of sight, and back where it lay.
            bench.disk->take("/trash/b");
            bench.trash.trashFolderChanged();
            bench.disk->putInTrash("b", 10);
            bench.trash.trashFolderChanged();
        }
    });
    settled(emptyTrash(bench.tools()));
    EXPECT_THAT(bench.toastTexts(),
                ElementsAre("warning: Emptied 1 item, 1 could not be removed."));
    EXPECT_FALSE(bench.trash.didJustTrash());
    bench.settleMeasure();
}

} // namespace
} // namespace zolva
