#include "tools/StatusKeys.h"

#include <algorithm>
#include <cmath>

namespace zolva::test {

namespace {

using Json = nlohmann::json;

/// What a reader of the documents asks of each key: text, whole number, number, flag, object, list
/// of objects or of numbers. An optional key may be null.
enum class Kind
{
    Text,
    Whole,
    Float,
    Flag,
    Object,
    List,
    Floats
};

struct Key
{
    const char* record; ///< "" is the document; a list stands for each of its objects
    const char* name;
    Kind kind;
    bool optional = false;
};

constexpr Key keys[] = {
    {"", "collected_at", Kind::Text},
    {"", "host", Kind::Text},
    {"", "platform", Kind::Text},
    {"", "uptime", Kind::Text},
    {"", "uptime_seconds", Kind::Whole},
    {"", "procs", Kind::Whole},
    {"", "hardware", Kind::Object},
    {"", "health_score", Kind::Whole},
    {"", "health_score_msg", Kind::Text},
    {"", "cpu", Kind::Object},
    {"", "gpu", Kind::List, true},
    {"", "memory", Kind::Object},
    {"", "disks", Kind::List},
    {"", "trash_size", Kind::Whole},
    {"", "trash_approx", Kind::Flag},
    {"", "disk_io", Kind::Object},
    {"", "network", Kind::List},
    {"", "network_history", Kind::Object},
    {"", "proxy", Kind::Object},
    {"", "batteries", Kind::List, true},
    {"", "thermal", Kind::Object},
    {"", "sensors", Kind::Text, true},
    {"", "bluetooth", Kind::List, true},
    {"", "top_processes", Kind::List, true},
    {"", "process_watch", Kind::Object},
    {"", "process_alerts", Kind::List},
    {"hardware", "model", Kind::Text},
    {"hardware", "cpu_model", Kind::Text},
    {"hardware", "total_ram", Kind::Text},
    {"hardware", "disk_size", Kind::Text},
    {"hardware", "os_version", Kind::Text},
    {"hardware", "refresh_rate", Kind::Text},
    {"cpu", "usage", Kind::Float},
    {"cpu", "per_core", Kind::Floats},
    {"cpu", "per_core_estimated", Kind::Flag},
    {"cpu", "load1", Kind::Float},
    {"cpu", "load5", Kind::Float},
    {"cpu", "load15", Kind::Float},
    {"cpu", "core_count", Kind::Whole},
    {"cpu", "logical_cpu", Kind::Whole},
    {"cpu", "p_core_count", Kind::Whole},
    {"cpu", "e_core_count", Kind::Whole},
    {"memory", "used", Kind::Whole},
    {"memory", "total", Kind::Whole},
    {"memory", "available", Kind::Whole},
    {"memory", "used_percent", Kind::Float},
    {"memory", "swap_used", Kind::Whole},
    {"memory", "swap_total", Kind::Whole},
    {"memory", "cached", Kind::Whole},
    {"memory", "pressure", Kind::Text},
    {"disks", "mount", Kind::Text},
    {"disks", "device", Kind::Text},
    {"disks", "used", Kind::Whole},
    {"disks", "total", Kind::Whole},
    {"disks", "used_percent", Kind::Float},
    {"disks", "fstype", Kind::Text},
    {"disks", "external", Kind::Flag},
    {"disk_io", "read_rate", Kind::Float},
    {"disk_io", "write_rate", Kind::Float},
    {"network", "name", Kind::Text},
    {"network", "rx_rate_mbs", Kind::Float},
    {"network", "tx_rate_mbs", Kind::Float},
    {"network", "ip", Kind::Text},
    {"network_history", "rx_history", Kind::Floats},
    {"network_history", "tx_history", Kind::Floats},
    {"proxy", "enabled", Kind::Flag},
    {"proxy", "type", Kind::Text},
    {"proxy", "host", Kind::Text},
    {"batteries", "percent", Kind::Whole},
    {"batteries", "status", Kind::Text},
    {"batteries", "time_left", Kind::Text},
    {"batteries", "health", Kind::Text},
    {"batteries", "cycle_count", Kind::Whole},
    {"batteries", "capacity", Kind::Whole},
    {"thermal", "cpu_temp", Kind::Float},
    {"thermal", "gpu_temp", Kind::Float},
    {"thermal", "battery_temp", Kind::Float},
    {"thermal", "fan_speed", Kind::Float},
    {"thermal", "fan_count", Kind::Whole},
    {"thermal", "system_power", Kind::Float},
    {"thermal", "adapter_power", Kind::Float},
    {"thermal", "battery_power", Kind::Float},
    {"top_processes", "pid", Kind::Whole},
    {"top_processes", "ppid", Kind::Whole},
    {"top_processes", "name", Kind::Text},
    {"top_processes", "command", Kind::Text},
    {"top_processes", "cpu", Kind::Float},
    {"top_processes", "memory", Kind::Float},
    {"top_processes", "memory_bytes", Kind::Whole},
    {"process_watch", "enabled", Kind::Flag},
    {"process_watch", "cpu_threshold", Kind::Float},
    {"process_watch", "window", Kind::Text},
};

bool isKind(const Json& value, Kind kind)
{
    switch (kind) {
    case Kind::Text:
        return value.is_string();
    case Kind::Whole:
        return value.is_number_integer();
    case Kind::Float:
        return value.is_number() && std::isfinite(value.get<double>());
    case Kind::Flag:
        return value.is_boolean();
    case Kind::Object:
        return value.is_object();
    case Kind::List:
        return value.is_array() && std::ranges::all_of(value, &Json::is_object);
    case Kind::Floats:
        return value.is_array() && std::ranges::all_of(value, &Json::is_number);
    }
    return false;
}

} // namespace

std::vector<std::string> faultsOf(const Json& document)
{
    std::vector<std::string> faults;
    for (const Key& key : keys) {
        const std::string record = key.record;
        const Json whole = record.empty() ? document : document.value(record, Json());
        const std::vector<Json> places =
            whole.is_array() ? whole.get<std::vector<Json>>() : std::vector<Json>{whole};
        for (const Json& place : places) {
            const bool there = place.is_object() && place.contains(key.name);
            const bool absent = key.optional && (!there || place.at(key.name).is_null());
            if (!absent && !(there && isKind(place.at(key.name), key.kind))) {
                faults.push_back(record + "." + key.name);
            }
        }
    }
    return faults;
}

} // namespace zolva::test
