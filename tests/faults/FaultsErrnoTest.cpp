#include "faults/SystemCalls.h"
#include "faults/World.h"

#include "platform/SystemTrash.h"
#include "removal/disk/PurgeFromTrash.h"
#include "removal/disk/PutBack.h"
#include "removal/disk/TrashOnePath.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/syscall.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <functional>
#include <iostream>

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
                         (plan.andAllAfter ? " from then on" : "") + ": " + wrong + " (" +
                         run.report + ")";
    }
}

/// Each call of the run fails with each error, once and from then on.
Campaign failEverywhere(const Scenario& scenario, FaultPlan plan = {})
{
    Campaign campaign;
    for (std::uint32_t seed = 1; seed <= (isLong() ? 50U : 1U); ++seed) {
        const World world(seed);
        const std::string landed = scenario.startsInTrash ? world.trashItem() : std::string();
        const auto calls =
            runTraced([&] { return scenario.body(world, landed); }, plan).calls.size();
        for (int at = 0; at < static_cast<int>(calls); ++at) {
            for (const int error : errors) {
                plan.failAt = at;
                plan.error = error;
                plan.andAllAfter = false;
                judge(scenario, seed, plan, campaign);
                plan.andAllAfter = true;
                judge(scenario, seed, plan, campaign);
            }
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
