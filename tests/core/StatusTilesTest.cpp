#include "core/StatusTiles.h"

#include <gtest/gtest.h>

namespace zolva::test {

namespace {

StatusResult reading()
{
    StatusResult status;
    status.healthScore = 87;
    status.healthScoreMsg = "Fine";
    status.cpu.usage = 12.6;
    status.cpu.load1 = 0.126;
    status.cpu.load5 = 2;
    status.cpu.load15 = 10.5;
    status.memory.used = 3'449'000'000;
    status.memory.total = 16'600'000'000;
    return status;
}

constexpr VolumeSpace halfFree{.available = 249'600'000'000, .total = 500'000'000'000};

TEST(StatusTiles, AreRoundedAndSizesAreDecimal)
{
    const auto tiles = statusTiles(reading(), halfFree);
    const auto line = [](const StatusTile& tile) {
        return tile.label + "|" + tile.value + "|" + tile.unit + "|" + tile.sub;
    };
    EXPECT_EQ(line(tiles[0]), "Health|87|/ 100|Fine");
    EXPECT_EQ(line(tiles[1]), "CPU|13|%|Load 0.13 · 2.00 · 10.50");
    EXPECT_EQ(line(tiles[2]), "Memory|3.4|of 17 GB|Pressure normal");
    EXPECT_EQ(line(tiles[3]), "Free space|250|GB|50% of 500 GB");
}

TEST(StatusTiles, PressureFallsBackOnThePercentageAbove85)
{
    StatusResult status = reading();
    status.memory.usedPercent = 85;
    EXPECT_EQ(statusTiles(status, halfFree)[2].sub, "Pressure normal");
    status.memory.usedPercent = 85.1;
    EXPECT_EQ(statusTiles(status, halfFree)[2].sub, "Pressure high");
    status.memory.pressure = "warn";
    EXPECT_EQ(statusTiles(status, halfFree)[2].sub, "warn");
}

TEST(StatusTiles, AVolumeOfUnknownSizeHasNothingFree)
{
    const auto tiles = statusTiles(reading(), {});
    EXPECT_EQ(tiles[3].value, "0");
    EXPECT_EQ(tiles[3].sub, "0% of 0 GB");
}

TEST(StatusTiles, HaveWholeNumbersHoweverLargeTheyAre)
{
    StatusResult status = reading();
    status.cpu.usage = 1e300;
    EXPECT_EQ(statusTiles(status, halfFree)[1].value.size(), 301);
}

} // namespace

} // namespace zolva::test
