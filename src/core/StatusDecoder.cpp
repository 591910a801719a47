#include "core/StatusDecoder.h"

#include "files/DisplayPath.h"
#include "json/JsonReader.h"

#include <nlohmann/json.hpp>

#include <utility>

namespace zolva {

namespace {

Hardware hardware(const JsonReader& from)
{
    Hardware to;
    to.model = from.text("model");
    to.cpuModel = from.text("cpu_model");
    to.totalRam = from.text("total_ram");
    to.diskSize = from.text("disk_size");
    to.osVersion = from.text("os_version");
    to.refreshRate = from.text("refresh_rate");
    return to;
}

CPU cpu(const JsonReader& from)
{
    CPU to;
    to.usage = from.number("usage");
    to.perCore = from.numbers("per_core");
    to.perCoreEstimated = from.flag("per_core_estimated");
    to.load1 = from.number("load1");
    to.load5 = from.number("load5");
    to.load15 = from.number("load15");
    to.coreCount = from.whole("core_count");
    to.logicalCPU = from.whole("logical_cpu");
    to.pCoreCount = from.whole("p_core_count");
    to.eCoreCount = from.whole("e_core_count");
    return to;
}

GPU gpu(const JsonReader& from)
{
    GPU to;
    to.name = from.text("name");
    to.usage = from.number("usage");
    to.memoryUsed = from.whole("memory_used");
    to.memoryTotal = from.whole("memory_total");
    to.coreCount = from.whole("core_count");
    to.note = from.text("note");
    return to;
}

Memory memory(const JsonReader& from)
{
    Memory to;
    to.used = from.whole("used");
    to.total = from.whole("total");
    to.available = from.whole("available");
    to.usedPercent = from.number("used_percent");
    to.swapUsed = from.whole("swap_used");
    to.swapTotal = from.whole("swap_total");
    to.cached = from.whole("cached");
    to.pressure = from.text("pressure");
    return to;
}

Disk disk(const JsonReader& from)
{
    Disk to;
    to.mount = from.text("mount");
    to.device = from.text("device");
    to.used = from.whole("used");
    to.total = from.whole("total");
    to.usedPercent = from.number("used_percent");
    to.fstype = from.text("fstype");
    to.external = from.flag("external");
    return to;
}

DiskIO diskIO(const JsonReader& from)
{
    DiskIO to;
    to.readRate = from.number("read_rate");
    to.writeRate = from.number("write_rate");
    return to;
}

NetworkInterface networkInterface(const JsonReader& from)
{
    NetworkInterface to;
    to.name = from.text("name");
    to.rxRateMbs = from.number("rx_rate_mbs");
    to.txRateMbs = from.number("tx_rate_mbs");
    to.ip = from.text("ip");
    return to;
}

NetworkHistory networkHistory(const JsonReader& from)
{
    NetworkHistory to;
    to.rxHistory = from.numbers("rx_history");
    to.txHistory = from.numbers("tx_history");
    return to;
}

Proxy proxy(const JsonReader& from)
{
    Proxy to;
    to.enabled = from.flag("enabled");
    to.type = from.text("type");
    to.host = from.text("host");
    return to;
}

Battery battery(const JsonReader& from)
{
    Battery to;
    to.percent = from.whole("percent");
    to.status = from.text("status");
    to.timeLeft = from.text("time_left");
    to.health = from.text("health");
    to.cycleCount = from.whole("cycle_count");
    to.capacity = from.whole("capacity");
    return to;
}

Thermal thermal(const JsonReader& from)
{
    Thermal to;
    to.cpuTemp = from.number("cpu_temp");
    to.gpuTemp = from.number("gpu_temp");
    to.batteryTemp = from.number("battery_temp");
    to.fanSpeed = from.number("fan_speed");
    to.fanCount = from.whole("fan_count");
    to.systemPower = from.number("system_power");
    to.adapterPower = from.number("adapter_power");
    to.batteryPower = from.number("battery_power");
    return to;
}

BluetoothDevice bluetoothDevice(const JsonReader& from)
{
    BluetoothDevice to;
    to.name = from.text("name");
    to.connected = from.flag("connected");
    to.battery = from.text("battery");
    return to;
}

TopProcess topProcess(const JsonReader& from)
{
    TopProcess to;
    to.pid = from.whole("pid");
    to.ppid = from.whole("ppid");
    to.name = from.text("name");
    to.command = from.text("command");
    to.cpu = from.number("cpu");
    to.memory = from.number("memory");
    to.memoryBytes = from.whole("memory_bytes");
    return to;
}

ProcessWatch processWatch(const JsonReader& from)
{
    ProcessWatch to;
    to.enabled = from.flag("enabled");
    to.cpuThreshold = from.number("cpu_threshold");
    to.window = from.text("window");
    return to;
}

ProcessAlert processAlert(const JsonReader& from)
{
    ProcessAlert to;
    to.pid = from.optionalWhole("pid");
    to.name = from.optionalText("name");
    return to;
}

StatusResult status(const JsonReader& from)
{
    StatusResult to;
    to.collectedAt = from.date("collected_at");
    to.host = from.text("host");
    to.platform = from.text("platform");
    to.uptime = from.text("uptime");
    to.uptimeSeconds = from.whole("uptime_seconds");
    to.procs = from.whole("procs");
    to.hardware = hardware(from.object("hardware"));
    to.healthScore = from.whole("health_score");
    to.healthScoreMsg = from.text("health_score_msg");
    to.cpu = cpu(from.object("cpu"));
    to.gpu = from.optionalList("gpu", gpu);
    to.memory = memory(from.object("memory"));
    to.disks = from.list("disks", disk);
    to.trashSize = from.whole("trash_size");
    to.trashApprox = from.flag("trash_approx");
    to.diskIO = diskIO(from.object("disk_io"));
    to.network = from.list("network", networkInterface);
    to.networkHistory = networkHistory(from.object("network_history"));
    to.proxy = proxy(from.object("proxy"));
    to.batteries = from.optionalList("batteries", battery);
    to.thermal = thermal(from.object("thermal"));
    to.sensors = from.optionalText("sensors");
    to.bluetooth = from.optionalList("bluetooth", bluetoothDevice);
    to.topProcesses = from.optionalList("top_processes", topProcess);
    to.processWatch = processWatch(from.object("process_watch"));
    to.processAlerts = from.list("process_alerts", processAlert);
    return to;
}

} // namespace

tl::expected<StatusResult, std::string> decodeStatus(std::string_view line)
{
    std::string failure;
    std::string text(line);
    std::optional<nlohmann::json> document = parseJson(text, failure);
    if (!document) {
        // A name with odd bytes must not cost the reading it stands in.
        text = displayText(line);
        if (text != line) {
            document = parseJson(text, failure);
        }
    }
    if (!document) {
        return tl::unexpected(failure);
    }
    failure.clear();
    StatusResult result = status(JsonReader(*document, failure));
    if (!failure.empty()) {
        return tl::unexpected(failure);
    }
    result.document = std::move(text);
    return result;
}

} // namespace zolva
