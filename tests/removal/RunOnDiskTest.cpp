#include "async/Background.h"
#include "removal/RunBench.h"
#include "removal/runs/EmptyTrashRun.h"
#include "removal/runs/ListRuns.h"
#include "removal/runs/LiveRemovalDisk.h"

#include "files/FolderTally.h"
#include "support/DroppedCapabilities.h"
#include "support/TrashHome.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdio>

/// The runs on a real home, with a real Trash.
namespace zolva {
namespace {

using test::settled;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

struct DiskBench
{
    test::TrashHome home;
    test::RunBench bench;
    std::shared_ptr<LiveRemovalDisk> disk = std::make_shared<LiveRemovalDisk>();
    TrashMeter meter{bench.clock, bench.toasts, bench.space, disk};
    RunState state;

    RunTools tools()
    {
        RunTools tools = bench.tools();
        return {&state,      disk,           bench.clock,         bench.toasts,   meter,
                bench.space, tools.settings, tools.journalFolder, tools.openTrash};
    }
    std::string text(const std::string& relative, const std::string& content)
    {
        return home.tree.text("home/" + relative, content);
    }
    RunResult run(std::vector<std::string> paths)
    {
        return settled(runPaths(tools(), std::move(paths))).result;
    }
};

TEST(RunOnDisk, MovesWholeFoldersAndTellsWhatTheyHeld)
{
    DiskBench b;
    b.text("Caches/one/deep/a", std::string(5000, 'x'));
    b.text("Caches/two", "2");
    const std::int64_t bytes =
        folderTally(b.home.path("Caches/one")).bytes + folderTally(b.home.path("Caches/two")).bytes;
    const RunResult result = b.run({"~/Caches/one", b.home.path("Caches/two")});
    EXPECT_EQ(result.freed, bytes);
    EXPECT_THAT(test::namesIn(b.home.path("Caches")), IsEmpty());
    EXPECT_EQ(test::content(b.home.inTrash("one/deep/a")), std::string(5000, 'x'));
    EXPECT_EQ(result.items[0].attempt.landed, b.home.inTrash("one"));
}

TEST(RunOnDisk, TheTwinOfAnExcludedSelectionTouchesNothing)
{
    DiskBench b;
    b.text("Caches/one/a", "a");
    b.bench.whitelist = {"~/Caches"};
    const RunResult result = b.run({"~/Caches/one"});
    EXPECT_TRUE(result.items.empty());
    EXPECT_EQ(test::content(b.home.path("Caches/one/a")), "a");
    EXPECT_FALSE(test::stands(b.home.inTrash("one")));
}

TEST(RunOnDisk, TheTwinOfARefusedSelectionTouchesNothing)
{
    DiskBench b;
    b.bench.keepInTrash = false;
    b.text("Documents/report", "r");
    test::TempTree outside;
    const std::string file = outside.text("file", "f");
    const RunResult result = b.run({"~/Documents", "~", "/", "~/../x", "", "relative", file});
    EXPECT_EQ(result.items.size(), 7u);
    EXPECT_TRUE(std::all_of(result.items.begin(), result.items.end(), [](const RunItem& item) {
        return std::holds_alternative<TrashRefused>(item.attempt.outcome);
    }));
    EXPECT_EQ(test::content(b.home.path("Documents/report")), "r");
    EXPECT_EQ(test::content(file), "f");
    EXPECT_FALSE(test::stands(b.home.trash()));
    EXPECT_THAT(b.bench.toastTexts(),
                ElementsAre("warning: Skipped 7 items: 7 paths couldn't be removed"));
}

TEST(RunOnDisk, APermanentRunDeletesWhatItMovedAndNothingThatWasInTheTrash)
{
    DiskBench b;
    b.text("Caches/one", "mine");
    b.run({"~/Caches/one"});
    b.bench.keepInTrash = false;
    b.text("Caches/one", "a namesake");
    const RunResult result = b.run({"~/Caches/one"});
    EXPECT_EQ(result.purged, 1);
    EXPECT_EQ(test::content(b.home.inTrash("one")), "mine");
    EXPECT_THAT(test::namesIn(b.home.trash() + "/files"), ElementsAre("one"));
    EXPECT_THAT(test::namesIn(b.home.trash() + "/info"), ElementsAre("one.trashinfo"));
}

TEST(RunOnDisk, WhatChangesItsTypeDuringTheRunIsMovedAsItThenStands)
{
    DiskBench b;
    b.text("Caches/first", "1");
    b.text("Caches/second/kept", "2");
    b.text("precious/file", "p");
    QObject::connect(&b.state, &RunState::bulkChanged, &b.bench.toasts, [&b] {
        if (b.state.bulk() && b.state.bulk()->done == 1 &&
            !test::stands(b.home.path("Caches/aside"))) {
            // A link takes the folder's place.
            const std::string second = b.home.path("Caches/second");
            ASSERT_EQ(::rename(second.c_str(), b.home.path("Caches/aside").c_str()), 0);
            ASSERT_EQ(::symlink(b.home.path("precious").c_str(), second.c_str()), 0);
        }
    });
    b.bench.keepInTrash = false;
    const RunResult result = b.run({"~/Caches/first", "~/Caches/second"});
    EXPECT_EQ(result.purged, 1) << "the link resolves to a place outside the Trash and stays";
    EXPECT_EQ(test::content(b.home.path("precious/file")), "p");
    EXPECT_EQ(test::content(b.home.path("Caches/aside/kept")), "2");
    EXPECT_EQ(result.problems.size(), 1u);
}

TEST(RunOnDisk, NamesOfAnyBytesAreMovedEachToItsOwnPlace)
{
    DiskBench b;
    const std::vector<std::string> names{"new\nline",           "100%",    "\xFF\xFE",
                                         std::string(255, 'n'), " blank ", "quote'\"\\"};
    std::vector<std::string> paths;
    for (const std::string& name : names) {
        b.text("Caches/" + name, name);
        paths.push_back("~/Caches/" + name);
    }
    const RunResult result = b.run(paths);
    ASSERT_EQ(result.items.size(), names.size());
    for (std::size_t i = 0; i < names.size(); ++i) {
        ASSERT_TRUE(result.items[i].attempt.landed) << names[i];
        EXPECT_EQ(test::content(*result.items[i].attempt.landed), names[i]);
    }
}

TEST(RunOnDisk, EmptyingLeavesNeitherItemsNorRecordsAndFollowsNoLink)
{
    DiskBench b;
    b.text("Caches/one/a", "a");
    b.text("precious/file", "p");
    ASSERT_EQ(::symlink(b.home.path("precious").c_str(), b.home.path("Caches/link").c_str()), 0);
    b.run({"~/Caches/one", "~/Caches/link"});
    b.meter.refreshTrashMeter();
    EXPECT_EQ(b.meter.trashCount(), 2);
    const EmptyReport report = settled(emptyTrash(b.tools()));
    EXPECT_EQ(report.emptied, 2);
    EXPECT_EQ(b.meter.trashCount(), 0);
    EXPECT_THAT(test::namesIn(b.home.trash() + "/files"), IsEmpty());
    EXPECT_THAT(test::namesIn(b.home.trash() + "/info"), IsEmpty());
    EXPECT_EQ(test::content(b.home.path("precious/file")), "p");
    test::pumpUntil([&] { return !b.meter.isMeasuring(); });
}

TEST(RunOnDisk, TheMeterCountsAndMeasuresWhatLiesThere)
{
    DiskBench b;
    b.text("Caches/one/a", std::string(9000, 'x'));
    b.text("Caches/.hidden", "h");
    b.run({"~/Caches/one", "~/Caches/.hidden"});
    b.meter.refreshTrashMeter();
    test::pumpUntil([&] { return !b.meter.isMeasuring(); });
    EXPECT_EQ(b.meter.trashCount(), 2);
    EXPECT_EQ(b.meter.trashBytes(), folderTally(b.home.inTrash("one")).bytes +
                                        folderTally(b.home.inTrash(".hidden")).bytes);
    EXPECT_GT(b.meter.trashBytes(), 9000);
}

TEST(RunOnDisk, EmptyingTakesWhatWasListedAndWhatADeathLeftOutOfSight)
{
    DiskBench b;
    b.text(".local/share/Trash/files/a", "1");
    b.text(".local/share/Trash/expunged/zolva-0/deep", "2");
    EXPECT_EQ(settled(emptyTrash(b.tools())).emptied, 1);
    EXPECT_THAT(test::namesIn(b.home.trash() + "/files"), IsEmpty());
    EXPECT_THAT(test::namesIn(b.home.trash() + "/expunged"), IsEmpty());
}

TEST(RunOnDisk, WhatADeathLeftOutOfSightGoesAlsoFromAnEmptyTrash)
{
    DiskBench b;
    b.text(".local/share/Trash/expunged/zolva-0/deep", "2");
    b.home.tree.folder("home/.local/share/Trash/files");
    settled(emptyTrash(b.tools()));
    EXPECT_THAT(test::namesIn(b.home.trash() + "/expunged"), IsEmpty());
    EXPECT_THAT(b.bench.toastTexts(), ElementsAre("info: The Trash is already empty."));
}

TEST(RunOnDisk, WhatADeathLeftOutOfSightGoesWithTheNextPermanentRun)
{
    DiskBench b;
    b.bench.keepInTrash = false;
    b.text(".local/share/Trash/expunged/zolva-0/deep", "2");
    b.text("Caches/one", "1");
    EXPECT_EQ(b.run({"~/Caches/one"}).purged, 1);
    EXPECT_THAT(test::namesIn(b.home.trash() + "/expunged"), IsEmpty());
}

TEST(RunOnDisk, AnEntryThatWasExchangedSinceTheListingIsNotDeleted)
{
    DiskBench b;
    b.text(".local/share/Trash/files/a", "listed");
    const auto listed = b.disk->listTrash();
    ASSERT_TRUE(listed.has_value());
    ASSERT_EQ(listed->size(), 1U);
    ASSERT_EQ(::rename(b.home.inTrash("a").c_str(), b.home.path("restored").c_str()), 0);
    b.text(".local/share/Trash/files/a", "new");
    EXPECT_EQ(b.disk->deleteFromTrash(listed->front()), Deletion::AlreadyGone);
    EXPECT_EQ(test::content(b.home.inTrash("a")), "new");
    EXPECT_EQ(b.bench.log.messages().back(), "already gone " + b.home.inTrash("a"));
}

TEST(RunOnDisk, AnUnreadableTrashHasNeitherCountNorListAndAMissingOneIsEmpty)
{
    const test::TrashHome home;
    LiveRemovalDisk disk;
    EXPECT_EQ(disk.trashCount(), 0);
    EXPECT_EQ(disk.listTrash(), std::vector<KnownItem>());
    ASSERT_EQ(disk.preparedTrashFolder(), home.trash() + "/files");
    test::withoutOverridingPermissions([&] {
        ASSERT_EQ(::chmod(disk.trashFolder().c_str(), 0), 0);
        EXPECT_EQ(disk.trashCount(), std::nullopt);
        EXPECT_EQ(disk.listTrash(), std::nullopt);
    });
    ASSERT_EQ(::chmod(disk.trashFolder().c_str(), 0700), 0);
}

TEST(RunOnDisk, TheMeasureIsTheSumOfTheTalliesOfAllEntries)
{
    test::TrashHome home;
    const std::string trash = home.trash() + "/files/";
    home.tree.text("home/elsewhere/large", std::string(50000, 'x'));
    home.tree.text("home/.local/share/Trash/files/.hidden", std::string(9000, 'x'));
    home.tree.text("home/.local/share/Trash/files/folder/deep/file", std::string(20000, 'x'));
    // Long enough to need a block of its own.
    const std::string longName(200, 'n');
    home.tree.text("home/" + longName, "1");
    home.tree.link("home/.local/share/Trash/files/to a file", home.path(longName));
    home.tree.link("home/.local/share/Trash/files/to a folder", home.path("elsewhere"));
    home.tree.link("home/.local/share/Trash/files/to nowhere", home.path(longName + "-gone"));
    home.tree.link("home/.local/share/Trash/files/folder/inner", home.path(longName));
    ASSERT_EQ(::mkfifo((trash + "fifo").c_str(), 0600), 0);
    std::int64_t sum = 0;
    for (const std::string& name : test::namesIn(trash)) {
        sum += folderTally(trash + name).bytes;
    }
    const std::atomic<bool> stop = false;
    EXPECT_EQ(LiveRemovalDisk().measureTrash(stop), sum);
    EXPECT_GT(sum, 9000 + 20000);
    EXPECT_LT(sum, 50000);
}

TEST(RunOnDisk, AMeasureThatIsOvertakenLooksAtNothing)
{
    DiskBench b;
    b.text("Caches/one", std::string(9000, 'x'));
    b.run({"~/Caches/one"});
    const std::atomic<bool> stop = true;
    EXPECT_EQ(b.disk->measureTrash(stop), 0);
}

} // namespace
} // namespace zolva
