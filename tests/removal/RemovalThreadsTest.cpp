#include "removal/UninstallBench.h"
#include "removal/runs/EmptyTrashRun.h"
#include "removal/runs/ListRuns.h"

#include "support/qt/BusyReads.h"

#include <gtest/gtest.h>

/// Removals while slow scans take every thread that is there for them.
namespace zolva {
namespace {

using test::BusyReads;
using test::RunBench;
using test::settled;
using test::UninstallBench;

TEST(RemovalThreads, ARunMovesAndDeletesWithoutWaitingForScans)
{
    RunBench bench;
    bench.keepInTrash = false;
    bench.disk->put("/h/a", 1000);
    {
        const BusyReads scans;
        EXPECT_EQ(settled(runPaths(bench.tools(), {"/h/a"})).result.purged, 1);
    }
    bench.settleMeasure();
}

TEST(RemovalThreads, AnEmptyingWaitsForNoScan)
{
    RunBench bench;
    bench.disk->putInTrash("a", 1000);
    {
        const BusyReads scans;
        EXPECT_EQ(settled(emptyTrash(bench.tools())).emptied, 1);
    }
    bench.settleMeasure();
}

TEST(RemovalThreads, AnUninstallWaitsForNoScanAndNeitherDoesItsSecondPass)
{
    UninstallBench b;
    b.bench.disk->fail("/Applications/Two.app", "Permission denied");
    b.bench.disk->allowAdmin("/Applications/Two.app");
    b.check({"One", "Two"});
    {
        const BusyReads scans;
        EXPECT_EQ(b.uninstall().uninstalled, 1);
        EXPECT_EQ(b.finish(retryWithAdmin(b.tools(), {test::app("Two")}, {})).uninstalled, 1);
    }
    b.bench.settleMeasure();
}

} // namespace
} // namespace zolva
