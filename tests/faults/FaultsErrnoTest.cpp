#include "faults/SystemCalls.h"
#include "faults/World.h"

#include "files/FolderTally.h"
#include "platform/DeleteTree.h"
#include "platform/FileDescriptor.h"
#include "platform/SystemTrash.h"
#include "removal/disk/PurgeFromTrash.h"
#include "removal/disk/PutBack.h"
#include "removal/disk/TrashOnePath.h"
#include "support/SecondVolume.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/syscall.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdio>
#include <filesystem>
#include <functional>
#include <iostream>
#include <iterator>
#include <numeric>

namespace {

using namespace zolva;
using namespace zolva::test;

constexpr std::array errors = {ENOSPC, EIO, EACCES, EPERM, EROFS, EXDEV, EMFILE, ENOENT, ELOOP};

/// What the program said: a letter for the outcome, and the text that goes with it.
struct Told
{
    char outcome = '?';
    std::string text;
};

struct Scenario
{
    const char* what;
    bool startsInTrash;
    std::function<std::string(const World& world, const std::string& landed)> body;
    std::function<std::string(const World& world, const std::string& landed, const Told& told,
                              const FaultPlan& plan)>
        verdict;
};

struct Campaign
{
    int runs = 0;
    int violations = 0;
    std::string first;
};

void judge(const Scenario& scenario, std::uint32_t seed, const FaultPlan& plan, Campaign& campaign)
{
    const World world(seed);
    const std::string landed = scenario.startsInTrash ? world.trashItem() : std::string();
    const TracedRun run = runTraced([&] { return scenario.body(world, landed); }, plan);
    ++campaign.runs;
    std::string wrong;
    if (run.end != RunEnd::Finished || run.report.empty()) {
        wrong = run.end == RunEnd::Hung ? "it hung" : "it died";
    } else if (!world.bystandersAreUntouched()) {
        wrong = "something else was touched";
    } else {
        wrong = scenario.verdict(world, landed, {run.report[0], run.report.substr(1)}, plan);
    }
    if (!wrong.empty() && ++campaign.violations == 1) {
        campaign.first = std::string(scenario.what) + ", seed " + std::to_string(seed) + ", call " +
                         std::to_string(plan.failAt) + " error " + std::to_string(plan.error) +
                         (plan.andAllAfter  ? " from then on"
                          : plan.carriedOut ? " though it was carried out"
                                            : "") +
                         ": " + wrong + " (" + run.report + ")";
    }
}

/// In the short campaign a link, and to delete or put back also a folder with things in it and a
/// file.
std::vector<std::uint32_t> seedsFor(const Scenario& scenario)
{
    if (!isLong()) {
        return scenario.startsInTrash ? std::vector<std::uint32_t>{1, 5, 10}
                                      : std::vector<std::uint32_t>{1};
    }
    std::vector<std::uint32_t> all(50);
    std::iota(all.begin(), all.end(), 1U);
    return all;
}

/// Every error for the first world and in the long campaign, else the more telling ones.
std::vector<int> errorsFor(std::uint32_t seed, const FaultPlan& plan)
{
    if (isLong() || (seed == 1 && plan.alwaysRefused < 0)) {
        return {errors.begin(), errors.end()};
    }
    return {EIO, EACCES, ENOENT};
}

/// Each call of the run fails with each error, once and from then on; and is told as failed though
/// it was carried out.
Campaign failEverywhere(const Scenario& scenario, FaultPlan plan = {})
{
    Campaign campaign;
    for (const std::uint32_t seed : seedsFor(scenario)) {
        const World world(seed);
        const std::string landed = scenario.startsInTrash ? world.trashItem() : std::string();
        const auto calls =
            runTraced([&] { return scenario.body(world, landed); }, plan).calls.size();
        for (int at = 0; at < static_cast<int>(calls); ++at) {
            for (const int error : errorsFor(seed, plan)) {
                plan.failAt = at;
                plan.error = error;
                plan.andAllAfter = false;
                judge(scenario, seed, plan, campaign);
                plan.andAllAfter = true;
                judge(scenario, seed, plan, campaign);
            }
            plan.error = EIO;
            plan.andAllAfter = false;
            plan.carriedOut = true;
            judge(scenario, seed, plan, campaign);
            plan.carriedOut = false;
        }
        plan.failAt = -1;
        plan.andAllAfter = false;
    }
    std::cout << scenario.what << ": " << campaign.runs << " runs, " << campaign.violations
              << " violations\n";
    return campaign;
}

std::string trashBody(const World& world, const std::string&)
{
    const TrashAttempt attempt = trashOnePath(world.item());
    if (const auto* failed = std::get_if<TrashFailed>(&attempt.outcome)) {
        return "f" + failed->text;
    }
    if (std::holds_alternative<TrashMoved>(attempt.outcome)) {
        return "m" + attempt.landed.value_or("");
    }
    return "a";
}

std::string trashVerdict(const World& world, const std::string&, const Told& told,
                         const FaultPlan& plan)
{
    if (world.places() != 1) {
        return "the item is in " + std::to_string(world.places()) + " places";
    }
    if (!world.isAtItsPlace() && world.recordedName().empty()) {
        return "it is in the Trash without a record";
    }
    switch (told.outcome) {
    case 'm':
        if (world.isAtItsPlace()) {
            return "told as moved, but it was not";
        }
        return told.text.empty() || pictureOf(told.text) == world.itemPicture()
                   ? ""
                   : "it is not where it was told to be";
    case 'f':
        return world.isAtItsPlace() && !told.text.empty() ? "" : "told as failed, without reason";
    default:
        // The system itself said that it is not there.
        return plan.error == ENOENT || !world.isAtItsPlace() ? "" : "told as absent";
    }
}

TEST(FaultsErrno, AMoveThatFailsAnywhereLeavesTheItemAndSaysSo)
{
    const Campaign campaign = failEverywhere({"trash", false, trashBody, trashVerdict});
    EXPECT_EQ(campaign.violations, 0) << campaign.first;
}

TEST(FaultsErrno, SoDoesOneWhereTheSystemCannotRenameWithoutReplacing)
{
    FaultPlan plan;
    plan.alwaysRefused = SYS_renameat2;
    plan.alwaysError = EINVAL;
    const Campaign campaign =
        failEverywhere({"trash without the flag", false, trashBody, trashVerdict}, plan);
    EXPECT_EQ(campaign.violations, 0) << campaign.first;
}

TEST(FaultsErrno, WithoutThatRenameItemsAreMovedAllTheSame)
{
    FaultPlan plan;
    plan.alwaysRefused = SYS_renameat2;
    plan.alwaysError = EINVAL;
    for (std::uint32_t seed = 1; seed <= 20; ++seed) {
        const World world(seed);
        const TracedRun run = runTraced([&] { return trashBody(world, {}); }, plan);
        EXPECT_EQ(run.report.substr(0, 1), "m") << run.report;
        EXPECT_EQ(world.places(), 1);
        EXPECT_FALSE(world.recordedName().empty());
        EXPECT_TRUE(world.bystandersAreUntouched());
    }
}

TEST(FaultsErrno, TheShortCampaignRemovesALinkAFolderAndAFile)
{
    EXPECT_TRUE(std::filesystem::is_symlink(std::filesystem::symlink_status(World(1).item())));
    EXPECT_GT(World(5).itemPicture().size(), 1U);
    EXPECT_TRUE(
        std::filesystem::is_regular_file(std::filesystem::symlink_status(World(10).item())));
    for (const std::uint32_t seed : {5U, 10U}) {
        const World world(seed);
        EXPECT_EQ(purgeFromTrash({world.trashItem()}).purged, 1);
    }
}

TEST(FaultsErrno, WithoutTheCallThatSeesMountsNoOtherMountIsEmptied)
{
    TempTree tree;
    const std::string kept = tree.text("neighbour/kept", "kept");
    const std::string inner = tree.text("doomed/t/folder/x", "goes");
    const std::string point = tree.folder("doomed/t/point");
    FaultPlan plan;
    plan.alwaysRefused = SYS_openat2;
    plan.alwaysError = ENOSYS;
    const auto remove = [&] {
        const TracedRun run = runTraced(
            [&] {
                const FileDescriptor above(
                    ::open(tree.path("doomed").c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
                return std::to_string(deleteTree(above.get(), "t").removed);
            },
            plan);
        EXPECT_EQ(run.end, RunEnd::Finished);
    };
    const bool mounted = withBindMount(tree.path("neighbour"), point, remove);
    EXPECT_EQ(content(kept), "kept");
    EXPECT_EQ(stands(inner), !mounted);
    remove();
    EXPECT_FALSE(stands(tree.path("doomed/t")));
}

TEST(FaultsErrno, ADeletionThatFailsAnywhereIsNotToldAsDone)
{
    const Campaign campaign = failEverywhere(
        {"purge", true,
         [](const World&, const std::string& landed) {
             const Purge purge = purgeFromTrash({landed});
             if (purge.purged == 1) {
                 return std::string("p");
             }
             return purge.problems.empty() ? std::string("a") : "f" + purge.problems.front();
         },
         [](const World&, const std::string& landed, const Told& told,
            const FaultPlan& plan) -> std::string {
             if (told.outcome == 'f') {
                 return told.text.empty() ? "told as failed, without reason" : "";
             }
             const bool systemLied =
                 plan.error == ENOENT && (plan.andAllAfter || told.outcome == 'a');
             return !stands(landed) || systemLied ? "" : "told as gone, but it is there";
         }});
    EXPECT_EQ(campaign.violations, 0) << campaign.first;
}

TEST(FaultsErrno, AReturnThatFailsAnywhereLeavesTheItemInOnePlace)
{
    const Campaign campaign = failEverywhere(
        {"put back", true,
         [](const World&, const std::string& landed) {
             const auto back = putBackByName(landed.substr(landed.rfind('/') + 1));
             return back ? "b" + *back : "f" + back.error();
         },
         [](const World& world, const std::string& landed, const Told& told,
            const FaultPlan&) -> std::string {
             if (world.places() != 1) {
                 return "the item is in " + std::to_string(world.places()) + " places";
             }
             if (told.outcome == 'b') {
                 return world.isAtItsPlace() ? "" : "told as put back, but it was not";
             }
             if (told.text.size() <= landed.size() - landed.rfind('/')) {
                 return "told as failed, without reason";
             }
             return world.recordedName().empty() ? "it lost its record" : "";
         }});
    EXPECT_EQ(campaign.violations, 0) << campaign.first;
}

TEST(FaultsErrno, WhatCannotBeLookedAtAfterItsMoveIsMovedWithoutAPlaceToPurge)
{
    for (const std::uint32_t seed : {1U, 5U, 10U}) {
        const auto body = [](const World& world) {
            const TrashAttempt attempt = trashOnePath(world.item());
            const auto* moved = std::get_if<TrashMoved>(&attempt.outcome);
            return moved && !attempt.landed && !attempt.identity ? std::to_string(moved->bytes)
                                                                 : "otherwise";
        };
        const World undisturbed(seed);
        const std::int64_t bytes = folderTally(undisturbed.item()).bytes;
        const auto calls = runTraced([&] { return body(undisturbed); }, {}).calls;
        const auto rename = std::find(calls.begin(), calls.end(), SYS_renameat2);
        ASSERT_NE(rename, calls.end());
        FaultPlan plan;
        plan.failAt = static_cast<int>(
            std::distance(calls.begin(), std::find(rename, calls.end(), SYS_newfstatat)));
        plan.error = EACCES;
        const World world(seed);
        const TracedRun run = runTraced([&] { return body(world); }, plan);
        EXPECT_EQ(run.report, std::to_string(bytes)) << "seed " << seed;
        EXPECT_FALSE(world.recordedName().empty());
        EXPECT_FALSE(stands(world.item()));
    }
}

TEST(FaultsErrno, TheHarnessSeesAFalseSuccess)
{
    const Campaign campaign =
        failEverywhere({"a move nobody looked after", false,
                        [](const World& world, const std::string&) {
                            static_cast<void>(makeHomeTrash(world.home().home()));
                            const std::string landed = world.home().inTrash("moved");
                            static_cast<void>(::renameat(AT_FDCWD, world.item().c_str(), AT_FDCWD,
                                                         landed.c_str()));
                            return "m" + landed;
                        },
                        trashVerdict});
    EXPECT_GT(campaign.violations, 0);
}

} // namespace
