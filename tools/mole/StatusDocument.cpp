#include "mole/StatusDocument.h"

#include "files/DisplayPath.h"
#include "files/SizeText.h"
#include "mole/Health.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <ctime>
#include <string_view>

namespace zolva::mole {

namespace {

using Json = nlohmann::ordered_json;

/// Two digits after the point are as much as the readings are worth.
double rounded(double value)
{
    return std::isfinite(value) ? std::round(value * 100) / 100 : 0.0;
}

Json roundedList(const std::vector<double>& values)
{
    Json list = Json::array();
    for (const double value : values) {
        list.push_back(rounded(value));
    }
    return list;
}

Json hardwareObject(const Sample& sample)
{
    const auto root = std::ranges::find(sample.disks, "/", &DiskReading::mount);
    const bool known = root != sample.disks.end();
    return {{"model", displayText(sample.hardware.model)},
            {"cpu_model", displayText(sample.hardware.cpuModel)},
            {"total_ram", sample.memory.total > 0 ? sizeText(sample.memory.total) : ""},
            {"disk_size", known ? sizeText(root->total) : ""},
            {"os_version", displayText(sample.hardware.osVersion)},
            {"refresh_rate", ""}};
}

Json cpuObject(const CpuReading& cpu)
{
    return {{"usage", rounded(cpu.usage)},
            {"per_core", roundedList(cpu.cores.percent)},
            {"per_core_estimated", cpu.cores.estimated},
            {"load1", rounded(cpu.loads.one)},
            {"load5", rounded(cpu.loads.five)},
            {"load15", rounded(cpu.loads.fifteen)},
            {"core_count", cpu.counts.physical},
            {"logical_cpu", cpu.counts.logical},
            {"p_core_count", cpu.counts.performance},
            {"e_core_count", cpu.counts.efficiency}};
}

Json memoryObject(const MemoryReading& memory)
{
    return {{"used", memory.used},           {"total", memory.total},
            {"available", memory.available}, {"used_percent", rounded(memory.usedPercent)},
            {"swap_used", memory.swapUsed},  {"swap_total", memory.swapTotal},
            {"cached", memory.cached},       {"pressure", pressureText(memory.stalls)}};
}

Json diskList(const std::vector<DiskReading>& disks)
{
    Json list = Json::array();
    for (const DiskReading& disk : disks) {
        const double share =
            percent(static_cast<double>(disk.used), static_cast<double>(disk.total));
        list.push_back({{"mount", displayText(disk.mount)},
                        {"device", displayText(disk.device)},
                        {"used", disk.used},
                        {"total", disk.total},
                        {"used_percent", rounded(share)},
                        {"fstype", displayText(disk.fileSystem)},
                        {"external", disk.external}});
    }
    return list;
}

Json networkList(const std::vector<InterfaceReading>& interfaces)
{
    Json list = Json::array();
    for (const InterfaceReading& one : interfaces) {
        list.push_back({{"name", displayText(one.name)},
                        {"rx_rate_mbs", rounded(one.received)},
                        {"tx_rate_mbs", rounded(one.sent)},
                        {"ip", displayText(one.address)}});
    }
    return list;
}

Json batteryList(const std::vector<BatteryReading>& batteries)
{
    Json list = Json::array();
    for (const BatteryReading& one : batteries) {
        list.push_back({{"percent", one.percent},
                        {"status", displayText(one.status)},
                        {"time_left", one.timeLeft},
                        {"health", displayText(one.health)},
                        {"cycle_count", one.cycleCount},
                        {"capacity", one.capacity}});
    }
    return list;
}

Json thermalObject(const ThermalReading& thermal, const PowerReading& power)
{
    return {{"cpu_temp", rounded(thermal.cpu)},
            {"gpu_temp", rounded(thermal.gpu)},
            {"battery_temp", rounded(power.batteryTemperature)},
            {"fan_speed", rounded(thermal.fanSpeed)},
            {"fan_count", thermal.fanCount},
            {"system_power", rounded(thermal.systemPower)},
            {"adapter_power", rounded(power.adapterPower)},
            {"battery_power", rounded(power.batteryPower)}};
}

Json processList(const Sample& sample)
{
    Json list = Json::array();
    for (const ProcessReading& one : sample.processes.top) {
        const double share =
            percent(static_cast<double>(one.memoryBytes), static_cast<double>(sample.memory.total));
        list.push_back({{"pid", one.pid},
                        {"ppid", one.parent},
                        {"name", displayText(one.name)},
                        {"command", displayText(one.command)},
                        {"cpu", rounded(one.cpu)},
                        {"memory", rounded(share)},
                        {"memory_bytes", one.memoryBytes}});
    }
    return list;
}

Health healthOfSample(const Sample& sample)
{
    HealthReadings readings;
    readings.cpuUsage = sample.cpu.usage;
    readings.loadPerCore = sample.cpu.loads.one / std::max(sample.cpu.counts.logical, 1);
    readings.memoryUsed = sample.memory.usedPercent;
    readings.memoryStall = sample.memory.stalls ? sample.memory.stalls->some : 0.0;
    for (const DiskReading& disk : sample.disks) {
        readings.fullestDisk = std::max(readings.fullestDisk, fullness(disk));
    }
    readings.cpuTemperature = sample.thermal.cpu;
    return healthOf(readings);
}

} // namespace

std::string momentText(std::chrono::system_clock::time_point moment)
{
    const auto second = std::chrono::floor<std::chrono::seconds>(moment);
    const auto thousandths =
        std::chrono::duration_cast<std::chrono::milliseconds>(moment - second).count();
    const std::time_t whole = std::chrono::system_clock::to_time_t(second);
    std::tm parts{};
    ::gmtime_r(&whole, &parts);
    std::array<char, 96> text{};
    std::snprintf(text.data(), text.size(), "%04d-%02d-%02dT%02d:%02d:%02d.%03dZ",
                  parts.tm_year + 1900, parts.tm_mon + 1, parts.tm_mday, parts.tm_hour,
                  parts.tm_min, parts.tm_sec, static_cast<int>(thousandths));
    return text.data();
}

std::string statusDocument(const Sample& sample)
{
    const Health health = healthOfSample(sample);
    const Json document = {
        {"collected_at", momentText(sample.collectedAt)},
        {"host", displayText(sample.host.name)},
        {"platform", displayText(sample.host.platform)},
        {"uptime", uptimeText(sample.host.uptimeSeconds)},
        {"uptime_seconds", sample.host.uptimeSeconds},
        {"procs", sample.processes.count},
        {"hardware", hardwareObject(sample)},
        {"health_score", health.score},
        {"health_score_msg", health.message},
        {"cpu", cpuObject(sample.cpu)},
        {"gpu", nullptr},
        {"memory", memoryObject(sample.memory)},
        {"disks", diskList(sample.disks)},
        {"trash_size", sample.trash.bytes},
        {"trash_approx", sample.trash.approximate},
        {"disk_io",
         {{"read_rate", rounded(sample.diskRates.read)},
          {"write_rate", rounded(sample.diskRates.write)}}},
        {"network", networkList(sample.network.interfaces)},
        {"network_history",
         {{"rx_history", roundedList(sample.network.receivedHistory)},
          {"tx_history", roundedList(sample.network.sentHistory)}}},
        {"proxy",
         {{"enabled", sample.proxy.enabled},
          {"type", displayText(sample.proxy.type)},
          {"host", displayText(sample.proxy.host)}}},
        {"batteries", batteryList(sample.power.batteries)},
        {"thermal", thermalObject(sample.thermal, sample.power)},
        {"sensors", nullptr},
        {"bluetooth", nullptr},
        {"top_processes", processList(sample)},
        {"process_watch", {{"enabled", false}, {"cpu_threshold", 0.0}, {"window", ""}}},
        {"process_alerts", Json::array()},
    };
    return document.dump(-1, ' ', false, Json::error_handler_t::replace);
}

} // namespace zolva::mole
