#include "core/LiveModel.h"

#include <algorithm>
#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace zolva::test {

namespace {

using LiveScanGuards = LiveModel;

std::vector<Category> categories(const std::string& name)
{
    Category one;
    one.id = one.name = name;
    return {one};
}

std::vector<Project> projects(const std::string& path)
{
    Project one;
    one.p = path;
    return {one};
}

Analysis analysis(const std::string& path, std::int64_t free = 0)
{
    Analysis one;
    one.result.path = path;
    one.free = free;
    return one;
}

using Order = std::array<std::size_t, 3>;

/// Calls `check` with every order in which three answers can arrive.
void inEveryOrder(const std::function<void(const Order&)>& check)
{
    Order order = {0, 1, 2};
    do {
        check(order);
    } while (std::next_permutation(order.begin(), order.end()));
}

} // namespace

TEST_F(LiveScanGuards, ACleanScanWithoutForceKeepsAResultThatIsHeld)
{
    EXPECT_TRUE(live->clean().isIdle());
    unawaited(live->scanClean(false));
    EXPECT_TRUE(live->clean().isLoading());
    held.clean.answer(0, categories("first"));
    ASSERT_TRUE(live->clean().isLoaded());
    unawaited(live->scanClean(false));
    EXPECT_EQ(held.clean.count(), 1U);
    unawaited(live->scanClean(true));
    EXPECT_EQ(held.clean.count(), 2U);
    EXPECT_TRUE(live->clean().isLoading());
}

TEST_F(LiveScanGuards, AForcedCleanScanDuringARunningOneDropsTheFirstResult)
{
    unawaited(live->scanClean(true));
    unawaited(live->scanClean(true));
    held.clean.answer(0, categories("first"));
    EXPECT_TRUE(live->clean().isLoading());
    held.clean.answer(1, categories("second"));
    ASSERT_TRUE(live->clean().isLoaded());
    EXPECT_EQ(live->clean().value()->at(0).name, "second");
}

TEST_F(LiveScanGuards, AScanUnderWayIsNoReasonToStopEvenWithoutForce)
{
    unawaited(live->scanClean(false));
    unawaited(live->scanClean(false));
    EXPECT_EQ(held.clean.count(), 2U);
    unawaited(live->scanPurge(false));
    unawaited(live->scanPurge(false));
    EXPECT_EQ(held.purge.count(), 2U);
}

TEST_F(LiveScanGuards, OfThreeCleanScansTheLastOneCountsInWhateverOrderTheyArrive)
{
    std::size_t first = 0;
    inEveryOrder([&](const Order& order) {
        for (int i = 0; i < 3; ++i) {
            unawaited(live->scanClean(true));
        }
        bool arrived = false;
        for (const std::size_t call : order) {
            held.clean.answer(first + call, categories(std::to_string(call)));
            arrived = arrived || call == 2;
            EXPECT_EQ(live->clean().isLoaded(), arrived);
        }
        EXPECT_EQ(live->clean().value()->at(0).name, "2");
        first += 3;
    });
}

TEST_F(LiveScanGuards, OfThreePurgeScansTheLastOneCountsInWhateverOrderTheyArrive)
{
    std::size_t first = 0;
    inEveryOrder([&](const Order& order) {
        for (int i = 0; i < 3; ++i) {
            unawaited(live->scanPurge(true));
        }
        bool arrived = false;
        for (const std::size_t call : order) {
            held.purge.answer(first + call, projects(std::to_string(call)));
            arrived = arrived || call == 2;
            EXPECT_EQ(live->purge().isLoaded(), arrived);
        }
        EXPECT_EQ(live->purge().value()->at(0).p, "2");
        first += 3;
    });
}

TEST_F(LiveScanGuards, APurgeScanWithoutForceKeepsAResultThatIsHeld)
{
    unawaited(live->scanPurge(false));
    held.purge.answer(0, projects("first"));
    unawaited(live->scanPurge(false));
    EXPECT_EQ(held.purge.count(), 1U);
    EXPECT_EQ(live->purge().value()->at(0).p, "first");
}

TEST_F(LiveScanGuards, CleanAndPurgeDoNotMindEachOther)
{
    unawaited(live->scanClean(true));
    unawaited(live->scanPurge(true));
    held.clean.answer(0, categories("c"));
    held.purge.answer(0, projects("p"));
    EXPECT_TRUE(live->clean().isLoaded());
    EXPECT_TRUE(live->purge().isLoaded());
}

TEST_F(LiveScanGuards, WhoAwaitsAScanSeesItsResult)
{
    auto scan = live->scanClean(true);
    EXPECT_FALSE(scan.isReady());
    held.clean.answer(0, categories("c"));
    EXPECT_TRUE(scan.isReady());
    EXPECT_TRUE(live->clean().isLoaded());
}

TEST_F(LiveScanGuards, AnAnalysisOfAnotherFolderDropsTheFirstResult)
{
    unawaited(live->analyze("/first"));
    unawaited(live->analyze("/second"));
    held.analyze.answer(0, analysis("/first", 1));
    EXPECT_TRUE(live->analysis().isLoading());
    EXPECT_EQ(live->analyzeFree(), 0);
    held.analyze.answer(1, analysis("/second", 2));
    ASSERT_TRUE(live->analysis().isLoaded());
    EXPECT_EQ(live->analysis().value()->path, "/second");
    EXPECT_EQ(live->analyzeFree(), 2);
}

TEST_F(LiveScanGuards, OfThreeFoldersTheLastOneCountsInWhateverOrderTheyArrive)
{
    std::size_t first = 0;
    inEveryOrder([&](const Order& order) {
        for (const char* path : {"/0", "/1", "/2"}) {
            unawaited(live->analyze(path));
        }
        bool arrived = false;
        for (const std::size_t call : order) {
            held.analyze.answer(first + call, analysis("/" + std::to_string(call)));
            arrived = arrived || call == 2;
            EXPECT_EQ(live->analysis().isLoaded(), arrived);
        }
        EXPECT_EQ(live->analysis().value()->path, "/2");
        first += 3;
    });
}

TEST_F(LiveScanGuards, AnAnalysisWithoutAPathRepeatsTheLastOneAndBeginsWithTheOverview)
{
    unawaited(live->analyze(std::nullopt));
    unawaited(live->analyze("/folder"));
    unawaited(live->analyze(std::nullopt));
    unawaited(live->analyze(""));
    EXPECT_EQ(held.analyzed, (std::vector<std::string>{"", "/folder", "/folder", ""}));
    EXPECT_EQ(live->analyzePath(), "");
}

TEST_F(LiveScanGuards, ThePathIsTheGuardSoTwoAnalysesOfOneFolderBothCount)
{
    unawaited(live->analyze("/folder"));
    unawaited(live->analyze("/folder"));
    held.analyze.answer(1, analysis("/folder", 2));
    held.analyze.answer(0, analysis("/folder", 1));
    EXPECT_EQ(live->analyzeFree(), 1);
}

TEST_F(LiveScanGuards, ResultsThatArriveAfterTheEndOfTheStoreHarmNobody)
{
    unawaited(live->scanClean(true));
    unawaited(live->scanPurge(true));
    unawaited(live->analyze("/folder"));
    auto awaited = live->scanClean(true);
    live.reset();
    held.clean.answer(0, categories("late"));
    held.clean.answer(1, categories("late"));
    held.purge.answer(0, projects("late"));
    held.analyze.answer(0, analysis("/folder"));
    EXPECT_TRUE(awaited.isReady());
}

} // namespace zolva::test
