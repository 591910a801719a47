#include "mole/Health.h"

#include <gtest/gtest.h>

namespace zolva::test {

using namespace mole;

TEST(HealthScore, AnIdleMachineHasAllPoints)
{
    EXPECT_EQ(healthOf({}), (Health{100, "Everything looks fine"}));
    EXPECT_EQ(healthOf({70, 1.5, 80, 5, 85, 80}), (Health{100, "Everything looks fine"}));
}

TEST(HealthScore, TheWorstOfEverythingHasNone)
{
    EXPECT_EQ(healthOf({100, 5, 98, 40, 99, 100}).score, 0);
    EXPECT_EQ(healthOf({1e9, 1e9, 1e9, 1e9, 1e9, 1e9}).score, 0);
}

TEST(HealthScore, EachReadingTakesItsPointsInProportionAndIsNamed)
{
    EXPECT_EQ(healthOf({.cpuUsage = 85}), (Health{93, "The processor is busy"}));
    EXPECT_EQ(healthOf({.loadPerCore = 5}), (Health{90, "Work is queuing up"}));
    EXPECT_EQ(healthOf({.memoryUsed = 98}), (Health{75, "Memory is nearly full"}));
    EXPECT_EQ(healthOf({.memoryStall = 40}), (Health{85, "Programs wait for memory"}));
    EXPECT_EQ(healthOf({.fullestDisk = 92}), (Health{88, "A disk is nearly full"}));
    EXPECT_EQ(healthOf({.cpuTemperature = 90}), (Health{95, "The processor is hot"}));
}

TEST(HealthScore, TheMessageNamesWhatTookMost)
{
    const Health health = healthOf({.cpuUsage = 100, .memoryUsed = 98});
    EXPECT_EQ(health, (Health{60, "Memory is nearly full"}));
}

TEST(HealthScore, LessThanAPointIsNotWorthAMessage)
{
    EXPECT_EQ(healthOf({.fullestDisk = 85.5}).message, "Everything looks fine");
    EXPECT_EQ(healthOf({.fullestDisk = 85.6}).message, "A disk is nearly full");
}

} // namespace zolva::test
