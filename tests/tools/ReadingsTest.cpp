#include "mole/ReadingsCpu.h"
#include "mole/ReadingsHost.h"
#include "mole/ReadingsMemory.h"
#include "mole/ReadingsProcesses.h"

#include "support/TempTree.h"

#include <gtest/gtest.h>

#include <string>

namespace zolva::test {

using namespace mole;

TEST(CpuTimes, AllAndEachCoreAreSummedWithWaitingAsIdle)
{
    const CpuTimes times = parseCpuTimes("cpu  10 1 5 100 7 2 3 4 99 99\n"
                                         "cpu0 4 0 2 50 1 0 0 0 0 0\n"
                                         "cpu2 6 1 3 50 6 2 3 4 0 0\n"
                                         "intr 12345\nctxt 1\n");
    EXPECT_EQ(times.all, (CpuTicks{132, 107}));
    ASSERT_EQ(times.cores.size(), 2U);
    EXPECT_EQ(times.cores.at(0), (CpuTicks{57, 51}));
    EXPECT_EQ(times.cores.at(2), (CpuTicks{75, 56}));
}

TEST(CpuTimes, MissingLinesGarbageAndHugeNumbersArePassedOver)
{
    EXPECT_EQ(parseCpuTimes("").all, CpuTicks());
    EXPECT_EQ(parseCpuTimes("cpu\ncpu 1 2\ncpuX 1 2 3 4 5\n").all, CpuTicks());
    EXPECT_EQ(parseCpuTimes("cpu 99999999999999999999999 1 1 1 1 1 1 1\n").all, CpuTicks());
    EXPECT_EQ(parseCpuTimes("cpu 1 2 3 x 5\n").all, CpuTicks());
    EXPECT_TRUE(parseCpuTimes("cpu99999999999 1 2 3 4 5\ncpu-1 1 2 3 4 5\n").cores.empty());
    EXPECT_EQ(parseCpuTimes("cpu 1 2 3 4\n").all, (CpuTicks{10, 4}));
}

TEST(CpuUsage, IsThePartOfTheTimeThatWasNotIdle)
{
    EXPECT_DOUBLE_EQ(cpuUsage({100, 50}, {200, 75}), 75);
    EXPECT_DOUBLE_EQ(cpuUsage({100, 50}, {200, 150}), 0);
}

TEST(CpuUsage, StaysWithinItsBoundsWhenCountersFall)
{
    EXPECT_DOUBLE_EQ(cpuUsage({200, 75}, {100, 50}), 0);
    EXPECT_DOUBLE_EQ(cpuUsage({100, 50}, {200, 40}), 100);
    EXPECT_DOUBLE_EQ(cpuUsage({100, 50}, {110, 90}), 0);
    EXPECT_DOUBLE_EQ(cpuUsage({100, 50}, {100, 50}), 0);
}

TEST(CpuUsage, ACoreThatWasJustSwitchedOnIsEstimatedAndSaidToBe)
{
    const CpuTimes before{{100, 50}, {{0, {100, 50}}}};
    const CpuTimes same{{200, 100}, {{0, {200, 150}}}};
    const CpuTimes more{{200, 100}, {{0, {200, 150}}, {1, {10, 0}}}};
    EXPECT_FALSE(coreUsage(before, same).estimated);
    const CoreUsage usage = coreUsage(before, more);
    EXPECT_TRUE(usage.estimated);
    EXPECT_EQ(usage.percent, (std::vector<double>{0, 50}));
}

namespace {

void addCpu(TempTree& tree, int number, int core, int capacity)
{
    const std::string folder = "system/cpu/cpu" + std::to_string(number);
    tree.text(folder + "/topology/physical_package_id", "0\n");
    tree.text(folder + "/topology/core_id", std::to_string(core) + "\n");
    tree.text(folder + "/cpu_capacity", std::to_string(capacity) + "\n");
}

} // namespace

TEST(CoreCounts, ThreadsOfACoreCountOnceAndAnOfflineOneNotAtAll)
{
    TempTree tree;
    addCpu(tree, 0, 0, 1024);
    addCpu(tree, 1, 0, 1024);
    addCpu(tree, 2, 1, 1024);
    addCpu(tree, 3, 1, 1024);
    tree.text("system/cpu/cpu3/online", "0\n");
    tree.folder("system/cpu/cpufreq");
    const CoreCounts counts = readCoreCounts(tree.root());
    EXPECT_EQ(counts.physical, 2);
    EXPECT_EQ(counts.logical, 3);
    EXPECT_EQ(counts.performance, 0);
    EXPECT_EQ(counts.efficiency, 0);
}

TEST(CoreCounts, KindsAreToldByTheListOfSmallCoresOrByCapacity)
{
    TempTree listed;
    for (int number = 0; number < 6; ++number) {
        addCpu(listed, number, number < 4 ? number / 2 : number, 0);
    }
    listed.text("cpu_atom/cpus", "4-5\n");
    EXPECT_EQ(readCoreCounts(listed.root()).performance, 2);
    EXPECT_EQ(readCoreCounts(listed.root()).efficiency, 2);

    TempTree byCapacity;
    addCpu(byCapacity, 0, 0, 400);
    addCpu(byCapacity, 1, 1, 400);
    addCpu(byCapacity, 2, 2, 1024);
    EXPECT_EQ(readCoreCounts(byCapacity.root()).performance, 1);
    EXPECT_EQ(readCoreCounts(byCapacity.root()).efficiency, 2);
    EXPECT_EQ(readCoreCounts(byCapacity.path("none")).logical, 0);
}

TEST(MemoryDetails, AvailableAndCachedAreInBytes)
{
    const MemoryDetails details = parseMemoryDetails("MemTotal: 100 kB\nMemAvailable:  60 kB\n"
                                                     "Buffers: 1 kB\nCached: 2 kB\n"
                                                     "SwapCached: 50 kB\nSReclaimable: 4 kB\n");
    EXPECT_EQ(details.available, 60 * 1024);
    EXPECT_EQ(details.cached, 7 * 1024);
}

TEST(MemoryDetails, MissingLinesGarbageAndHugeNumbersArePassedOver)
{
    EXPECT_FALSE(parseMemoryDetails("").available);
    EXPECT_FALSE(parseMemoryDetails("MemAvailable: lots kB\n\n:\nMemAvailable:").available);
    EXPECT_FALSE(parseMemoryDetails("MemAvailable: -5 kB").available);
    EXPECT_FALSE(parseMemoryDetails("MemAvailable: 9223372036854775807 kB").available);
    const std::string most = "9007199254740991 kB\n";
    EXPECT_GT(parseMemoryDetails("Cached: " + most + "Buffers: " + most).cached, 0);
}

TEST(MemoryPressure, TheShareOfTenSecondsIsRead)
{
    const auto stalls = parseMemoryStalls("some avg10=1.44 avg60=0.27 avg300=0.16 total=5670922\n"
                                          "full avg10=0.50 avg60=0.27 avg300=0.16 total=5496488\n");
    EXPECT_EQ(stalls, (MemoryStalls{1.44, 0.5}));
    EXPECT_EQ(parseMemoryStalls("some avg10=2.00"), (MemoryStalls{2, 0}));
}

TEST(MemoryPressure, WhatIsNoSuchTextGivesNone)
{
    for (const char* text : {"", "full avg10=1.0", "some avg10=", "some avg10=x", "some avg60=1",
                             "some avg10=-1", "some avg10=1e9", "some avg10=nan"}) {
        EXPECT_FALSE(parseMemoryStalls(text)) << text;
    }
}

TEST(MemoryPressure, TheWordsFollowTheStallsAndAreEmptyWithoutThem)
{
    EXPECT_EQ(pressureText(std::nullopt), "");
    EXPECT_EQ(pressureText(MemoryStalls{4.99, 4}), "Pressure normal");
    EXPECT_EQ(pressureText(MemoryStalls{5, 0}), "Pressure raised");
    EXPECT_EQ(pressureText(MemoryStalls{20, 10}), "Pressure high");
}

TEST(ProcessStats, TheNameMayHoldBracketsBlanksAndAnyByte)
{
    const auto stat = parseProcessStat("42 (a) b (\xff\n) S 7 1 2 3 4 5 6 7 8 9 11 22 13 14 15 16 "
                                       "17 18 1234 20 300 22 23\n");
    ASSERT_TRUE(stat);
    EXPECT_EQ(stat->pid, 42);
    EXPECT_EQ(stat->parent, 7);
    EXPECT_EQ(stat->name, "a) b (\xff\n");
    EXPECT_EQ(stat->ticks, 33U);
    EXPECT_EQ(stat->started, 1234U);
    EXPECT_EQ(stat->residentPages, 300);
}

TEST(ProcessStats, AnotherFormIsNone)
{
    for (const char* text :
         {"", "42", "42 (a", "42 )a(", "x (a) S 7 1 2 3", "42 (a) S",
          "42 (a) S 7 1 2 3 4 5 6 7 8 9",
          "42 (a) S 7 1 2 3 4 5 6 7 8 9 99999999999999999999 22 13 14 15 16 17 18 19 20 21 22"}) {
        EXPECT_FALSE(parseProcessStat(text)) << text;
    }
}

TEST(ProcessStats, UsageIsThatOfTheSameProcessSinceTheLastReading)
{
    const auto process = [](std::int64_t pid, std::uint64_t started, std::uint64_t ticks) {
        return ProcessStat{pid, 1, "p", ticks, started, 0};
    };
    const std::vector<ProcessStat> before = {process(1, 5, 100), process(3, 50, 10),
                                             process(4, 60, 500)};
    const std::vector<ProcessStat> after = {
        process(1, 5, 150),   // went on
        process(2, 40, 9000), // older than the last reading, which overlooked it
        process(3, 70, 20),   // another one under the same number
        process(5, 80, 30),   // new
    };
    EXPECT_EQ(processUsage(before, after, Seconds(2), 100), (std::vector<double>{25, 0, 10, 15}));
}

TEST(ProcessStats, ACommandIsItsArgumentsOrTheNameInBrackets)
{
    using namespace std::string_literals;
    EXPECT_EQ(commandText("ls\0-l\0a b\0"s, "ls"), "ls -l a b");
    EXPECT_EQ(commandText("", "kworker"), "[kworker]");
    EXPECT_EQ(commandText("\0\0"s, "odd"), "[odd]");
}

TEST(HostTexts, UptimeLeavesOutWhatIsZeroInFront)
{
    EXPECT_EQ(uptimeText(-5), "0m");
    EXPECT_EQ(uptimeText(59), "0m");
    EXPECT_EQ(uptimeText(3'600), "1h 0m");
    EXPECT_EQ(uptimeText(273'906), "3d 4h 5m");
}

TEST(HostTexts, TheProcessorsNameIsFoundUnderEachOfItsKeys)
{
    EXPECT_EQ(cpuModelIn("processor\t: 0\nmodel\t\t: 17\nmodel name\t: Fast: One\n"), "Fast: One");
    EXPECT_EQ(cpuModelIn("cpu\t\t: POWER9, altivec\n"), "POWER9, altivec");
    EXPECT_EQ(cpuModelIn("model name\t:\nno colon\n"), "");
}

TEST(HostTexts, TheSystemsNameLosesItsQuotes)
{
    EXPECT_EQ(systemNameIn("NAME=x\nPRETTY_NAME=\"Some Linux 12\"\n"), "Some Linux 12");
    EXPECT_EQ(systemNameIn("PRETTY_NAME='Some'\n"), "Some");
    EXPECT_EQ(systemNameIn("PRETTY_NAME=Plain"), "Plain");
    EXPECT_EQ(systemNameIn("PRETTY_NAME=\""), "\"");
    EXPECT_EQ(systemNameIn(""), "");
}

TEST(HostTexts, TheModelHasItsMakerOnceOrComesFromTheDeviceTree)
{
    TempTree tree;
    tree.text("sys/class/dmi/id/sys_vendor", "Maker\n");
    tree.text("sys/class/dmi/id/product_name", "Model 7\n");
    tree.text("board/device-tree/model", std::string("Board 4\0", 8));
    EXPECT_EQ(readHardware(tree.path("sys"), tree.path("p"), tree.path("o")).model,
              "Maker Model 7");
    EXPECT_EQ(readHardware(tree.path("s"), tree.path("board"), tree.path("o")).model, "Board 4");
    EXPECT_EQ(readHardware(tree.path("s"), tree.path("p"), tree.path("o")).model, "");
}

TEST(Proxy, IsToldWithoutItsPassword)
{
    const auto only = [](const std::string& name, const std::string& value) {
        return proxyFrom(
            [=](const char* asked) { return name == asked ? std::optional(value) : std::nullopt; });
    };
    const ProxyReading proxy = only("https_proxy", "http://me:se@cret@proxy.example:3128/x");
    EXPECT_TRUE(proxy.enabled);
    EXPECT_EQ(proxy.type, "HTTP");
    EXPECT_EQ(proxy.host, "proxy.example:3128");
    EXPECT_EQ(only("ALL_PROXY", "socks5://10.0.0.1:1080").type, "SOCKS5");
    EXPECT_EQ(only("http_proxy", "proxy:8080").host, "proxy:8080");
    EXPECT_FALSE(only("http_proxy", " ").enabled);
    EXPECT_FALSE(only("no_proxy", "localhost").enabled);
}

} // namespace zolva::test
