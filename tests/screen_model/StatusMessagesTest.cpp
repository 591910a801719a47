#include "screens/model/StatusMessages.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zolva::test {

namespace {

using Series = std::vector<double>;

std::string footer(const std::optional<StatusResult>& status)
{
    return statusFooter(status).toStdString();
}

std::string chart(const Series& cpu, const Series& mem)
{
    return spokenChart(cpu, mem).toStdString();
}

TEST(StatusFooter, NamesTheMachineAndItsUptime)
{
    StatusResult status;
    status.hardware.model = "Workbench";
    status.hardware.cpuModel = "Eight cores";
    status.uptime = "3d 4h";
    EXPECT_EQ(footer(status),
              "Polled live from mo. Workbench · Eight cores · uptime 3d 4h. Zolva reads status "
              "only.");
}

TEST(StatusFooter, SaysNothingBeforeTheFirstReading)
{
    EXPECT_EQ(footer(std::nullopt), "");
}

TEST(SpokenChart, TellsTheLastAndTheHighestOfEachSeries)
{
    EXPECT_EQ(chart({10, 90.4, 12.6}, {50, 50.6}), "CPU 13%, highest 90%. Memory 51%, highest 51%");
}

TEST(SpokenChart, TellsOfASeriesWithoutAnySampleInWords)
{
    EXPECT_EQ(chart({}, {5}), "CPU not read yet. Memory 5%, highest 5%");
}

TEST(SustainedCpu, IsNotToldFromFewerThanFiveSamples)
{
    EXPECT_FALSE(isCpuSustained({}, 50));
    EXPECT_FALSE(isCpuSustained({100}, 50));
    EXPECT_FALSE(isCpuSustained(Series(4, 100), 50));
    EXPECT_TRUE(isCpuSustained(Series(5, 100), 50));
}

TEST(SustainedCpu, IsAboveTheThresholdAndNotOnIt)
{
    EXPECT_FALSE(isCpuSustained(Series(5, 80), 80));
    EXPECT_TRUE(isCpuSustained({80, 80, 80, 80, 80.1}, 80));
    EXPECT_TRUE(isCpuSustained(Series(5, 100), 99));
}

TEST(SustainedCpu, IsTheMeanOfTheLastTwentySamples)
{
    Series cpu(40, 100);
    cpu.insert(cpu.end(), 20, 10);
    EXPECT_FALSE(isCpuSustained(cpu, 50));
    cpu.assign(40, 0);
    cpu.insert(cpu.end(), 20, 51);
    EXPECT_TRUE(isCpuSustained(cpu, 50));
    // The twenty-first from the end does not count.
    cpu.assign(1, 1000);
    cpu.insert(cpu.end(), 20, 50);
    EXPECT_FALSE(isCpuSustained(cpu, 50));
}

TEST(SustainedCpu, IsTheMeanOfAllSamplesWhereTheyAreFewer)
{
    EXPECT_TRUE(isCpuSustained({0, 100, 100, 100, 100}, 79));
    EXPECT_FALSE(isCpuSustained({0, 100, 100, 100, 100}, 80));
}

TEST(SustainedCpu, WarnsWithTheThreshold)
{
    EXPECT_EQ(sustainedWarning(80).toStdString(), "CPU has been above 80% for a minute.");
}

} // namespace

} // namespace zolva::test
