#include "removal/runs/QuitGuard.h"

#include "removal/RunBench.h"

#include <gtest/gtest.h>

namespace zolva {
namespace {

using namespace std::chrono_literals;

struct GuardBench
{
    test::ManualClock clock;
    RunState state;
    QuitGuard guard{&state, clock};
    int ready = 0;

    GuardBench()
    {
        QObject::connect(&guard, &QuitGuard::readyToQuit, &guard, [this] { ++ready; });
    }
};

TEST(QuitGuard, WithoutARunNothingIsAsked)
{
    const GuardBench bench;
    EXPECT_FALSE(bench.guard.mustAsk());
}

TEST(QuitGuard, WithoutAModelNothingIsAsked)
{
    test::ManualClock clock;
    const QuitGuard guard(nullptr, clock);
    EXPECT_FALSE(guard.mustAsk());
}

TEST(QuitGuard, KeepGoingLeavesTheRunAsItIs)
{
    GuardBench bench;
    bench.state.setBulk(BulkProgress{"Removing caches", 2, 0, ""});
    ASSERT_TRUE(bench.guard.mustAsk());
    EXPECT_EQ(QuitGuard::keepGoing(), QuitAnswer::Cancel);
    EXPECT_FALSE(bench.state.cancelRequested());
    EXPECT_EQ(bench.state.bulk()->title, "Removing caches");
}

TEST(QuitGuard, StopAndQuitEndsWithin120MillisecondsOfTheRunsEnd)
{
    GuardBench bench;
    bench.state.setBulk(BulkProgress{"Removing caches", 2, 0, ""});
    EXPECT_EQ(bench.guard.stopAndQuit(), QuitAnswer::Later);
    EXPECT_TRUE(bench.state.cancelRequested());
    test::pumpOnce();
    bench.clock.advance(10min); // however long it takes
    EXPECT_EQ(bench.ready, 0);
    bench.state.setBulk(std::nullopt);
    EXPECT_EQ(bench.ready, 0);
    bench.clock.advance(120ms);
    EXPECT_EQ(bench.ready, 1);
    bench.clock.advance(10min);
    EXPECT_EQ(bench.ready, 1);
}

TEST(QuitGuard, ARunThatEndedBehindTheAlertIsNoHindrance)
{
    GuardBench bench;
    EXPECT_EQ(bench.guard.stopAndQuit(), QuitAnswer::Later);
    EXPECT_EQ(bench.ready, 0) << "told before the answer was given";
    EXPECT_FALSE(bench.state.cancelRequested());
    test::pumpOnce();
    EXPECT_EQ(bench.ready, 1);
}

TEST(QuitGuard, AModelThatGoesWhileItWaitsLetsTheApplicationQuit)
{
    test::ManualClock clock;
    auto state = std::make_unique<RunState>();
    QuitGuard guard(state.get(), clock);
    int ready = 0;
    QObject::connect(&guard, &QuitGuard::readyToQuit, &guard, [&ready] { ++ready; });
    state->setBulk(BulkProgress{"Removing caches", 1, 0, ""});
    EXPECT_EQ(guard.stopAndQuit(), QuitAnswer::Later);
    test::pumpOnce();
    state.reset();
    clock.advance(120ms);
    EXPECT_EQ(ready, 1);
}

} // namespace
} // namespace zolva
