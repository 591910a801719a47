#include "async/Background.h"
#include "async/Unawaited.h"
#include "diagnostics/CrashCapture.h"

#include "support/TempTree.h"
#include "support/qt/BusyReads.h"
#include "support/qt/EventLoop.h"

#include <QThread>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <csignal>
#include <memory>
#include <stdexcept>
#include <string>
#include <thread>
#include <vector>

namespace zolva {
namespace {

std::string joined(const std::vector<std::string>& parts, int times)
{
    std::string all;
    for (int i = 0; i < times; ++i) {
        for (const std::string& part : parts) {
            all += part;
        }
    }
    return all;
}

std::thread::id whereAmI()
{
    return std::this_thread::get_id();
}

bool hasAlternateStack()
{
    stack_t now{};
    return ::sigaltstack(nullptr, &now) == 0 && (now.ss_flags & SS_DISABLE) == 0;
}

QCoro::Task<std::thread::id> whereItGoesOn()
{
    co_await background([] {});
    co_return std::this_thread::get_id();
}

TEST(Background, GivesTheResultOfTheFunctionOnItsArguments)
{
    EXPECT_EQ(test::settled(background(joined, std::vector<std::string>{"a", "b"}, 2)), "abab");
}

TEST(Background, RunsOnAnotherThreadAndGoesOnOnTheCallers)
{
    EXPECT_NE(test::settled(background(whereAmI)), std::this_thread::get_id());
    EXPECT_EQ(test::settled(whereItGoesOn()), std::this_thread::get_id());
}

TEST(Background, StartingDoesNotBlockAndEndsOnlyByTheEventLoop)
{
    const auto task = background([] { return 1; });
    QThread::msleep(20);
    EXPECT_FALSE(task.isReady());
    test::pumpUntil([&] { return task.isReady(); });
}

TEST(Background, ResultsNeedNotBeCopyable)
{
    auto result = test::settled(background([](int n) { return std::make_unique<int>(n); }, 7));
    ASSERT_TRUE(result);
    EXPECT_EQ(*result, 7);
}

TEST(Background, EveryThreadOfThePoolHasAStackForSignals)
{
    EXPECT_TRUE(test::settled(background(hasAlternateStack)));
}

TEST(Background, AHundredAtOnceAllComeBack)
{
    std::vector<QCoro::Task<int>> tasks;
    for (int i = 0; i < 100; ++i) {
        tasks.push_back(background([](int n) { return n * n; }, i));
    }
    for (int i = 0; i < 100; ++i) {
        EXPECT_EQ(test::settled(std::move(tasks[static_cast<std::size_t>(i)])), i * i);
    }
}

TEST(BackgroundDeathTest, AnExceptionFromTheFunctionEndsTheProcess)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(test::settled(background([] { throw std::runtime_error("lost"); })),
                ::testing::KilledBySignal(SIGABRT), "lost");
}

TEST(Background, AStepOfARemovalRunsWhileEveryThreadForReadsIsBusy)
{
    std::vector<QCoro::Task<int>> queued;
    {
        const test::BusyReads reads;
        queued.push_back(background([] { return 1; }));
        EXPECT_EQ(test::settled(backgroundStep([](int n) { return n + 1; }, 1)), 2);
        EXPECT_NE(test::settled(backgroundStep(whereAmI)), std::this_thread::get_id());
        EXPECT_FALSE(queued.front().isReady()) << "they are busy indeed";
    }
    EXPECT_EQ(test::settled(std::move(queued.front())), 1);
}

TEST(Background, AStepUnderWayMayComeToItsEndBeforeTheProgramDoes)
{
    std::atomic<bool> hasBegun = false;
    std::atomic<bool> isLeaving = false;
    std::atomic<bool> hasEnded = false;
    unawaited([](auto& begun, auto& leaving, auto& ended) -> QCoro::Task<> {
        co_await backgroundStep([&begun, &leaving, &ended] {
            begun = true;
            leaving.wait(false);
            for (int i = 0; i < 1000; ++i) {
                std::this_thread::yield();
            }
            ended = true;
        });
    }(hasBegun, isLeaving, hasEnded));
    while (!hasBegun) {
        std::this_thread::yield();
    }
    isLeaving = true;
    isLeaving.notify_one();
    letStepsEnd(std::chrono::minutes(1));
    EXPECT_TRUE(hasEnded);
    // What the step came back to.
    test::pumpOnce();
}

#ifdef __linux__
/// Of the calling thread.
int niceness()
{
    return ::getpriority(PRIO_PROCESS, static_cast<id_t>(::gettid()));
}

TEST(Background, ReadsGiveWayToTheMainThreadAndStepsOfRemovalsDoNot)
{
    const int usual = niceness();
    for (int i = 0; i < 3; ++i) {
        EXPECT_EQ(test::settled(background(niceness)), std::min(usual + 10, 19));
        EXPECT_EQ(test::settled(backgroundStep(niceness)), usual);
    }
    EXPECT_EQ(niceness(), usual);
}
#endif

TEST(Background, StepsOfRemovalsHaveAStackForSignalsToo)
{
    EXPECT_TRUE(test::settled(backgroundStep(hasAlternateStack)));
}

/// Lets the records of crashes go where a death test reads.
void recordCrashesOnStandardError()
{
    // The runtime writes there too, and would write over the record.
    ::fcntl(STDERR_FILENO, F_SETFL, O_APPEND);
    test::TempTree tree;
    tree.link("crashes.log", "/dev/stderr");
    installCrashCapture(tree.root());
}

int useUpTheStack(int depth)
{
    volatile char frame[4096]{};
    frame[depth % 4096] = 1;
    return depth < 0 ? frame[0] : useUpTheStack(depth + 1) + frame[1];
}

TEST(BackgroundDeathTest, AnExceptionFromTheFunctionLeavesItsRecord)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        {
            recordCrashesOnStandardError();
            test::settled(background([] { throw std::runtime_error("lost"); }));
        },
        ::testing::KilledBySignal(SIGABRT),
        ::testing::AllOf(::testing::HasSubstr("uncaught exception: std::runtime_error\n"
                                              "reason: lost\n"),
                         ::testing::HasSubstr("\n=== fatal signal 6 ===\n")));
}

TEST(BackgroundDeathTest, TheEndOfTheStackOfAPoolsThreadLeavesItsRecord)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    EXPECT_EXIT(
        {
            recordCrashesOnStandardError();
            test::settled(background(useUpTheStack, 0));
        },
        ::testing::KilledBySignal(SIGSEGV), ::testing::HasSubstr("\n=== fatal signal 11 ===\n"));
}

QCoro::Task<> notesAndThrows(bool& noted)
{
    co_await background([] {});
    noted = true;
    throw std::runtime_error("dropped");
}

QCoro::Task<> notes(bool& noted)
{
    co_await background([] {});
    noted = true;
}

TEST(Unawaited, TheTaskRunsToItsEnd)
{
    bool noted = false;
    unawaited(notes(noted));
    test::pumpUntil([&] { return noted; });
    EXPECT_TRUE(noted);
}

TEST(UnawaitedDeathTest, AnExceptionFromTheTaskEndsTheProcess)
{
    GTEST_FLAG_SET(death_test_style, "threadsafe");
    bool noted = false;
    EXPECT_EXIT(
        {
            unawaited(notesAndThrows(noted));
            test::pumpUntil([] { return false; });
        },
        ::testing::KilledBySignal(SIGABRT), "dropped");
}

} // namespace
} // namespace zolva
