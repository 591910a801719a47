#include "core/StatusDecoder.h"

#include "core/StatusKeys.h"
#include "core/StatusSample.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <string>
#include <vector>

namespace zolva::test {

namespace {

using nlohmann::json;

json::json_pointer pointerTo(const Key& key)
{
    return json::json_pointer(std::string(key.pointer));
}

/// "/disks/0/used" as "disks[0].used".
std::string shownPath(const Key& key)
{
    std::string shown;
    std::string rest(key.pointer.substr(1));
    for (std::size_t at = 0; at != std::string::npos;) {
        const std::size_t slash = rest.find('/', at);
        const std::string part = rest.substr(at, slash - at);
        if (part == "0") {
            shown += "[0]";
        } else {
            shown += (shown.empty() ? "" : ".") + part;
        }
        at = slash == std::string::npos ? slash : slash + 1;
    }
    return shown;
}

json with(const Key& key, const json& value)
{
    json document = statusDocument();
    document[pointerTo(key)] = value;
    return document;
}

json without(const Key& key)
{
    json document = statusDocument();
    const json::json_pointer pointer = pointerTo(key);
    document[pointer.parent_pointer()].erase(pointer.back());
    return document;
}

tl::expected<StatusResult, std::string> decoded(const json& document)
{
    return decodeStatus(document.dump());
}

void expectFailureAt(const json& document, const std::string& path)
{
    const auto result = decoded(document);
    ASSERT_FALSE(result) << path;
    EXPECT_NE(result.error().find("\"" + path), std::string::npos) << result.error();
}

/// One value of each type of JSON, by what could take it.
struct Sample
{
    const char* text;
    std::vector<Kind> takenBy;
};

const std::vector<Sample> samples = {
    {"true", {Kind::Flag}},
    {"7", {Kind::Whole, Kind::Float}},
    {"3.5", {Kind::Float}},
    {"18446744073709551615", {Kind::Float}},
    {"\"7\"", {Kind::Text}},
    {"{}", {}},
    {"[]", {Kind::Records, Kind::Floats}},
    {"[[]]", {}},
    {"[null]", {}},
    {"[true]", {}},
    {"[1]", {Kind::Floats}},
};

} // namespace

TEST(StatusDecoder, EveryFieldTakesTheValueOfItsOwnKey)
{
    const auto status = decoded(statusDocument());
    ASSERT_TRUE(status) << status.error();
    using namespace std::chrono;
    EXPECT_EQ(status->collectedAt, sys_days(year(2026) / 1 / 2) + hours(3) + minutes(4) +
                                       seconds(5) + milliseconds(678));
    EXPECT_EQ(status->host, "workbench");
    EXPECT_EQ(status->platform, "linux");
    EXPECT_EQ(status->uptime, "3d 4h");
    EXPECT_EQ(status->uptimeSeconds, 273600);
    EXPECT_EQ(status->procs, 312);
    EXPECT_EQ(status->hardware.cpuModel, "C");
    EXPECT_EQ(status->hardware.refreshRate, "60 Hz");
    EXPECT_EQ(status->healthScore, 91);
    EXPECT_EQ(status->healthScoreMsg, "Good");
    EXPECT_EQ(status->cpu.usage, 12.5);
    EXPECT_EQ(status->cpu.perCore, (std::vector<double>{10, 15.5}));
    EXPECT_FALSE(status->cpu.perCoreEstimated);
    EXPECT_EQ(status->cpu.load1, 0.5);
    EXPECT_EQ(status->cpu.load5, 0.25);
    EXPECT_EQ(status->cpu.load15, 1);
    EXPECT_EQ(status->cpu.coreCount, 2);
    EXPECT_EQ(status->cpu.logicalCPU, 4);
    EXPECT_EQ(status->cpu.pCoreCount, 1);
    EXPECT_EQ(status->cpu.eCoreCount, 3);
    ASSERT_EQ(status->gpu->size(), 1U);
    EXPECT_EQ(status->gpu->front().memoryTotal, 6);
    EXPECT_EQ(status->memory.used, 8'000'000'000);
    EXPECT_EQ(status->memory.total, 16'000'000'000);
    EXPECT_EQ(status->memory.available, 7'000'000'000);
    EXPECT_EQ(status->memory.usedPercent, 50.25);
    EXPECT_EQ(status->memory.cached, 3);
    EXPECT_EQ(status->memory.pressure, "normal");
    EXPECT_EQ(status->trashSize, 123'456'789'012);
    EXPECT_TRUE(status->trashApprox);
    EXPECT_EQ(status->diskIO.writeRate, 2.5);
    EXPECT_EQ(status->thermal.fanCount, 1);
    EXPECT_EQ(status->sensors, "quiet");
    EXPECT_EQ(status->processWatch.cpuThreshold, 80.5);
}

TEST(StatusDecoder, EveryElementOfAListIsRead)
{
    json document = statusDocument();
    for (const char* list :
         {"gpu", "disks", "network", "batteries", "bluetooth", "top_processes", "process_alerts"}) {
        document[list].push_back(document[list][0]);
    }
    document["disks"][1]["mount"] = "/home";
    document["process_alerts"][1]["pid"] = 43;
    const auto status = decoded(document);
    ASSERT_TRUE(status) << status.error();
    EXPECT_EQ(status->disks.at(0).mount, "/");
    EXPECT_EQ(status->disks.at(1).mount, "/home");
    EXPECT_TRUE(status->disks.at(1).external);
    EXPECT_EQ(status->gpu->size(), 2U);
    EXPECT_EQ(status->network.at(1).txRateMbs, 0.75);
    EXPECT_EQ(status->batteries->at(1).capacity, 95);
    EXPECT_EQ(status->bluetooth->at(1).battery, "90%");
    EXPECT_EQ(status->topProcesses->at(1).memoryBytes, 4096);
    EXPECT_EQ(status->processAlerts.at(1).pid, 43);
}

TEST(StatusDecoder, AMissingRequiredKeyFailsTheLineAndIsNamedAtAnyDepth)
{
    for (const Key& key : keys) {
        if (key.presence == Presence::Required) {
            expectFailureAt(without(key), shownPath(key) + "\" is missing");
        } else {
            EXPECT_TRUE(decoded(without(key))) << key.pointer;
        }
    }
}

TEST(StatusDecoder, NullFailsARequiredKeyAndLeavesAnOptionalOneAbsent)
{
    for (const Key& key : keys) {
        if (key.presence == Presence::Required) {
            expectFailureAt(with(key, nullptr), shownPath(key) + "\" is null");
        } else {
            EXPECT_TRUE(decoded(with(key, nullptr))) << key.pointer;
        }
    }
}

TEST(StatusDecoder, AnotherTypeFailsTheLineOptionalKeysIncluded)
{
    for (const Key& key : keys) {
        for (const Sample& sample : samples) {
            const json value = json::parse(sample.text);
            const bool taken = std::find(sample.takenBy.begin(), sample.takenBy.end(), key.kind) !=
                               sample.takenBy.end();
            if (taken) {
                EXPECT_TRUE(decoded(with(key, value))) << key.pointer << " " << sample.text;
            } else {
                expectFailureAt(with(key, value), shownPath(key));
            }
        }
    }
}

TEST(StatusDecoder, ANullGpuAndNoGpuAreAbsentAndAnEmptyListIsEmpty)
{
    json document = statusDocument();
    document["gpu"] = nullptr;
    EXPECT_FALSE(decoded(document)->gpu.has_value());
    document.erase("gpu");
    EXPECT_FALSE(decoded(document)->gpu.has_value());
    document["gpu"] = json::array();
    ASSERT_TRUE(decoded(document)->gpu.has_value());
    EXPECT_TRUE(decoded(document)->gpu->empty());
}

TEST(StatusDecoder, NullDisksFail)
{
    json document = statusDocument();
    document["disks"] = nullptr;
    expectFailureAt(document, "disks\"");
}

TEST(StatusDecoder, AFractionFailsAWholeNumber)
{
    json document = statusDocument();
    document["procs"] = 3.5;
    expectFailureAt(document, "procs\"");
}

TEST(StatusDecoder, AWholeNumberIsReadAsAFloat)
{
    json document = statusDocument();
    document["cpu"]["usage"] = 12;
    ASSERT_TRUE(decoded(document));
    EXPECT_EQ(decoded(document)->cpu.usage, 12.0);
}

TEST(StatusDecoder, AnEmptyPressureDecodes)
{
    json document = statusDocument();
    document["memory"]["pressure"] = "";
    ASSERT_TRUE(decoded(document));
    EXPECT_EQ(decoded(document)->memory.pressure, "");
}

TEST(StatusDecoder, AnEmptyAlertIsOneAlertWithBothFieldsAbsent)
{
    json document = statusDocument();
    document["process_alerts"] = json::array({json::object()});
    const auto status = decoded(document);
    ASSERT_TRUE(status) << status.error();
    ASSERT_EQ(status->processAlerts.size(), 1U);
    EXPECT_FALSE(status->processAlerts[0].pid.has_value());
    EXPECT_FALSE(status->processAlerts[0].name.has_value());
}

TEST(StatusDecoder, SensorsAsAnObjectOrAListFail)
{
    json document = statusDocument();
    document["sensors"] = json::object();
    expectFailureAt(document, "sensors\"");
    document["sensors"] = json::array();
    expectFailureAt(document, "sensors\"");
}

TEST(StatusDecoder, AnUnknownKeyChangesNothing)
{
    json document = statusDocument();
    document["moon_phase"] = "full";
    document["cpu"]["stepping"] = {1, 2, 3};
    const auto status = decoded(document);
    ASSERT_TRUE(status) << status.error();
    EXPECT_EQ(status->cpu.usage, 12.5);
    EXPECT_EQ(json::parse(status->document), document);
}

TEST(StatusDecoder, EmptyListsAreValidWhereTheKeyMustBeThere)
{
    json document = statusDocument();
    for (const char* list : {"disks", "network", "process_alerts"}) {
        document[list] = json::array();
    }
    ASSERT_TRUE(decoded(document));
    EXPECT_TRUE(decoded(document)->disks.empty());
}

TEST(StatusDecoder, TheFirstKeyThatFailsIsTheOneTold)
{
    json document = statusDocument();
    document["host"] = 1;
    document["procs"] = "many";
    expectFailureAt(document, "host\" is not a text");
}

TEST(StatusDecoder, WholeNumbersReachTheEndsOf64BitsAndNoFarther)
{
    const auto trash = [](const char* number) {
        json document = statusDocument();
        document["trash_size"] = json::parse(number);
        return decoded(document);
    };
    EXPECT_EQ(trash("9223372036854775807")->trashSize, INT64_MAX);
    EXPECT_EQ(trash("-9223372036854775808")->trashSize, INT64_MIN);
    EXPECT_FALSE(trash("9223372036854775808"));
    EXPECT_FALSE(trash("18446744073709551615"));
    EXPECT_FALSE(trash("-9223372036854775809"));
    EXPECT_FALSE(trash("1e19"));
    EXPECT_EQ(trash("3.0")->trashSize, 3);
    EXPECT_EQ(trash("1e3")->trashSize, 1000);
}

TEST(StatusDecoder, ANumberThatNoDoubleHoldsFailsTheLine)
{
    std::string line = statusLine(12.5);
    line.replace(line.find("12.5"), 4, "1e999");
    const auto status = decodeStatus(line);
    ASSERT_FALSE(status);
    EXPECT_NE(status.error().find("out of range"), std::string::npos) << status.error();
}

TEST(StatusDecoder, ADateThatIsNoneIsToldWithItsText)
{
    json document = statusDocument();
    document["collected_at"] = "2026-01-02T03:04:05";
    expectFailureAt(document, "collected_at\": Cannot parse date: 2026-01-02T03:04:05");
}

TEST(StatusDecoder, ADateWithoutAFractionDecodesToo)
{
    json document = statusDocument();
    document["collected_at"] = "2026-01-02T03:04:05Z";
    EXPECT_TRUE(decoded(document));
}

TEST(StatusDecoder, ADocumentThatIsNoObjectFails)
{
    for (const char* line : {"[]", "null", "3", "\"text\"", "true", "", "   ", "{", "{}x"}) {
        EXPECT_FALSE(decodeStatus(line)) << line;
    }
}

TEST(StatusDecoder, AHundredThousandBracketsFailWithoutHarm)
{
    for (const char* bracket : {"[", "{\"a\":"}) {
        std::string line;
        for (int i = 0; i < 100'000; ++i) {
            line += bracket;
        }
        const auto status = decodeStatus(line);
        ASSERT_FALSE(status);
        EXPECT_NE(status.error().find("nested too deeply"), std::string::npos) << status.error();
    }
    const std::string closed = std::string(100'000, '[') + std::string(100'000, ']');
    EXPECT_FALSE(decodeStatus(closed));
}

TEST(StatusDecoder, BracketsWithinATextAreNoNesting)
{
    json document = statusDocument();
    document["host"] = std::string(1000, '[') + "\\\"" + std::string(1000, '{');
    const auto status = decoded(document);
    ASSERT_TRUE(status) << status.error();
    EXPECT_EQ(status->host.size(), 2002U);
}

TEST(StatusDecoder, ANulAnywhereFailsTheLine)
{
    const std::string line = statusLine();
    EXPECT_FALSE(decodeStatus(line + std::string(1, '\0')));
    EXPECT_FALSE(decodeStatus(line + std::string(1, '\0') + "rubbish"));
    EXPECT_FALSE(decodeStatus(std::string(1, '\0') + line));
}

TEST(StatusDecoder, BytesThatAreNoUtf8AreReadAsReplacementCharacters)
{
    std::string line = statusLine();
    line.replace(line.find("workbench"), 9,
                 "work\xFF"
                 "bench");
    const auto status = decodeStatus(line);
    ASSERT_TRUE(status) << status.error();
    EXPECT_EQ(status->host, "work\xEF\xBF\xBD"
                            "bench");
}

} // namespace zolva::test
