#include "removal/TrashMeter.h"

#include "files/FolderTally.h"
#include "removal/RunBench.h"
#include "removal/runs/ListRuns.h"
#include "removal/runs/LiveRemovalDisk.h"

#include "support/TrashHome.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <atomic>
#include <filesystem>
#include <thread>

namespace zolva {
namespace {

using namespace std::chrono_literals;
using test::RunBench;
using test::settled;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

const std::string newItems =
    "info: New items in the Trash, empty it to reclaim the space. [Empty Trash]";

TEST(TrashMeter, TheCountIsThereAtOnceAndTheSizeFollows)
{
    RunBench bench;
    bench.disk->putInTrash("a", 1000);
    bench.disk->putInTrash("b", 500);
    bench.trash.refreshTrashMeter();
    EXPECT_EQ(bench.trash.trashCount(), 2);
    EXPECT_EQ(bench.trash.trashBytes(), 0);
    bench.settleMeasure();
    EXPECT_EQ(bench.trash.trashBytes(), 1500);
}

TEST(TrashMeter, AFolderEmptyApartFromTheFileManagersHiddenFileCountsOne)
{
    RunBench bench;
    bench.disk->putInTrash(".DS_Store", 10);
    bench.trash.refreshTrashMeter();
    EXPECT_EQ(bench.trash.trashCount(), 1);
    bench.settleMeasure();
}

TEST(TrashMeter, AnUnreadableTrashHoldsNothingAndNoOlderMeasureSaysOtherwise)
{
    RunBench bench;
    bench.disk->putInTrash("a", 1000);
    bench.trash.refreshTrashMeter();
    bench.settleMeasure();
    bench.trash.refreshTrashMeter(); // its measure is still under way
    bench.disk->setUnreadable(true);
    bench.trash.refreshTrashMeter();
    bench.settleMeasure();
    EXPECT_TRUE(bench.trash.trashUnreadable());
    EXPECT_EQ(bench.trash.trashCount(), 0);
    EXPECT_EQ(bench.trash.trashBytes(), 0);
    EXPECT_THAT(bench.toastTexts(), IsEmpty());

    bench.disk->setUnreadable(false);
    bench.trash.refreshTrashMeter();
    bench.settleMeasure();
    EXPECT_FALSE(bench.trash.trashUnreadable());
    EXPECT_EQ(bench.trash.trashBytes(), 1000);
}

TEST(TrashMeter, OfTwoReadsInARowTheTotalOfTheFirstIsDropped)
{
    RunBench bench;
    bench.disk->putInTrash("a", 1);
    std::atomic<int> begun = 0;
    bench.disk->setMeasure([&begun](const std::atomic<bool>& stop) -> std::int64_t {
        if (++begun > 1) {
            return 2222;
        }
        while (!stop) {
            std::this_thread::yield();
        }
        return 1111;
    });
    std::vector<std::int64_t> shown;
    QObject::connect(&bench.trash, &TrashMeter::trashChanged, &bench.trash,
                     [&] { shown.push_back(bench.trash.trashBytes()); });
    bench.trash.refreshTrashMeter();
    test::pumpUntil([&] { return begun == 1; });
    bench.trash.refreshTrashMeter();
    bench.settleMeasure();
    EXPECT_EQ(bench.trash.trashBytes(), 2222);
    EXPECT_THAT(shown, ElementsAre(0, 2222));
    EXPECT_EQ(bench.disk->measures(), 2);
}

TEST(TrashMeter, ManyReadsDuringAMeasureLeadToOneMoreMeasure)
{
    RunBench bench;
    std::atomic<int> begun = 0;
    bench.disk->setMeasure([&begun](const std::atomic<bool>& stop) -> std::int64_t {
        while (++begun == 1 && !stop) {
            begun = 0;
            std::this_thread::yield();
        }
        return 1;
    });
    for (int i = 0; i < 50; ++i) {
        bench.trash.refreshTrashMeter();
    }
    bench.settleMeasure();
    EXPECT_LE(bench.disk->measures(), 2);
    EXPECT_EQ(bench.trash.trashBytes(), 1);
}

TEST(TrashMeter, TheEndOfTheMeterEndsItsMeasure)
{
    RunBench bench;
    std::atomic<bool> stopped = false;
    bench.disk->setMeasure([&stopped](const std::atomic<bool>& stop) -> std::int64_t {
        while (!stop) {
            std::this_thread::yield();
        }
        stopped = true;
        return 1;
    });
    auto meter = std::make_unique<TrashMeter>(bench.clock, bench.toasts, bench.space, bench.disk);
    meter->refreshTrashMeter();
    test::pumpUntil([&] { return bench.disk->measures() == 1; });
    meter.reset();
    test::pumpUntil([&] { return stopped.load(); });
    test::pumpOnce();
}

TEST(TrashMeter, NewItemsOfOthersAreToldWithTheOfferToEmpty)
{
    RunBench bench;
    bench.trash.refreshTrashMeter();
    bench.disk->putInTrash("a", 1);
    bench.trash.trashFolderChanged();
    EXPECT_THAT(bench.toastTexts(), ElementsAre(newItems));
    EXPECT_EQ(bench.spaceReads, 1);
    int wanted = 0;
    QObject::connect(&bench.trash, &TrashMeter::emptyTrashWanted, &bench.trash,
                     [&wanted] { ++wanted; });
    bench.toasts.runAction(bench.toasts.toasts().front().id);
    EXPECT_EQ(wanted, 1);
    bench.settleMeasure();
}

TEST(TrashMeter, ATrashThatShrinksOrStaysIsNotTold)
{
    RunBench bench;
    bench.disk->putInTrash("a", 1);
    bench.disk->putInTrash("b", 1);
    bench.trash.refreshTrashMeter();
    bench.trash.trashFolderChanged();
    bench.disk->take("/trash/a");
    bench.trash.trashFolderChanged();
    EXPECT_EQ(bench.trash.trashCount(), 1);
    EXPECT_THAT(bench.toastTexts(), IsEmpty());
    bench.settleMeasure();
}

TEST(TrashMeter, ACleanRunThatKeepsInTheTrashRaisesTheCountAndNoToastOfNewItems)
{
    RunBench bench;
    bench.trash.refreshTrashMeter();
    bench.disk->put("/h/a", 1000);
    settled(runPaths(bench.tools(), {"/h/a"}));
    EXPECT_TRUE(bench.trash.didJustTrash());
    bench.trash.trashFolderChanged();
    EXPECT_EQ(bench.trash.trashCount(), 1);
    EXPECT_THAT(bench.toastTexts(), ElementsAre("success: Moved 1 KB to the Trash [Open Trash]"));
    bench.settleMeasure();
}

TEST(TrashMeter, AFileDroppedThirteenSecondsAfterARunIsTold)
{
    RunBench bench;
    bench.disk->put("/h/a", 1000);
    settled(runPaths(bench.tools(), {"/h/a"}));
    bench.trash.trashFolderChanged();
    bench.clock.advance(13s);
    bench.disk->putInTrash("dropped", 1);
    bench.trash.trashFolderChanged();
    EXPECT_THAT(bench.toastTexts(), ElementsAre(newItems));
    bench.settleMeasure();
}

TEST(TrashMeter, TheFirstOfTwoQuietPeriodsToEndEndsTheQuiet)
{
    RunBench bench;
    bench.trash.noteJustTrashed();
    bench.clock.advance(8s);
    bench.trash.noteJustTrashed();
    bench.clock.advance(4s);
    EXPECT_FALSE(bench.trash.didJustTrash());
    bench.disk->putInTrash("a", 1);
    bench.trash.trashFolderChanged();
    EXPECT_THAT(bench.toastTexts(), ElementsAre(newItems));
    bench.settleMeasure();
}

TEST(FreeSpaceMeter, ReadsAtTheStartAndEveryThirtySecondsAndTellsChangesOnly)
{
    test::ManualClock clock;
    std::int64_t available = 10;
    int reads = 0;
    FreeSpaceMeter meter(clock, [&] {
        ++reads;
        return VolumeSpace{available, 20};
    });
    int told = 0;
    QObject::connect(&meter, &FreeSpaceMeter::freeSpaceChanged, &meter, [&told] { ++told; });
    meter.start();
    EXPECT_EQ(meter.freeSpace(), 10);
    EXPECT_EQ(meter.volumeTotal(), 20);
    clock.advance(29s);
    EXPECT_EQ(reads, 1);
    clock.advance(31s);
    EXPECT_EQ(reads, 3);
    EXPECT_EQ(told, 1);
    available = 0;
    clock.advance(30s);
    EXPECT_EQ(meter.freeSpace(), 0);
    EXPECT_EQ(told, 2);
}

TEST(FreeSpaceMeter, OfARealHomeIsThatOfItsVolume)
{
    const test::TrashHome home;
    test::ManualClock clock;
    FreeSpaceMeter meter(clock);
    meter.refreshFreeSpace();
    EXPECT_GT(meter.volumeTotal(), 0);
}

/// The meter on a real Trash.
struct WatchedTrash
{
    test::TrashHome home;
    test::ManualClock clock;
    ToastList toasts{clock};
    FreeSpaceMeter space{clock};
    TrashMeter meter{clock, toasts, space, std::make_shared<LiveRemovalDisk>()};

    std::string files() const { return home.trash() + "/files"; }
    void drop(const std::string& name)
    {
        // By one rename, as file managers do.
        home.tree.file("elsewhere", 100);
        ASSERT_EQ(::rename(home.tree.path("elsewhere").c_str(), (files() + "/" + name).c_str()), 0);
    }
};

TEST(TrashWatch, AMissingTrashIsMadeForTheUserAloneAndIsEmptyAndReadable)
{
    WatchedTrash watched;
    ASSERT_FALSE(test::stands(watched.files()));
    watched.meter.startMeters();
    EXPECT_EQ(watched.meter.trashCount(), 0);
    EXPECT_FALSE(watched.meter.trashUnreadable());
    struct stat status
    {};
    ASSERT_EQ(::stat(watched.files().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777u, 0700u);
}

TEST(TrashWatch, AFolderThatCannotBeWatchedIsSilentNotRetriedAndReadOnlyOnRequest)
{
    WatchedTrash watched;
    // A file stands where the Trash would be.
    const std::string inTheWay = watched.home.tree.text("home/.local/share/Trash", "");
    watched.meter.startMeters();
    EXPECT_TRUE(watched.meter.trashUnreadable());
    EXPECT_EQ(watched.meter.trashCount(), 0);
    ASSERT_EQ(::unlink(inTheWay.c_str()), 0);
    watched.home.tree.text("home/.local/share/Trash/files/film.mov", "1");
    // A notification would be there at once, and a timer had its time.
    test::pumpOnce();
    watched.clock.advance(std::chrono::minutes(10));
    test::pumpOnce();
    EXPECT_TRUE(watched.meter.trashUnreadable());
    EXPECT_EQ(watched.meter.trashCount(), 0);
    watched.meter.refreshTrashMeter();
    EXPECT_FALSE(watched.meter.trashUnreadable());
    EXPECT_EQ(watched.meter.trashCount(), 1);
    EXPECT_EQ(watched.toasts.rowCount(), 0);
    test::pumpUntil([&] { return !watched.meter.isMeasuring(); });
}

TEST(TrashWatch, WhatOthersPutThereIsSeenMeasuredAndTold)
{
    WatchedTrash watched;
    watched.meter.startMeters();
    watched.drop("film.mov");
    test::pumpUntil([&] { return watched.meter.trashCount() == 1; });
    test::pumpUntil([&] { return !watched.meter.isMeasuring(); });
    EXPECT_EQ(watched.meter.trashBytes(), allocatedSize(watched.files() + "/film.mov"));
    EXPECT_EQ(watched.toasts.rowCount(), 1);
}

TEST(TrashWatch, ChangesInQuickSuccessionAreHandledAsOne)
{
    WatchedTrash watched;
    watched.meter.startMeters();
    watched.drop("first");
    test::pumpUntil([&] { return watched.meter.trashCount() == 1; });
    for (int i = 0; i < 20; ++i) {
        watched.drop("item " + std::to_string(i));
        test::pumpOnce();
    }
    EXPECT_EQ(watched.meter.trashCount(), 1) << "no time has passed";
    watched.clock.advance(changeSpacing);
    EXPECT_EQ(watched.meter.trashCount(), 21);
    EXPECT_EQ(watched.toasts.rowCount(), 2);
    test::pumpUntil([&] { return !watched.meter.isMeasuring(); });
}

TEST(TrashWatch, ATrashThatOthersRemoveAndMakeAnewIsStillWatched)
{
    WatchedTrash watched;
    watched.meter.startMeters();
    watched.drop("film.mov");
    const auto seen = [&](std::int64_t count) {
        watched.clock.advance(changeSpacing);
        return watched.meter.trashCount() == count;
    };
    test::pumpUntil([&] { return seen(1); });
    std::filesystem::remove_all(watched.home.trash());
    test::pumpUntil([&] { return seen(0); });
    test::pumpOnce();
    watched.home.tree.folder("home/.local/share/Trash/info");
    watched.home.tree.folder("home/.local/share/Trash/files");
    watched.drop("another.mov");
    test::pumpUntil([&] { return seen(1); });
    test::pumpUntil([&] { return !watched.meter.isMeasuring(); });
}

TEST(TrashWatch, AnEmptyingByOthersIsSeenAndNotTold)
{
    WatchedTrash watched;
    watched.meter.startMeters();
    watched.meter.noteJustTrashed();
    watched.drop("film.mov");
    test::pumpUntil([&] { return watched.meter.trashCount() == 1; });
    watched.clock.advance(20s);
    ASSERT_EQ(::unlink((watched.files() + "/film.mov").c_str()), 0);
    test::pumpUntil([&] { return watched.meter.trashCount() == 0; });
    EXPECT_EQ(watched.toasts.rowCount(), 0);
    test::pumpUntil([&] { return !watched.meter.isMeasuring(); });
}

} // namespace
} // namespace zolva
