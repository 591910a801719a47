#pragma once

#include <array>
#include <string_view>

namespace zolva::test {

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

/// One key of the records.
struct Key
{
    std::string_view pointer; ///< into the sample
    Kind kind;
    Presence presence = Presence::Required;
};

inline constexpr std::array keys = {
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

} // namespace zolva::test
