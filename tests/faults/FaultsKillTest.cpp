#include "faults/SystemCalls.h"
#include "faults/World.h"

#include "platform/SystemTrash.h"
#include "removal/disk/PurgeFromTrash.h"
#include "removal/disk/PutBack.h"
#include "removal/disk/TrashOnePath.h"

#include <gtest/gtest.h>

#include <fcntl.h>

#include <filesystem>
#include <functional>
#include <iostream>

namespace {

using namespace zolva;
using namespace zolva::test;

int wantedKills()
{
    return isLong() ? 20000 : 1200;
}

struct Campaign
{
    int kills = 0;
    int violations = 0;
    std::string first;
};

struct Scenario
{
    const char* what;
    bool startsInTrash;
    std::function<void(const World& world, const std::string& landed)> body;
    /// What is wrong after a death, or after the end; empty if nothing is.
    std::function<std::string(const World& world, const std::string& landed, bool finished)>
        verdict;
};

std::string nameOf(const std::string& landed)
{
    return landed.substr(landed.rfind('/') + 1);
}

void judge(const Scenario& scenario, std::uint32_t seed, int at, Campaign& campaign, RunEnd& end)
{
    const World world(seed);
    const std::string landed = scenario.startsInTrash ? world.trashItem() : std::string();
    FaultPlan plan;
    plan.killAt = at;
    const TracedRun run = runTraced(
        [&] {
            scenario.body(world, landed);
            return std::string();
        },
        plan);
    end = run.end;
    campaign.kills += end == RunEnd::Killed ? 1 : 0;
    std::string wrong;
    if (end != RunEnd::Killed && end != RunEnd::Finished) {
        wrong = "it ended by itself";
    } else if (!world.bystandersAreUntouched()) {
        wrong = "something else was touched";
    } else {
        wrong = scenario.verdict(world, landed, end == RunEnd::Finished);
    }
    if (!wrong.empty()) {
        campaign.violations += 1;
        campaign.first = std::string(scenario.what) + ", seed " + std::to_string(seed) + ", call " +
                         std::to_string(at) + ": " + wrong;
    }
}

/// Kills the body at each of its calls in turn, in a new world each time, over one random world
/// after another until there were enough kills.
Campaign killEverywhere(const Scenario& scenario, int wanted)
{
    Campaign campaign;
    std::uint32_t seed = 1;
    for (; campaign.kills < wanted && campaign.violations == 0; ++seed) {
        RunEnd end = RunEnd::Killed;
        for (int at = 0; end == RunEnd::Killed && campaign.violations == 0; ++at) {
            judge(scenario, seed, at, campaign, end);
        }
    }
    std::cout << scenario.what << ": " << campaign.kills << " kills in " << seed - 1 << " worlds, "
              << campaign.violations << " violations\n";
    return campaign;
}

std::string inOnePlaceWithItsRecord(const World& world, const std::string&, bool finished)
{
    if (world.places() != 1) {
        return "the item is in " + std::to_string(world.places()) + " places";
    }
    if (!world.isAtItsPlace() && world.recordedName().empty()) {
        return "it is in the Trash without a record";
    }
    if (finished && world.isAtItsPlace()) {
        return "it was not moved";
    }
    // What a death left behind hinders nobody.
    if (world.isAtItsPlace() && !trashOnePath(world.item()).landed) {
        return "it cannot be moved any more";
    }
    const auto back = putBackByName(world.recordedName());
    return back && world.isAtItsPlace() ? "" : "it cannot be put back";
}

TEST(FaultsKill, AnItemOnItsWayToTheTrashIsAlwaysInOnePlaceWithItsRecord)
{
    const Campaign campaign = killEverywhere({"trash", false,
                                              [](const World& world, const std::string&) {
                                                  static_cast<void>(trashOnePath(world.item()));
                                              },
                                              inOnePlaceWithItsRecord},
                                             wantedKills());
    EXPECT_EQ(campaign.violations, 0) << campaign.first;
}

TEST(FaultsKill, ADeletionThatEndsEarlyTouchesNothingElseAndCanBeFinished)
{
    const auto deleted = [](const World& world, const std::string& landed) {
        const auto trash = pinHomeTrash(world.home().home());
        return trash && deleteFromTrash(*trash, nameOf(landed)).has_value();
    };
    const Campaign campaign = killEverywhere(
        {"purge", true,
         [&](const World& world, const std::string& landed) {
             // A link that leads out of the Trash is not purged; emptying takes that too.
             if (purgeFromTrash({landed}).purged == 0) {
                 static_cast<void>(deleted(world, landed));
             }
         },
         [&](const World& world, const std::string& landed, bool finished) -> std::string {
             if (!stands(landed)) {
                 // What is half gone lies where nothing is put back from, until the next emptying.
                 const std::string expunged = world.home().trash() + "/expunged";
                 if (finished && !namesIn(expunged).empty()) {
                     return "it ended with something left out of sight";
                 }
                 deleteLeftovers(*pinHomeTrash(world.home().home()));
                 return namesIn(expunged).empty() ? "" : "what was left cannot be deleted";
             }
             if (pictureOf(landed) != world.itemPicture()) {
                 return "it is half gone where it can be put back from";
             }
             if (finished || !stands(world.home().infoOf(nameOf(landed)))) {
                 return finished ? "it was not deleted" : "it lost its record before it was gone";
             }
             return deleted(world, landed) && !stands(landed) ? "" : "it cannot be deleted";
         }},
        wantedKills());
    EXPECT_EQ(campaign.violations, 0) << campaign.first;
}

TEST(FaultsKill, AnItemOnItsWayBackIsAlwaysInOnePlace)
{
    const Campaign campaign = killEverywhere(
        {"put back", true,
         [](const World&, const std::string& landed) {
             static_cast<void>(putBackByName(nameOf(landed)));
         },
         [](const World& world, const std::string& landed, bool finished) -> std::string {
             if (world.places() != 1) {
                 return "the item is in " + std::to_string(world.places()) + " places";
             }
             if (world.isAtItsPlace()) {
                 return "";
             }
             if (finished || world.recordedName().empty()) {
                 return finished ? "it was not put back" : "it has no record";
             }
             return putBackItem(landed, world.item()) ? "" : "it cannot be put back";
         }},
        wantedKills());
    EXPECT_EQ(campaign.violations, 0) << campaign.first;
}

TEST(FaultsKill, TheHarnessSeesWhatAMoveInTheWrongOrderLoses)
{
    const Campaign campaign =
        killEverywhere({"record written after the move", false,
                        [](const World& world, const std::string&) {
                            static_cast<void>(makeHomeTrash(world.home().home()));
                            const std::string landed =
                                world.home().inTrash("moved " + world.name().substr(0, 50));
                            std::filesystem::rename(world.item(), landed);
                            static_cast<void>(::open("/", O_RDONLY));
                        },
                        inOnePlaceWithItsRecord},
                       wantedKills());
    EXPECT_GT(campaign.violations, 0);
}

TEST(FaultsKill, TheHarnessSeesWhatACopyInPlaceOfAMoveDoubles)
{
    const Campaign campaign =
        killEverywhere({"copied, then removed", false,
                        [](const World& world, const std::string&) {
                            static_cast<void>(makeHomeTrash(world.home().home()));
                            std::filesystem::copy(world.item(), world.home().inTrash("copied"),
                                                  std::filesystem::copy_options::recursive |
                                                      std::filesystem::copy_options::copy_symlinks);
                            std::filesystem::remove_all(world.item());
                        },
                        inOnePlaceWithItsRecord},
                       wantedKills());
    EXPECT_GT(campaign.violations, 0);
}

} // namespace
