#include "core/StatusDecoder.h"

#include "core/StatusKeys.h"
#include "core/StatusSample.h"

#include <gtest/gtest.h>

#include <chrono>
#include <set>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

namespace zolva::test {

namespace {

using nlohmann::json;

/// The field that a key's value goes to.
struct Field
{
    std::string_view pointer;
    json (*read)(const StatusResult& s);
};

const Field fields[] = {
    {"/host", [](const StatusResult& s) -> json { return s.host; }},
    {"/platform", [](const StatusResult& s) -> json { return s.platform; }},
    {"/uptime", [](const StatusResult& s) -> json { return s.uptime; }},
    {"/uptime_seconds", [](const StatusResult& s) -> json { return s.uptimeSeconds; }},
    {"/procs", [](const StatusResult& s) -> json { return s.procs; }},
    {"/hardware/model", [](const StatusResult& s) -> json { return s.hardware.model; }},
    {"/hardware/cpu_model", [](const StatusResult& s) -> json { return s.hardware.cpuModel; }},
    {"/hardware/total_ram", [](const StatusResult& s) -> json { return s.hardware.totalRam; }},
    {"/hardware/disk_size", [](const StatusResult& s) -> json { return s.hardware.diskSize; }},
    {"/hardware/os_version", [](const StatusResult& s) -> json { return s.hardware.osVersion; }},
    {"/hardware/refresh_rate",
     [](const StatusResult& s) -> json { return s.hardware.refreshRate; }},
    {"/health_score", [](const StatusResult& s) -> json { return s.healthScore; }},
    {"/health_score_msg", [](const StatusResult& s) -> json { return s.healthScoreMsg; }},
    {"/cpu/usage", [](const StatusResult& s) -> json { return s.cpu.usage; }},
    {"/cpu/per_core", [](const StatusResult& s) -> json { return s.cpu.perCore; }},
    {"/cpu/per_core_estimated",
     [](const StatusResult& s) -> json { return s.cpu.perCoreEstimated; }},
    {"/cpu/load1", [](const StatusResult& s) -> json { return s.cpu.load1; }},
    {"/cpu/load5", [](const StatusResult& s) -> json { return s.cpu.load5; }},
    {"/cpu/load15", [](const StatusResult& s) -> json { return s.cpu.load15; }},
    {"/cpu/core_count", [](const StatusResult& s) -> json { return s.cpu.coreCount; }},
    {"/cpu/logical_cpu", [](const StatusResult& s) -> json { return s.cpu.logicalCPU; }},
    {"/cpu/p_core_count", [](const StatusResult& s) -> json { return s.cpu.pCoreCount; }},
    {"/cpu/e_core_count", [](const StatusResult& s) -> json { return s.cpu.eCoreCount; }},
    {"/gpu/0/name", [](const StatusResult& s) -> json { return s.gpu->at(0).name; }},
    {"/gpu/0/usage", [](const StatusResult& s) -> json { return s.gpu->at(0).usage; }},
    {"/gpu/0/memory_used", [](const StatusResult& s) -> json { return s.gpu->at(0).memoryUsed; }},
    {"/gpu/0/memory_total", [](const StatusResult& s) -> json { return s.gpu->at(0).memoryTotal; }},
    {"/gpu/0/core_count", [](const StatusResult& s) -> json { return s.gpu->at(0).coreCount; }},
    {"/gpu/0/note", [](const StatusResult& s) -> json { return s.gpu->at(0).note; }},
    {"/memory/used", [](const StatusResult& s) -> json { return s.memory.used; }},
    {"/memory/total", [](const StatusResult& s) -> json { return s.memory.total; }},
    {"/memory/available", [](const StatusResult& s) -> json { return s.memory.available; }},
    {"/memory/used_percent", [](const StatusResult& s) -> json { return s.memory.usedPercent; }},
    {"/memory/swap_used", [](const StatusResult& s) -> json { return s.memory.swapUsed; }},
    {"/memory/swap_total", [](const StatusResult& s) -> json { return s.memory.swapTotal; }},
    {"/memory/cached", [](const StatusResult& s) -> json { return s.memory.cached; }},
    {"/memory/pressure", [](const StatusResult& s) -> json { return s.memory.pressure; }},
    {"/disks/0/mount", [](const StatusResult& s) -> json { return s.disks.at(0).mount; }},
    {"/disks/0/device", [](const StatusResult& s) -> json { return s.disks.at(0).device; }},
    {"/disks/0/used", [](const StatusResult& s) -> json { return s.disks.at(0).used; }},
    {"/disks/0/total", [](const StatusResult& s) -> json { return s.disks.at(0).total; }},
    {"/disks/0/used_percent",
     [](const StatusResult& s) -> json { return s.disks.at(0).usedPercent; }},
    {"/disks/0/fstype", [](const StatusResult& s) -> json { return s.disks.at(0).fstype; }},
    {"/disks/0/external", [](const StatusResult& s) -> json { return s.disks.at(0).external; }},
    {"/trash_size", [](const StatusResult& s) -> json { return s.trashSize; }},
    {"/trash_approx", [](const StatusResult& s) -> json { return s.trashApprox; }},
    {"/disk_io/read_rate", [](const StatusResult& s) -> json { return s.diskIO.readRate; }},
    {"/disk_io/write_rate", [](const StatusResult& s) -> json { return s.diskIO.writeRate; }},
    {"/network/0/name", [](const StatusResult& s) -> json { return s.network.at(0).name; }},
    {"/network/0/rx_rate_mbs",
     [](const StatusResult& s) -> json { return s.network.at(0).rxRateMbs; }},
    {"/network/0/tx_rate_mbs",
     [](const StatusResult& s) -> json { return s.network.at(0).txRateMbs; }},
    {"/network/0/ip", [](const StatusResult& s) -> json { return s.network.at(0).ip; }},
    {"/network_history/rx_history",
     [](const StatusResult& s) -> json { return s.networkHistory.rxHistory; }},
    {"/network_history/tx_history",
     [](const StatusResult& s) -> json { return s.networkHistory.txHistory; }},
    {"/proxy/enabled", [](const StatusResult& s) -> json { return s.proxy.enabled; }},
    {"/proxy/type", [](const StatusResult& s) -> json { return s.proxy.type; }},
    {"/proxy/host", [](const StatusResult& s) -> json { return s.proxy.host; }},
    {"/batteries/0/percent",
     [](const StatusResult& s) -> json { return s.batteries->at(0).percent; }},
    {"/batteries/0/status",
     [](const StatusResult& s) -> json { return s.batteries->at(0).status; }},
    {"/batteries/0/time_left",
     [](const StatusResult& s) -> json { return s.batteries->at(0).timeLeft; }},
    {"/batteries/0/health",
     [](const StatusResult& s) -> json { return s.batteries->at(0).health; }},
    {"/batteries/0/cycle_count",
     [](const StatusResult& s) -> json { return s.batteries->at(0).cycleCount; }},
    {"/batteries/0/capacity",
     [](const StatusResult& s) -> json { return s.batteries->at(0).capacity; }},
    {"/thermal/cpu_temp", [](const StatusResult& s) -> json { return s.thermal.cpuTemp; }},
    {"/thermal/gpu_temp", [](const StatusResult& s) -> json { return s.thermal.gpuTemp; }},
    {"/thermal/battery_temp", [](const StatusResult& s) -> json { return s.thermal.batteryTemp; }},
    {"/thermal/fan_speed", [](const StatusResult& s) -> json { return s.thermal.fanSpeed; }},
    {"/thermal/fan_count", [](const StatusResult& s) -> json { return s.thermal.fanCount; }},
    {"/thermal/system_power", [](const StatusResult& s) -> json { return s.thermal.systemPower; }},
    {"/thermal/adapter_power",
     [](const StatusResult& s) -> json { return s.thermal.adapterPower; }},
    {"/thermal/battery_power",
     [](const StatusResult& s) -> json { return s.thermal.batteryPower; }},
    {"/sensors", [](const StatusResult& s) -> json { return s.sensors.value(); }},
    {"/bluetooth/0/name", [](const StatusResult& s) -> json { return s.bluetooth->at(0).name; }},
    {"/bluetooth/0/connected",
     [](const StatusResult& s) -> json { return s.bluetooth->at(0).connected; }},
    {"/bluetooth/0/battery",
     [](const StatusResult& s) -> json { return s.bluetooth->at(0).battery; }},
    {"/top_processes/0/pid",
     [](const StatusResult& s) -> json { return s.topProcesses->at(0).pid; }},
    {"/top_processes/0/ppid",
     [](const StatusResult& s) -> json { return s.topProcesses->at(0).ppid; }},
    {"/top_processes/0/name",
     [](const StatusResult& s) -> json { return s.topProcesses->at(0).name; }},
    {"/top_processes/0/command",
     [](const StatusResult& s) -> json { return s.topProcesses->at(0).command; }},
    {"/top_processes/0/cpu",
     [](const StatusResult& s) -> json { return s.topProcesses->at(0).cpu; }},
    {"/top_processes/0/memory",
     [](const StatusResult& s) -> json { return s.topProcesses->at(0).memory; }},
    {"/top_processes/0/memory_bytes",
     [](const StatusResult& s) -> json { return s.topProcesses->at(0).memoryBytes; }},
    {"/process_watch/enabled",
     [](const StatusResult& s) -> json { return s.processWatch.enabled; }},
    {"/process_watch/cpu_threshold",
     [](const StatusResult& s) -> json { return s.processWatch.cpuThreshold; }},
    {"/process_watch/window", [](const StatusResult& s) -> json { return s.processWatch.window; }},
    {"/process_alerts/0/pid",
     [](const StatusResult& s) -> json { return s.processAlerts.at(0).pid.value(); }},
    {"/process_alerts/0/name",
     [](const StatusResult& s) -> json { return s.processAlerts.at(0).name.value(); }},
};

json::json_pointer pointerTo(std::string_view pointer)
{
    return json::json_pointer(std::string(pointer));
}

/// Every value that can be is another one; flags are false.
json distinctDocument()
{
    json document = statusDocument();
    int number = 0;
    for (const Key& key : keys) {
        json& value = document[pointerTo(key.pointer)];
        ++number;
        switch (key.kind) {
        case Kind::Text:
            value = "text " + std::to_string(number);
            break;
        case Kind::Whole:
            value = 1000 + number;
            break;
        case Kind::Float:
            value = number + 0.5;
            break;
        case Kind::Floats:
            value = {number + 0.25, number + 0.75};
            break;
        case Kind::Flag:
            value = false;
            break;
        default:
            break;
        }
    }
    return document;
}

StatusResult decoded(const json& document)
{
    auto status = decodeStatus(document.dump());
    if (!status) {
        throw std::runtime_error(status.error());
    }
    return *std::move(status);
}

} // namespace

TEST(StatusFields, EveryKeyWithAValueHasItsField)
{
    std::set<std::string_view> known;
    for (const Field& field : fields) {
        EXPECT_TRUE(known.insert(field.pointer).second) << field.pointer;
    }
    for (const Key& key : keys) {
        const bool holdsOthers = key.kind == Kind::Record || key.kind == Kind::Records;
        EXPECT_EQ(known.contains(key.pointer), !holdsOthers && key.kind != Kind::Date)
            << key.pointer;
    }
}

TEST(StatusFields, EveryFieldTakesTheValueOfItsOwnKey)
{
    const json document = distinctDocument();
    const StatusResult status = decoded(document);
    std::set<std::string> values;
    for (const Field& field : fields) {
        const json& value = document[pointerTo(field.pointer)];
        EXPECT_EQ(field.read(status), value) << field.pointer;
        EXPECT_TRUE(value.is_boolean() || values.insert(value.dump()).second) << field.pointer;
    }
}

TEST(StatusFields, EveryFlagIsThatOfItsOwnKey)
{
    for (const Key& flag : keys) {
        if (flag.kind != Kind::Flag) {
            continue;
        }
        json document = distinctDocument();
        document[pointerTo(flag.pointer)] = true;
        const StatusResult status = decoded(document);
        for (const Field& field : fields) {
            const json value = field.read(status);
            if (value.is_boolean()) {
                EXPECT_EQ(value, field.pointer == flag.pointer)
                    << flag.pointer << " in " << field.pointer;
            }
        }
    }
}

TEST(StatusFields, TheDateIsThatOfTheDocument)
{
    using namespace std::chrono;
    EXPECT_EQ(decoded(statusDocument()).collectedAt, sys_days(year(2026) / 1 / 2) + hours(3) +
                                                         minutes(4) + seconds(5) +
                                                         milliseconds(678));
}

} // namespace zolva::test
