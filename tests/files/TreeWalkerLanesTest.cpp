#include "files/LargestFiles.h"
#include "files/WalkLane.h"
#include "files/WalkRoots.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <random>
#include <utility>

// Lanes against the rule played by one thread: the same files, dealt to lanes that are cut, walked
// and finished in any order.
namespace {

using zolva::LargestFiles;
using zolva::WalkFolder;
using zolva::WalkFolderRef;
using zolva::WalkFrame;
using zolva::WalkHit;
using zolva::WalkLane;
using zolva::WalkListing;
using zolva::WalkOrder;
using zolva::WalkRoot;

using Hits = std::vector<std::pair<std::string, std::int64_t>>;
using Sizes = std::vector<std::int64_t>;

Hits hitsOf(const LargestFiles& largest)
{
    Hits hits;
    for (const WalkHit& hit : largest.hits()) {
        hits.emplace_back(hit.name, hit.size);
    }
    return hits;
}

/// The rule, as plainly as it can be said.
Hits plainRule(const Sizes& sizes)
{
    Hits hits;
    for (std::size_t i = 0; i < sizes.size(); ++i) {
        const std::pair<std::string, std::int64_t> hit{std::to_string(i), sizes[i]};
        if (hits.size() < 20) {
            hits.push_back(hit);
            continue;
        }
        auto& first = *std::min_element(hits.begin(), hits.end(), [](const auto& a, const auto& b) {
            return a.second < b.second;
        });
        if (hit.second > first.second) {
            first = hit;
        }
    }
    return hits;
}

/// Files that stand in a row, walked by lanes under a random schedule.
Hits byLanes(const Sizes& sizes, std::mt19937& random)
{
    WalkRoot root;
    const WalkFolderRef folder(new WalkFolder);
    folder->root = &root;
    auto listing = std::make_shared<WalkListing>();
    for (const std::int64_t size : sizes) {
        listing->items.push_back({size, 0});
    }
    WalkOrder order;
    auto first = std::make_unique<WalkLane>();
    // Two frames, the later one below.
    const std::size_t middle = sizes.size() / 2;
    first->frames.push_back({folder, listing, middle, sizes.size()});
    first->frames.push_back({folder, listing, 0, middle});
    std::vector<WalkLane*> lanes{&order.begin(std::move(first))};
    while (!lanes.empty()) {
        const std::size_t which = random() % lanes.size();
        WalkLane& lane = *lanes[which];
        if (lane.frames.empty()) {
            order.finish(lane);
            lanes.erase(lanes.begin() + static_cast<std::ptrdiff_t>(which));
            continue;
        }
        if (random() % 40 == 0) {
            if (auto given = lane.giveHalf()) {
                lanes.push_back(&order.insertBehind(lane, std::move(given)));
            }
        }
        for (std::size_t steps = random() % 30; steps > 0 && !lane.frames.empty(); --steps) {
            WalkFrame& frame = lane.frames.back();
            const std::size_t at = frame.next++;
            if (frame.next == frame.end) {
                lane.frames.pop_back();
            }
            if (sizes[at] > std::max(lane.sizesBefore(root).bound(), root.bound.load())) {
                lane.offer(folder, std::to_string(at).c_str(), sizes[at]);
            }
        }
    }
    return hitsOf(root.largest);
}

void expectSameFor(unsigned seeds,
                   const std::function<std::int64_t(std::size_t, std::mt19937&)>& size)
{
    for (unsigned seed = 0; seed < seeds && !::testing::Test::HasFailure(); ++seed) {
        std::mt19937 random(seed);
        Sizes sizes(2 + random() % 900);
        for (std::size_t i = 0; i < sizes.size(); ++i) {
            sizes[i] = size(i, random);
        }
        EXPECT_EQ(byLanes(sizes, random), plainRule(sizes)) << "seed " << seed;
    }
}

TEST(TreeWalkerLanes, FewSizesWithManyTiesAreKeptAsInOneRow)
{
    expectSameFor(400, [](std::size_t, std::mt19937& random) {
        return static_cast<std::int64_t>(random() % 4);
    });
}

TEST(TreeWalkerLanes, ManySizesAreKeptAsInOneRow)
{
    expectSameFor(400, [](std::size_t, std::mt19937& random) {
        return static_cast<std::int64_t>(random() % 1000);
    });
}

TEST(TreeWalkerLanes, EverGrowingSizesAreKeptAsInOneRow)
{
    expectSameFor(400, [](std::size_t at, std::mt19937& random) {
        return static_cast<std::int64_t>(at / 3 + random() % 3);
    });
}

TEST(TreeWalkerLanes, EverSmallerSizesAreKeptAsInOneRow)
{
    expectSameFor(100, [](std::size_t at, std::mt19937&) {
        return static_cast<std::int64_t>(1000 - at / 4);
    });
}

TEST(TreeWalkerLanes, EqualSizesKeepTheFirstTwenty)
{
    expectSameFor(100, [](std::size_t, std::mt19937&) { return std::int64_t{7}; });
}

} // namespace
