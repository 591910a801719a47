#include "core/LiveModel.h"

#include "core/LiveMoRunner.h"
#include "core/StatusSample.h"
#include "support/qt/EventLoop.h"
#include "support/qt/ManualClock.h"
#include "support/qt/ScriptedTool.h"

#include <chrono>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace zolva::test {

namespace {

using namespace std::chrono_literals;

StatusResult sample(double cpu, double memory)
{
    StatusResult one;
    one.cpu.usage = cpu;
    one.memory.usedPercent = memory;
    return one;
}

using LiveStatus = LiveModel;

} // namespace

TEST_F(LiveStatus, NothingIsReadBeforeAnybodyLooks)
{
    EXPECT_TRUE(script.streams.empty());
    EXPECT_FALSE(live->isStreaming());
    EXPECT_FALSE(live->status());
    EXPECT_FALSE(live->statusError());
    EXPECT_EQ(live->pollInterval(), 1s);
    EXPECT_EQ(live->statusRefs(), 0);
    EXPECT_EQ(live->statusGen(), 0);
    EXPECT_TRUE(live->moAvailable());
}

TEST_F(LiveStatus, ASecondReferenceStartsNothingAndOnlyTheLastReleaseStopsTheChild)
{
    live->retainStatus();
    live->retainStatus();
    EXPECT_EQ(script.streams.size(), 1U);
    live->releaseStatus();
    EXPECT_EQ(script.stopped, 0);
    EXPECT_TRUE(live->isStreaming());
    live->releaseStatus();
    EXPECT_EQ(script.stopped, 1);
    EXPECT_FALSE(live->isStreaming());
}

TEST_F(LiveStatus, AReleaseAtZeroLeavesZero)
{
    live->releaseStatus();
    EXPECT_EQ(live->statusRefs(), 0);
    live->retainStatus();
    EXPECT_EQ(live->statusRefs(), 1);
    EXPECT_EQ(script.streams.size(), 1U);
}

TEST_F(LiveStatus, ASampleIsPublishedWithBothSeries)
{
    int told = 0;
    QObject::connect(live.get(), &LiveData::statusChanged, live.get(), [&told] { ++told; });
    live->retainStatus();
    script.newest()->send(sample(10, 60));
    script.newest()->send(sample(11, 61));
    EXPECT_EQ(live->status()->cpu.usage, 11);
    EXPECT_EQ(live->cpuSeries(), (std::vector<double>{10, 11}));
    EXPECT_EQ(live->memSeries(), (std::vector<double>{60, 61}));
    EXPECT_EQ(told, 2);
}

TEST_F(LiveStatus, TheSixtyFirstSampleDropsTheFirst)
{
    live->retainStatus();
    for (int i = 1; i <= 60; ++i) {
        script.newest()->send(sample(i, 100 + i));
    }
    EXPECT_EQ(live->cpuSeries().size(), 60U);
    EXPECT_EQ(live->cpuSeries().front(), 1);
    script.newest()->send(sample(61, 161));
    EXPECT_EQ(live->cpuSeries().size(), 60U);
    EXPECT_EQ(live->cpuSeries().front(), 2);
    EXPECT_EQ(live->cpuSeries().back(), 61);
    EXPECT_EQ(live->memSeries().size(), 60U);
    EXPECT_EQ(live->memSeries().front(), 102);
}

TEST_F(LiveStatus, AChangedIntervalStartsNoChildWhileNobodyLooks)
{
    live->setPollInterval(5s);
    EXPECT_TRUE(script.streams.empty());
    EXPECT_EQ(live->pollInterval(), 5s);
    live->retainStatus();
    EXPECT_EQ(script.intervals, std::vector{5s});
}

TEST_F(LiveStatus, AChangedIntervalReplacesTheChild)
{
    live->retainStatus();
    script.newest()->send(sample(1, 1));
    live->setPollInterval(2s);
    EXPECT_EQ(script.stopped, 1);
    EXPECT_EQ(script.intervals, (std::vector{1s, 2s}));
    EXPECT_TRUE(live->isStreaming());
    EXPECT_EQ(live->statusGen(), 2);
    script.newest()->send(sample(2, 2));
    EXPECT_EQ(live->cpuSeries(), (std::vector<double>{1, 2}));
}

TEST_F(LiveStatus, TheOldLoopsEndingDoesNotClearTheHandleOfItsSuccessor)
{
    // From within a sample, the loop that is replaced comes to its end only behind all this.
    bool replaced = false;
    QObject::connect(live.get(), &LiveData::statusChanged, live.get(), [&] {
        live->setPollInterval(2s);
        replaced = live->isStreaming() && live->statusGen() == 2;
    });
    live->retainStatus();
    const std::shared_ptr<StatusStream> old = script.newest();
    old->send(sample(1, 1));
    ASSERT_TRUE(replaced);
    EXPECT_EQ(old.use_count(), 1) << "the old loop has not ended";
    EXPECT_TRUE(live->isStreaming());
    live->releaseStatus();
    EXPECT_EQ(script.stopped, 2);
}

TEST_F(LiveStatus, TheSameIntervalAgainChangesNothing)
{
    live->retainStatus();
    live->setPollInterval(1s);
    EXPECT_EQ(script.streams.size(), 1U);
    EXPECT_EQ(script.stopped, 0);
}

TEST_F(LiveStatus, AFailedStreamKeepsTheLastSampleAndTellsWhy)
{
    live->retainStatus();
    script.newest()->send(sample(7, 8));
    script.newest()->finish(MoError{MoError::NonZeroExit{1, " no sensors \n"}});
    EXPECT_EQ(live->statusError(), "no sensors");
    EXPECT_FALSE(live->isStreaming());
    EXPECT_EQ(live->status()->cpu.usage, 7);
    EXPECT_EQ(live->memSeries(), std::vector<double>{8});
}

TEST_F(LiveStatus, OnlyAStreamThatEndedByItselfIsToldToHaveEnded)
{
    int told = 0;
    const QObject listener;
    QObject::connect(live.get(), &LiveData::statusEnded, &listener, [&told] { ++told; });
    live->retainStatus();
    live->restartStatus();
    live->setPollInterval(3s);
    live->releaseStatus();
    EXPECT_EQ(told, 0);
    live->retainStatus();
    script.newest()->finish(std::nullopt);
    EXPECT_EQ(told, 1);
    live->restartStatus();
    live.reset();
    EXPECT_EQ(told, 1);
}

TEST_F(LiveStatus, AnEndedStreamStaysEndedUntilItIsRestarted)
{
    live->retainStatus();
    script.newest()->finish(std::nullopt);
    EXPECT_FALSE(live->statusError());
    EXPECT_FALSE(live->isStreaming());
    pumpOnce();
    EXPECT_EQ(script.streams.size(), 1U);
    live->restartStatus();
    EXPECT_EQ(script.streams.size(), 2U);
    EXPECT_TRUE(live->isStreaming());
}

TEST_F(LiveStatus, AnEndedStreamIsStartedAgainByAChangedInterval)
{
    live->retainStatus();
    script.newest()->finish(std::nullopt);
    live->setPollInterval(9s);
    EXPECT_EQ(script.intervals, (std::vector{1s, 9s}));
}

TEST_F(LiveStatus, AnEndedStreamIsStartedAgainByAnotherReferenceEvenWithoutGoingThroughZero)
{
    live->retainStatus();
    script.newest()->finish(std::nullopt);
    live->retainStatus();
    EXPECT_EQ(script.streams.size(), 2U);
}

TEST_F(LiveStatus, ARestartWithoutReferencesStartsNothing)
{
    live->restartStatus();
    EXPECT_TRUE(script.streams.empty());
}

TEST_F(LiveStatus, ARestartOfARunningStreamReplacesTheChild)
{
    live->retainStatus();
    live->restartStatus();
    EXPECT_EQ(script.stopped, 1);
    EXPECT_EQ(script.streams.size(), 2U);
    EXPECT_TRUE(live->isStreaming());
}

TEST_F(LiveStatus, GoingAwayAndComingBackAfterAFailureStartsANewStreamAndClearsTheError)
{
    live->retainStatus();
    script.newest()->finish(MoError{MoError::BinaryNotFound{"/opt/homebrew/bin/mo"}});
    EXPECT_EQ(live->statusError(), "mo isn’t installed");
    live->releaseStatus();
    EXPECT_EQ(live->statusError(), "mo isn’t installed");
    live->retainStatus();
    EXPECT_FALSE(live->statusError());
    EXPECT_EQ(script.streams.size(), 2U);
}

TEST_F(LiveStatus, ComingBackShowsTheLastSampleAtOnce)
{
    live->retainStatus();
    script.newest()->send(sample(7, 8));
    live->releaseStatus();
    live->retainStatus();
    EXPECT_EQ(live->status()->cpu.usage, 7);
    script.newest()->send(sample(9, 9));
    EXPECT_EQ(live->cpuSeries(), (std::vector<double>{7, 9}));
}

TEST_F(LiveStatus, ACancelledStreamDeliversNothingAndFailsNoMore)
{
    live->retainStatus();
    const std::shared_ptr<StatusStream> old = script.newest();
    live->releaseStatus();
    old->send(sample(1, 1));
    old->finish(MoError{MoError::NonZeroExit{15, "terminated"}});
    pumpOnce();
    EXPECT_FALSE(live->status());
    EXPECT_FALSE(live->statusError());
}

TEST_F(LiveStatus, AListenerMayEndTheStreamFromWithinASample)
{
    QObject::connect(live.get(), &LiveData::statusChanged, live.get(),
                     [this] { live->releaseStatus(); });
    live->retainStatus();
    const std::shared_ptr<StatusStream> stream = script.newest();
    stream->send(sample(1, 1));
    stream->send(sample(2, 2));
    EXPECT_EQ(live->cpuSeries(), std::vector<double>{1});
    EXPECT_FALSE(live->isStreaming());
    EXPECT_EQ(script.stopped, 1);
}

TEST_F(LiveStatus, AListenerMayRestartTheStreamFromWithinItsFailure)
{
    QObject::connect(live.get(), &LiveData::statusErrorChanged, live.get(), [this] {
        if (live->statusError()) {
            live->restartStatus();
        }
    });
    live->retainStatus();
    script.newest()->finish(MoError{MoError::NonZeroExit{1, "no"}});
    EXPECT_EQ(script.streams.size(), 2U);
    EXPECT_TRUE(live->isStreaming());
    EXPECT_FALSE(live->statusError());
}

TEST_F(LiveStatus, AListenerMayRestartTheStreamWhileItsErrorIsBeingCleared)
{
    live->retainStatus();
    script.newest()->finish(MoError{MoError::NonZeroExit{1, "no"}});
    QObject::connect(live.get(), &LiveData::statusErrorChanged, live.get(),
                     [this] { live->restartStatus(); });
    live->restartStatus();
    EXPECT_TRUE(live->isStreaming());
    ASSERT_EQ(script.streams.size(), 3U);
    EXPECT_EQ(script.stopped, 1);
    EXPECT_TRUE(script.streams[1].expired());
    EXPECT_EQ(live->statusGen(), 3);
    script.newest()->send(sample(5, 6));
    EXPECT_EQ(live->cpuSeries(), std::vector<double>{5});
    live->releaseStatus();
    EXPECT_EQ(script.stopped, 2);
    EXPECT_TRUE(script.streams[2].expired());
}

TEST_F(LiveStatus, AListenerThatRetainsTheStreamWhileItsErrorIsBeingClearedStartsNoOther)
{
    live->retainStatus();
    script.newest()->finish(MoError{MoError::NonZeroExit{1, "no"}});
    QObject::connect(live.get(), &LiveData::statusErrorChanged, live.get(),
                     [this] { live->retainStatus(); });
    live->restartStatus();
    EXPECT_EQ(script.streams.size(), 2U);
    EXPECT_EQ(script.stopped, 0);
    EXPECT_EQ(live->statusRefs(), 2);
}

TEST_F(LiveStatus, AListenerMayEndTheStoreWhileItsErrorIsBeingCleared)
{
    live->retainStatus();
    script.newest()->finish(MoError{MoError::NonZeroExit{1, "no"}});
    const QObject listener;
    QObject::connect(live.get(), &LiveData::statusErrorChanged, &listener,
                     [this] { live.reset(); });
    live->restartStatus();
    EXPECT_EQ(script.stopped, 1);
    EXPECT_TRUE(script.streams.back().expired());
}

TEST_F(LiveStatus, TheEndOfTheStoreEndsTheStream)
{
    live->retainStatus();
    live.reset();
    EXPECT_EQ(script.stopped, 1);
    EXPECT_TRUE(script.streams.front().expired());
}

TEST_F(LiveStatus,
       WithNoToolAnywhereRetainingTheStreamTellsThatMoIsNotInstalledAndTheListFailsWithTheSameWords)
{
    // The stream of an absent tool has ended before it is returned.
    ManualClock clock;
    const MoLocation absent{"/nowhere/at/all/mo", MoLocation::Kind::Absent};
    LiveData real(std::make_unique<LiveMoRunner>(clock, absent), held.scans(), absent);
    EXPECT_FALSE(real.moAvailable());
    EXPECT_FALSE(real.moVersion());
    real.retainStatus();
    EXPECT_EQ(real.statusError(), "mo isn’t installed");
    EXPECT_FALSE(real.isStreaming());

    settled(real.loadApps());
    ASSERT_TRUE(real.apps().isFailed());
    EXPECT_EQ(*real.apps().error(), "mo isn’t installed");
}

TEST_F(LiveStatus, WhatCannotBeParsedIsToldWithTheDecodersWords)
{
    const ScriptedTool tool("echo '{}'");
    ManualClock clock;
    const MoLocation location{tool.path(), MoLocation::Kind::Shipped};
    LiveData real(std::make_unique<LiveMoRunner>(clock, location), held.scans(), location);
    real.retainStatus();
    pumpUntil([&] { return real.statusError().has_value(); });
    EXPECT_EQ(real.statusError(), "Couldn’t read mo output (\"collected_at\" is missing)");
}

TEST_F(LiveStatus, ARealToolIsReplacedWhenTheIntervalChanges)
{
    ScriptedTool tool(R"(echo $$ >> "$here/pids"; echo "$5" >> "$here/intervals"
cat "$here/line"; exec sleep 1000)");
    tool.put("line", statusLine(33, 44) + "\n");
    ManualClock clock;
    const MoLocation location{tool.path(), MoLocation::Kind::Shipped};
    LiveData real(std::make_unique<LiveMoRunner>(clock, location), held.scans(), location);
    real.retainStatus();
    pumpUntil([&] { return real.cpuSeries().size() == 1; });
    real.setPollInterval(30s);
    pumpUntil([&] { return real.cpuSeries().size() == 2; });
    EXPECT_EQ(tool.written("intervals"), "1s\n30s\n");
    const std::vector<int> pids = tool.numbers("pids");
    pumpUntil([&] { return isGone(pids.at(0)); });
    EXPECT_FALSE(isGone(pids.at(1)));
    EXPECT_TRUE(real.isStreaming());
    real.releaseStatus();
    pumpUntil([&] { return isGone(pids.at(1)); });
}

TEST_F(LiveStatus, TheVersionIsReadOnceWhenTheStoreIsMade)
{
    TempTree tree;
    tree.text("mole/VERSION", "1.2.3\n");
    const MoLocation location{tree.path("mole/bin/mole"), MoLocation::Kind::Shipped};
    const LiveData real(std::make_unique<ScriptedRunner>(script), held.scans(), location);
    tree.text("mole/VERSION", "9.9.9\n");
    EXPECT_EQ(real.moVersion(), "1.2.3");
}

} // namespace zolva::test
