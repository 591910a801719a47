#include "faults/SystemCalls.h"
#include "faults/World.h"

#include "platform/SystemTrash.h"
#include "removal/disk/PurgeFromTrash.h"
#include "removal/disk/PutBack.h"
#include "removal/disk/TrashOnePath.h"

#include <gtest/gtest.h>

#include <iostream>

namespace {

using namespace zolva;
using namespace zolva::test;

int wantedKills()
{
    return isLong() ? 20000 : 1700;
}

/// Kills the body at each of its calls in turn, in a new world each time, over one random world
/// after another until there were enough kills.
template <typename Prepare, typename Body, typename Check>
void campaign(const char* what, Prepare prepare, Body body, Check check)
{
    int kills = 0;
    std::uint32_t seed = 1;
    for (; kills < wantedKills() && !testing::Test::HasFailure(); ++seed) {
        RunEnd end = RunEnd::Killed;
        for (int at = 0; end == RunEnd::Killed && !testing::Test::HasFailure(); ++at) {
            const World world(seed);
            const std::string landed = prepare(world);
            FaultPlan plan;
            plan.killAt = at;
            const TracedRun run = runTraced([&] { return body(world, landed); }, plan);
            end = run.end;
            SCOPED_TRACE(std::string(what) + ", seed " + std::to_string(seed) + ", call " +
                         std::to_string(at));
            ASSERT_TRUE(end == RunEnd::Killed || end == RunEnd::Finished) << run.report;
            kills += end == RunEnd::Killed ? 1 : 0;
            EXPECT_TRUE(world.bystandersAreUntouched());
            check(world, landed, end == RunEnd::Finished);
        }
    }
    std::cout << what << ": " << kills << " kills in " << seed - 1 << " worlds\n";
}

TEST(FaultsKill, AnItemOnItsWayToTheTrashIsAlwaysInOnePlaceWithItsRecord)
{
    campaign(
        "trash", [](const World&) { return std::string(); },
        [](const World& world, const std::string&) {
            return std::to_string(trashOnePath(world.item()).outcome.index());
        },
        [](const World& world, const std::string&, bool finished) {
            EXPECT_EQ(world.places(), 1);
            EXPECT_TRUE(world.isAtItsPlace() || !world.recordedName().empty());
            EXPECT_TRUE(!finished || !world.isAtItsPlace());
            // What a death left behind hinders nobody.
            if (world.isAtItsPlace()) {
                EXPECT_TRUE(trashOnePath(world.item()).landed.has_value());
            }
            EXPECT_EQ(world.places(), 1);
            EXPECT_FALSE(world.recordedName().empty());
            EXPECT_EQ(putBackByName(world.recordedName()), world.item());
            EXPECT_TRUE(world.isAtItsPlace());
        });
}

TEST(FaultsKill, ADeletionThatEndsEarlyTouchesNothingElseAndCanBeFinished)
{
    campaign(
        "purge", [](const World& world) { return world.trashItem(); },
        [](const World& world, const std::string& landed) {
            // Not every item may be purged: a link leads out of the Trash. Emptying takes all.
            const auto trash = pinHomeTrash(world.home().home());
            const auto name = landed.substr(landed.rfind('/') + 1);
            return purgeFromTrash({landed}).purged == 1 || deleteFromTrash(*trash, name)
                       ? std::string("gone")
                       : std::string("kept");
        },
        [](const World& world, const std::string& landed, bool finished) {
            EXPECT_TRUE(!finished || !stands(landed));
            const auto trash = pinHomeTrash(world.home().home());
            const auto name = landed.substr(landed.rfind('/') + 1);
            EXPECT_TRUE(!stands(landed) || stands(world.home().infoOf(name)));
            EXPECT_TRUE(!stands(landed) || deleteFromTrash(*trash, name).has_value());
            EXPECT_FALSE(stands(landed));
        });
}

TEST(FaultsKill, AnItemOnItsWayBackIsAlwaysInOnePlace)
{
    campaign(
        "put back", [](const World& world) { return world.trashItem(); },
        [](const World&, const std::string& landed) {
            return putBackByName(landed.substr(landed.rfind('/') + 1)) ? std::string("back")
                                                                       : std::string("kept");
        },
        [](const World& world, const std::string& landed, bool finished) {
            EXPECT_EQ(world.places(), 1);
            EXPECT_TRUE(world.isAtItsPlace() || !world.recordedName().empty());
            EXPECT_TRUE(!finished || world.isAtItsPlace());
            if (!world.isAtItsPlace()) {
                EXPECT_TRUE(putBackItem(landed, world.item()).has_value());
            }
            EXPECT_TRUE(world.isAtItsPlace());
        });
}

} // namespace
