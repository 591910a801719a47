#include "async/Clock.h"

#include "support/qt/EventLoop.h"
#include "support/qt/ManualClock.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zolva {
namespace {

using namespace std::chrono_literals;

QCoro::Task<> noteAfter(Clock& clock, std::chrono::milliseconds span, std::string name,
                        std::vector<std::string>& notes)
{
    const auto begun = clock.steadyNow();
    co_await clock.sleep(span);
    const auto slept =
        std::chrono::duration_cast<std::chrono::milliseconds>(clock.steadyNow() - begun);
    notes.push_back(name + " " + std::to_string(slept.count()));
}

QCoro::Task<> noteEvery(Clock& clock, std::chrono::milliseconds span, int times,
                        std::vector<std::string>& notes)
{
    for (int i = 0; i < times; ++i) {
        co_await noteAfter(clock, span, "tick", notes);
    }
}

TEST(ManualClock, WakesSleepersInTheOrderOfTheirTimesAndNotBefore)
{
    test::ManualClock clock;
    std::vector<std::string> notes;
    const auto late = noteAfter(clock, 20ms, "late", notes);
    const auto early = noteAfter(clock, 10ms, "early", notes);
    clock.advance(9ms);
    EXPECT_TRUE(notes.empty());
    clock.advance(30ms);
    EXPECT_EQ(notes, (std::vector<std::string>{"early 10", "late 20"}));
    EXPECT_EQ(clock.sleepers(), 0u);
}

TEST(ManualClock, OneAdvanceWakesARepeatedSleepAsOftenAsItFits)
{
    test::ManualClock clock;
    std::vector<std::string> notes;
    const auto ticking = noteEvery(clock, 10ms, 3, notes);
    clock.advance(35ms);
    EXPECT_EQ(notes, (std::vector<std::string>{"tick 10", "tick 10", "tick 10"}));
    EXPECT_TRUE(ticking.isReady());
}

TEST(ManualClock, ItsEndWakesWhoeverStillSleeps)
{
    std::vector<std::string> notes;
    {
        test::ManualClock clock;
        noteAfter(clock, 1h, "slept", notes);
        EXPECT_TRUE(notes.empty());
    }
    EXPECT_EQ(notes, (std::vector<std::string>{"slept 0"}));
}

TEST(SystemClock, ASleepIsNeverShorterThanAsked)
{
    SystemClock clock;
    const auto begun = clock.steadyNow();
    test::settled(clock.sleep(12ms));
    EXPECT_GE(clock.steadyNow() - begun, 12ms);
}

TEST(SystemClock, ASleepOfNothingStillComesBackByTheEventLoop)
{
    SystemClock clock;
    const auto nap = clock.sleep(-5ms);
    EXPECT_FALSE(nap.isReady());
    test::pumpUntil([&] { return nap.isReady(); });
}

TEST(SystemClock, ItsEndWakesWhoeverStillSleepsOnce)
{
    std::vector<std::string> notes;
    {
        SystemClock clock;
        const auto late = noteAfter(clock, 1h, "late", notes);
        test::pumpOnce();
        EXPECT_TRUE(notes.empty());
    }
    ASSERT_EQ(notes.size(), 1u);
    EXPECT_TRUE(notes.front().starts_with("late "));
}

} // namespace
} // namespace zolva
