#include "diagnostics/RunJournal.h"

#include "diagnostics/RunLock.h"

#include "support/DroppedCapabilities.h"
#include "support/RecordedLog.h"
#include "support/TempTree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <sstream>

namespace zolva {
namespace {

const auto start =
    std::chrono::sys_days(std::chrono::year(2026) / 1 / 2) + std::chrono::seconds(11045);

std::string contentOf(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
}

bool isThere(const std::string& path)
{
    struct stat status
    {};
    return ::lstat(path.c_str(), &status) == 0;
}

TEST(RunJournal, TheMarkerIsOneLineOfFourFields)
{
    const test::TempTree tree;
    journalBegin(tree.path("Library/Logs/Zolva"), "Clean", 12, start);
    EXPECT_EQ(contentOf(tree.path("Library/Logs/Zolva/in-progress.txt")),
              "2026-01-02T03:04:05Z\tClean\t12 paths\tpid " + std::to_string(::getpid()) + "\n");
}

TEST(RunJournal, AnOlderMarkerIsReplacedAndNothingElseIsLeftInTheFolder)
{
    test::TempTree tree;
    tree.text("in-progress.txt", std::string(500, 'x'));
    journalBegin(tree.root(), "Purge", 1, start);
    EXPECT_THAT(contentOf(tree.path("in-progress.txt")), ::testing::HasSubstr("Purge\t1 paths"));
    journalClear(tree.root());
    EXPECT_EQ(::rmdir(tree.root().c_str()), 0) << "the folder is not empty";
}

TEST(RunJournal, ReadingGivesTheContentWithoutTheSpaceAroundIt)
{
    test::TempTree tree;
    tree.text("in-progress.txt", " \n\xC2\xA0"
                                 "a\t b \xE2\x80\xA8\r\n");
    EXPECT_EQ(journalRead(tree.root()), "a\t b");
}

TEST(RunJournal, ThereIsNoneWithoutAFileOrWithAFolderInItsPlace)
{
    test::TempTree tree;
    EXPECT_EQ(journalRead(tree.root()), std::nullopt);
    tree.folder("in-progress.txt");
    EXPECT_EQ(journalRead(tree.root()), std::nullopt);
}

TEST(RunJournal, APipeInItsPlaceIsNotWaitedFor)
{
    test::TempTree tree;
    tree.fifo("in-progress.txt");
    EXPECT_EQ(journalRead(tree.root()), std::nullopt);
}

TEST(RunJournal, AMarkerThatCannotBeReadIsNone)
{
    test::TempTree tree;
    tree.text("in-progress.txt", "2026\tClean");
    tree.setMode("in-progress.txt", 0);
    test::withoutOverridingPermissions([&] { EXPECT_EQ(journalRead(tree.root()), std::nullopt); });
}

TEST(RunJournal, AFolderThatCannotBeWrittenStopsNothing)
{
    test::TempTree tree;
    tree.setMode("", 0500);
    test::withoutOverridingPermissions([&] {
        journalBegin(tree.path("Logs"), "Clean", 1, start);
        journalClear(tree.path("Logs"));
        EXPECT_EQ(RunLock(tree.path("Logs")).state(), RunLock::State::Unavailable);
    });
    EXPECT_FALSE(isThere(tree.path("Logs")));
}

TEST(RunJournal, ClearingWithoutAMarkerDoesNothing)
{
    test::TempTree tree;
    const std::string other = tree.text("other", "x");
    journalClear(tree.root());
    EXPECT_TRUE(isThere(other));
}

TEST(UnfinishedRun, IsToldOnceWithItsLabel)
{
    const test::TempTree tree;
    journalBegin(tree.root(), "Clean", 12, start);
    const test::RecordedLog log;
    const auto run = takeUnfinishedRun(tree.root());
    ASSERT_TRUE(run);
    EXPECT_EQ(run->label, "Clean");
    EXPECT_EQ(unfinishedRunText(*run), "A previous Clean run didn't finish. Some items may have "
                                       "been removed and others not.");
    EXPECT_EQ(log.records(),
              (std::vector<LogRecord>{{LogCategory::Remove, LogLevel::Fault,
                                       "previous run did not finish: " + run->journal}}));
    EXPECT_FALSE(isThere(tree.path("in-progress.txt")));
    EXPECT_FALSE(takeUnfinishedRun(tree.root()));
}

TEST(UnfinishedRun, AMarkerWithASingleFieldIsCalledARemoval)
{
    test::TempTree tree;
    tree.text("in-progress.txt", "2026-01-02T03:04:05Z\n");
    const auto run = takeUnfinishedRun(tree.root());
    ASSERT_TRUE(run);
    EXPECT_EQ(unfinishedRunText(*run), "A previous A removal run didn't finish. Some items may "
                                       "have been removed and others not.");
}

TEST(UnfinishedRun, EmptyFieldsDoNotCount)
{
    test::TempTree tree;
    tree.text("in-progress.txt", "\t\ttime\t\tPurge\t3 paths");
    const auto run = takeUnfinishedRun(tree.root());
    ASSERT_TRUE(run);
    EXPECT_EQ(run->label, "Purge");
}

TEST(UnfinishedRun, AMarkerOfWhiteSpaceAloneCountsAsNoneAndIsNotRemoved)
{
    test::TempTree tree;
    const std::string marker = tree.text("in-progress.txt", " \n\t\xE3\x80\x80");
    const test::RecordedLog log;
    EXPECT_FALSE(takeUnfinishedRun(tree.root()));
    EXPECT_TRUE(isThere(marker));
    EXPECT_TRUE(log.records().empty());
}

TEST(UnfinishedRun, ARunThatStillGoesOnElsewhereIsNotOne)
{
    const test::TempTree tree;
    const test::RecordedLog log;
    {
        const RunLock running(tree.root());
        ASSERT_EQ(running.state(), RunLock::State::Held);
        journalBegin(tree.root(), "Clean", 1, start);
        EXPECT_FALSE(takeUnfinishedRun(tree.root()));
        EXPECT_TRUE(isThere(tree.path("in-progress.txt")));
        EXPECT_TRUE(log.records().empty());
    }
    EXPECT_TRUE(takeUnfinishedRun(tree.root()));
}

TEST(UnfinishedRun, WithoutAMarkerNothingIsMade)
{
    const test::TempTree tree;
    EXPECT_FALSE(takeUnfinishedRun(tree.path("Logs")));
    EXPECT_FALSE(isThere(tree.path("Logs")));
}

TEST(RunLock, OnlyOneHoldsItAtATime)
{
    const test::TempTree tree;
    {
        const RunLock first(tree.path("Logs"));
        EXPECT_EQ(first.state(), RunLock::State::Held);
        EXPECT_EQ(RunLock(tree.path("Logs")).state(), RunLock::State::HeldByOther);
        EXPECT_EQ(RunLock(tree.path("Logs")).state(), RunLock::State::HeldByOther);
    }
    EXPECT_EQ(RunLock(tree.path("Logs")).state(), RunLock::State::Held);
}

TEST(RunLock, AProcessThatDiesGivesItBack)
{
    const test::TempTree tree;
    const pid_t child = ::fork();
    ASSERT_GE(child, 0);
    if (child == 0) {
        const RunLock lock(tree.root());
        ::_exit(lock.state() == RunLock::State::Held ? 0 : 1);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(RunLock(tree.root()).state(), RunLock::State::Held);
}

TEST(LogFolder, StandsBelowTheHomeFolder)
{
    EXPECT_EQ(logFolder("/home/me"), "/home/me/Library/Logs/Zolva");
    EXPECT_EQ(logFolder("/"), "/Library/Logs/Zolva");
}

TEST(Iso8601, IsUtcToTheSecondAlsoBefore1970)
{
    EXPECT_EQ(iso8601(start + std::chrono::milliseconds(999)), "2026-01-02T03:04:05Z");
    EXPECT_EQ(iso8601(std::chrono::system_clock::time_point(std::chrono::milliseconds(-1))),
              "1969-12-31T23:59:59Z");
}

} // namespace
} // namespace zolva
