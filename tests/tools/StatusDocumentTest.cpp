#include "mole/StatusDocument.h"

#include "tools/StatusKeys.h"

#include <nlohmann/json.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <limits>
#include <string>

namespace zolva::test {

namespace {

using namespace mole;
using Json = nlohmann::json;

/// A machine that has one of everything, under names of odd bytes.
Sample fullSample()
{
    Sample sample;
    sample.collectedAt = std::chrono::system_clock::time_point(std::chrono::milliseconds(5));
    sample.host = {"host\xff", "Linux test", 3'600};
    sample.hardware = {"model\n", "cpu", "os"};
    sample.cpu.usage = 12.345;
    sample.cpu.cores = {{10, 20}, true};
    sample.cpu.counts = {2, 2, 1, 1};
    sample.memory.total = 2'000'000'000;
    sample.memory.used = 500'000'000;
    sample.memory.stalls = MemoryStalls{6, 0};
    sample.disks = {{"/", "/dev/a", "ext4", 50, 200, 100, false},
                    {"/mnt/\xc3", "/dev/b", "vfat", 98, 100, 2, true}};
    sample.network.interfaces = {{"eth0", 1.5, 0.25, "10.0.0.1", true}};
    sample.network.receivedHistory = {0, 1.5};
    sample.network.sentHistory = {0, 0.25};
    sample.processes = {7, {{42, 1, "na\xfe", "na\xfe --x", 150, 1'000'000'000}}};
    sample.power.batteries = {{50, "Full", "", "Good", 3, 90}};
    sample.trash = {4'096, true};
    return sample;
}

} // namespace

TEST(StatusDocument, AMachineThatHasEverythingIsToldWithEveryKeyInItsType)
{
    const Json document = Json::parse(statusDocument(fullSample()), nullptr, false);
    ASSERT_TRUE(document.is_object());
    EXPECT_EQ(faultsOf(document), std::vector<std::string>());
    EXPECT_EQ(document.at("disks").size(), 2U);
    EXPECT_EQ(document.at("batteries").size(), 1U);
}

TEST(StatusDocument, AMachineThatTellsNothingIsToldWithEveryKeyInItsTypeToo)
{
    const Json document = Json::parse(statusDocument(Sample()), nullptr, false);
    ASSERT_TRUE(document.is_object());
    EXPECT_EQ(faultsOf(document), std::vector<std::string>());
    EXPECT_EQ(document.at("hardware").at("total_ram"), "");
    EXPECT_EQ(document.at("hardware").at("disk_size"), "");
    EXPECT_EQ(document.at("memory").at("pressure"), "");
    EXPECT_TRUE(document.at("batteries").empty());
}

TEST(StatusDocument, TheCheckOfTheKeysFindsAMissingNullOrWrongOne)
{
    Json document = Json::parse(statusDocument(fullSample()));
    document.erase("procs");
    document["network"] = nullptr;
    document["memory"]["total"] = 3.5;
    document["batteries"][0]["percent"] = "50";
    document["disks"][1].erase("fstype");
    document["sensors"] = Json::array();
    const std::vector<std::string> faults = faultsOf(document);
    for (const char* expected :
         {".procs", ".network", "memory.total", "batteries.percent", "disks.fstype", ".sensors"}) {
        EXPECT_NE(std::ranges::find(faults, expected), faults.end()) << expected;
    }
}

TEST(StatusDocument, ReadingsArriveUnderTheirKeys)
{
    const Json document = Json::parse(statusDocument(fullSample()));
    EXPECT_EQ(document.at("collected_at"), "1970-01-01T00:00:00.005Z");
    EXPECT_EQ(document.at("uptime"), "1h 0m");
    EXPECT_EQ(document.at("procs"), 7);
    EXPECT_EQ(document.at("hardware").at("disk_size"), "200 bytes");
    EXPECT_EQ(document.at("cpu").at("usage"), 12.35);
    EXPECT_EQ(document.at("cpu").at("per_core_estimated"), true);
    EXPECT_EQ(document.at("memory").at("pressure"), "Pressure raised");
    EXPECT_EQ(document.at("disks").at(0).at("used_percent"), 25);
    EXPECT_EQ(document.at("disks").at(1).at("external"), true);
    EXPECT_EQ(document.at("top_processes").at(0).at("memory"), 50);
    EXPECT_EQ(document.at("trash_size"), 4'096);
    EXPECT_EQ(document.at("trash_approx"), true);
    EXPECT_EQ(document.at("health_score_msg"), "A disk is nearly full");
}

TEST(StatusDocument, OddBytesBecomeReplacementsAndTheDocumentStaysOneLine)
{
    const std::string line = statusDocument(fullSample());
    EXPECT_EQ(line.find('\n'), std::string::npos);
    const Json document = Json::parse(line);
    EXPECT_EQ(document.at("host"), "host\xEF\xBF\xBD");
    EXPECT_EQ(document.at("hardware").at("model"), "model\n");
    EXPECT_EQ(document.at("top_processes").at(0).at("command"), "na\xEF\xBF\xBD --x");
}

TEST(StatusDocument, ANumberThatIsNoneIsToldAsZero)
{
    Sample sample;
    sample.cpu.usage = std::numeric_limits<double>::quiet_NaN();
    sample.thermal.cpu = std::numeric_limits<double>::infinity();
    const Json document = Json::parse(statusDocument(sample));
    EXPECT_EQ(document.at("cpu").at("usage"), 0);
    EXPECT_EQ(document.at("thermal").at("cpu_temp"), 0);
    EXPECT_EQ(document.at("health_score").get<int>(), 90);
}

} // namespace zolva::test
