#include "core/StatusDecoder.h"

#include "core/StatusSample.h"

#include <gtest/gtest.h>

#include <array>
#include <string>
#include <string_view>
#include <vector>

namespace zolva::test {

namespace {

using nlohmann::json;

enum class Kind
{
    Text,
    Whole,
    Float,
    Flag,
    Date,
    Record,
    Records,
    Floats
};
enum class Presence
{
    Required,
    Optional
};

struct Key
{
    std::string_view pointer; ///< into the sample
    Kind kind;
    Presence presence = Presence::Required;
};

constexpr std::array keys = {
    Key{"/collected_at", Kind::Date},
    Key{"/host", Kind::Text},
    Key{"/platform", Kind::Text},
    Key{"/uptime", Kind::Text},
    Key{"/uptime_seconds", Kind::Whole},
    Key{"/procs", Kind::Whole},
    Key{"/hardware", Kind::Record},
    Key{"/hardware/model", Kind::Text},
    Key{"/hardware/cpu_model", Kind::Text},
    Key{"/hardware/total_ram", Kind::Text},
    Key{"/hardware/disk_size", Kind::Text},
    Key{"/hardware/os_version", Kind::Text},
    Key{"/hardware/refresh_rate", Kind::Text},
    Key{"/health_score", Kind::Whole},
    Key{"/health_score_msg", Kind::Text},
    Key{"/cpu", Kind::Record},
    Key{"/cpu/usage", Kind::Float},
    Key{"/cpu/per_core", Kind::Floats},
    Key{"/cpu/per_core_estimated", Kind::Flag},
    Key{"/cpu/load1", Kind::Float},
    Key{"/cpu/load5", Kind::Float},
    Key{"/cpu/load15", Kind::Float},
    Key{"/cpu/core_count", Kind::Whole},
    Key{"/cpu/logical_cpu", Kind::Whole},
    Key{"/cpu/p_core_count", Kind::Whole},
    Key{"/cpu/e_core_count", Kind::Whole},
    Key{"/gpu", Kind::Records, Presence::Optional},
    Key{"/gpu/0/name", Kind::Text},
    Key{"/gpu/0/usage", Kind::Float},
    Key{"/gpu/0/memory_used", Kind::Whole},
    Key{"/gpu/0/memory_total", Kind::Whole},
    Key{"/gpu/0/core_count", Kind::Whole},
    Key{"/gpu/0/note", Kind::Text},
    Key{"/memory", Kind::Record},
    Key{"/memory/used", Kind::Whole},
    Key{"/memory/total", Kind::Whole},
    Key{"/memory/available", Kind::Whole},
    Key{"/memory/used_percent", Kind::Float},
    Key{"/memory/swap_used", Kind::Whole},
    Key{"/memory/swap_total", Kind::Whole},
    Key{"/memory/cached", Kind::Whole},
    Key{"/memory/pressure", Kind::Text},
    Key{"/disks", Kind::Records},
    Key{"/disks/0/mount", Kind::Text},
    Key{"/disks/0/device", Kind::Text},
    Key{"/disks/0/used", Kind::Whole},
    Key{"/disks/0/total", Kind::Whole},
    Key{"/disks/0/used_percent", Kind::Float},
    Key{"/disks/0/fstype", Kind::Text},
    Key{"/disks/0/external", Kind::Flag},
    Key{"/trash_size", Kind::Whole},
    Key{"/trash_approx", Kind::Flag},
    Key{"/disk_io", Kind::Record},
    Key{"/disk_io/read_rate", Kind::Float},
    Key{"/disk_io/write_rate", Kind::Float},
    Key{"/network", Kind::Records},
    Key{"/network/0/name", Kind::Text},
    Key{"/network/0/rx_rate_mbs", Kind::Float},
    Key{"/network/0/tx_rate_mbs", Kind::Float},
    Key{"/network/0/ip", Kind::Text},
    Key{"/network_history", Kind::Record},
    Key{"/network_history/rx_history", Kind::Floats},
    Key{"/network_history/tx_history", Kind::Floats},
    Key{"/proxy", Kind::Record},
    Key{"/proxy/enabled", Kind::Flag},
    Key{"/proxy/type", Kind::Text},
    Key{"/proxy/host", Kind::Text},
    Key{"/batteries", Kind::Records, Presence::Optional},
    Key{"/batteries/0/percent", Kind::Whole},
    Key{"/batteries/0/status", Kind::Text},
    Key{"/batteries/0/time_left", Kind::Text},
    Key{"/batteries/0/health", Kind::Text},
    Key{"/batteries/0/cycle_count", Kind::Whole},
    Key{"/batteries/0/capacity", Kind::Whole},
    Key{"/thermal", Kind::Record},
    Key{"/thermal/cpu_temp", Kind::Float},
    Key{"/thermal/gpu_temp", Kind::Float},
    Key{"/thermal/battery_temp", Kind::Float},
    Key{"/thermal/fan_speed", Kind::Float},
    Key{"/thermal/fan_count", Kind::Whole},
    Key{"/thermal/system_power", Kind::Float},
    Key{"/thermal/adapter_power", Kind::Float},
    Key{"/thermal/battery_power", Kind::Float},
    Key{"/sensors", Kind::Text, Presence::Optional},
    Key{"/bluetooth", Kind::Records, Presence::Optional},
    Key{"/bluetooth/0/name", Kind::Text},
    Key{"/bluetooth/0/connected", Kind::Flag},
    Key{"/bluetooth/0/battery", Kind::Text},
    Key{"/top_processes", Kind::Records, Presence::Optional},
    Key{"/top_processes/0/pid", Kind::Whole},
    Key{"/top_processes/0/ppid", Kind::Whole},
    Key{"/top_processes/0/name", Kind::Text},
    Key{"/top_processes/0/command", Kind::Text},
    Key{"/top_processes/0/cpu", Kind::Float},
    Key{"/top_processes/0/memory", Kind::Float},
    Key{"/top_processes/0/memory_bytes", Kind::Whole},
    Key{"/process_watch", Kind::Record},
    Key{"/process_watch/enabled", Kind::Flag},
    Key{"/process_watch/cpu_threshold", Kind::Float},
    Key{"/process_watch/window", Kind::Text},
    Key{"/process_alerts", Kind::Records},
    Key{"/process_alerts/0/pid", Kind::Whole, Presence::Optional},
    Key{"/process_alerts/0/name", Kind::Text, Presence::Optional},
};

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
