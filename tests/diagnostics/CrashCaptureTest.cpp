#include "diagnostics/CrashCapture.h"

#include "diagnostics/RunJournal.h"

#include "support/TempTree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fcntl.h>
#include <spawn.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <fstream>
#include <sstream>
#include <tuple>

extern char** environ;

namespace zolva {
namespace {

std::string contentOf(const std::string& path)
{
    std::ifstream file(path, std::ios::binary);
    std::ostringstream content;
    content << file.rdbuf();
    return content.str();
}

/// Runs the crasher, and gives the signal it died of; a negative exit code if it did not.
int deathOf(const std::string& folder, const std::string& thread, const std::string& way)
{
    std::string program = ZOLVA_CRASHER;
    std::string folderArgument = folder;
    std::string threadArgument = thread;
    std::string wayArgument = way;
    char* arguments[] = {program.data(), folderArgument.data(), threadArgument.data(),
                         wayArgument.data(), nullptr};
    posix_spawn_file_actions_t actions;
    posix_spawn_file_actions_init(&actions);
    posix_spawn_file_actions_addopen(&actions, STDERR_FILENO, "/dev/null", O_WRONLY, 0);
    pid_t child = -1;
    const int error = ::posix_spawn(&child, program.c_str(), &actions, nullptr, arguments, environ);
    posix_spawn_file_actions_destroy(&actions);
    int status = 0;
    if (error != 0 || ::waitpid(child, &status, 0) != child) {
        return -1000;
    }
    return WIFSIGNALED(status) ? WTERMSIG(status) : -WEXITSTATUS(status);
}

std::string signalRecord(int signal)
{
    return "\n=== fatal signal " + std::to_string(signal) + " ===\n";
}

class CrashCaptureOfSignal
    : public ::testing::TestWithParam<std::tuple<std::string, std::tuple<std::string, int>>>
{};

TEST_P(CrashCaptureOfSignal, TheProcessDiesOfItAndLeavesItsRecordByteForByte)
{
    const auto& [thread, how] = GetParam();
    const auto& [way, signal] = how;
    const test::TempTree tree;
    EXPECT_EQ(deathOf(tree.path("Logs"), thread, way), signal);
    EXPECT_EQ(contentOf(tree.path("Logs/crashes.log")), signalRecord(signal));
}

std::tuple<std::string, int> raised(int signal)
{
    return {std::to_string(signal), signal};
}

INSTANTIATE_TEST_SUITE_P(
    Each, CrashCaptureOfSignal,
    ::testing::Combine(::testing::Values("main", "worker"),
                       ::testing::Values(raised(SIGSEGV), raised(SIGBUS), raised(SIGILL),
                                         raised(SIGFPE), raised(SIGABRT), raised(SIGTRAP),
                                         std::tuple("fault", SIGSEGV),
                                         std::tuple("overflow", SIGSEGV))),
    [](const auto& tested) {
        const std::string way = std::get<0>(std::get<1>(tested.param));
        return std::get<0>(tested.param) +
               (way.find_first_not_of("0123456789") == std::string::npos ? "Signal" : "") + way;
    });

class CrashCaptureOfException : public ::testing::TestWithParam<std::string>
{};

TEST_P(CrashCaptureOfException, LeavesItsOwnRecordAndThenTheAbortSignals)
{
    const test::TempTree tree;
    EXPECT_EQ(deathOf(tree.path("Logs"), GetParam(), "throw"), SIGABRT);
    const std::string log = contentOf(tree.path("Logs/crashes.log"));
    EXPECT_THAT(log, ::testing::MatchesRegex(
                         "\n=== [0-9]{4}-[0-9]{2}-[0-9]{2}T[0-9]{2}:[0-9]{2}:[0-9]{2}Z ===\n"
                         "uncaught exception: std::runtime_error\nreason: told to\n"
                         "([^\n]+\n){1,25}"
                         "\n=== fatal signal " +
                         std::to_string(SIGABRT) + " ===\n"));
}

INSTANTIATE_TEST_SUITE_P(Each, CrashCaptureOfException, ::testing::Values("main", "worker"),
                         [](const auto& tested) { return tested.param; });

TEST(CrashCapture, WhatIsNoExceptionOfTheLibraryHasNoReason)
{
    const test::TempTree tree;
    EXPECT_EQ(deathOf(tree.path("Logs"), "main", "throw-int"), SIGABRT);
    EXPECT_THAT(contentOf(tree.path("Logs/crashes.log")),
                ::testing::HasSubstr("\nuncaught exception: int\nreason: —\n"));
}

TEST(CrashCapture, ACrashDuringARunLeavesOneRecordAndTheMarker)
{
    const test::TempTree tree;
    EXPECT_EQ(deathOf(tree.path("Logs"), "main", "run"), SIGSEGV);
    EXPECT_EQ(contentOf(tree.path("Logs/crashes.log")), signalRecord(SIGSEGV));
    EXPECT_THAT(journalRead(tree.path("Logs")).value_or(""),
                ::testing::HasSubstr("\tClean\t3 paths\tpid "));
}

TEST(CrashCapture, RecordsAreAppendedToThoseOfEarlierCrashes)
{
    test::TempTree tree;
    tree.text("Logs/crashes.log", "before\n");
    deathOf(tree.path("Logs"), "main", std::to_string(SIGILL));
    deathOf(tree.path("Logs"), "worker", std::to_string(SIGFPE));
    EXPECT_EQ(contentOf(tree.path("Logs/crashes.log")),
              "before\n" + signalRecord(SIGILL) + signalRecord(SIGFPE));
}

TEST(CrashCapture, ASignalWithAnUnwritableLogStillEndsTheProcessWithThatSignal)
{
    test::TempTree tree;
    tree.folder("Logs/crashes.log");
    EXPECT_EQ(deathOf(tree.path("Logs"), "main", std::to_string(SIGBUS)), SIGBUS);
    EXPECT_EQ(deathOf(tree.path("Logs"), "worker", "throw"), SIGABRT);
}

TEST(CrashCapture, AFolderThatCannotBeMadeCostsTheRecordsAlone)
{
    test::TempTree tree;
    const std::string file = tree.text("Logs", "no folder");
    EXPECT_EQ(deathOf(file, "main", std::to_string(SIGTRAP)), SIGTRAP);
    EXPECT_EQ(contentOf(file), "no folder");
}

TEST(CrashCapture, APipeInThePlaceOfTheLogDoesNotHoldUpTheStart)
{
    test::TempTree tree;
    tree.fifo("Logs/crashes.log");
    EXPECT_EQ(deathOf(tree.path("Logs"), "main", std::to_string(SIGABRT)), SIGABRT);
}

TEST(CrashCapture, TheLogIsReadableByAllAndWritableByItsOwner)
{
    const mode_t before = ::umask(0);
    const test::TempTree tree;
    deathOf(tree.path("Logs"), "main", std::to_string(SIGILL));
    ::umask(before);
    struct stat status
    {};
    ASSERT_EQ(::stat(tree.path("Logs/crashes.log").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777u, 0644u);
}

TEST(CrashRecords, AReasonThatIsAbsentIsADash)
{
    EXPECT_EQ(uncaughtMessage("Oops", std::nullopt, {"one"}),
              "uncaught exception: Oops\nreason: —\none");
}

TEST(CrashRecords, AStackOfThirtyFramesKeepsTheFirstTwentyFive)
{
    std::vector<std::string> stack;
    std::string kept;
    for (int i = 0; i < 30; ++i) {
        stack.push_back("frame " + std::to_string(i));
        kept += i < 25 ? "\n" + stack.back() : "";
    }
    EXPECT_EQ(uncaughtMessage("Oops", "because", stack),
              "uncaught exception: Oops\nreason: because" + kept);
}

TEST(CrashRecords, ARecordStandsBetweenLineEnds)
{
    const auto time = std::chrono::sys_days(std::chrono::year(2026) / 3 / 9) +
                      std::chrono::hours(8) + std::chrono::milliseconds(999);
    EXPECT_EQ(crashRecord(time, "text"), "\n=== 2026-03-09T08:00:00Z ===\ntext\n");
}

TEST(CrashRecords, DigitsAreThoseOfTheNumberAndOneForZero)
{
    std::array<char, 12> buffer{};
    EXPECT_EQ(decimalDigits(0, buffer), "0");
    EXPECT_EQ(decimalDigits(7, buffer), "7");
    EXPECT_EQ(decimalDigits(11, buffer), "11");
    EXPECT_EQ(decimalDigits(2147483647, buffer), "2147483647");
}

} // namespace
} // namespace zolva
