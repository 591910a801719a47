#include "core/StatusSample.h"

namespace zolva::test {

nlohmann::json statusDocument()
{
    return nlohmann::json::parse(R"({
        "collected_at": "2026-01-02T03:04:05.678Z",
        "host": "workbench", "platform": "linux", "uptime": "3d 4h",
        "uptime_seconds": 273600, "procs": 312,
        "hardware": {"model": "M", "cpu_model": "C", "total_ram": "16 GB", "disk_size": "512 GB",
                     "os_version": "12", "refresh_rate": "60 Hz"},
        "health_score": 91, "health_score_msg": "Good",
        "cpu": {"usage": 12.5, "per_core": [10, 15.5], "per_core_estimated": false, "load1": 0.5,
                "load5": 0.25, "load15": 1, "core_count": 2, "logical_cpu": 4, "p_core_count": 1,
                "e_core_count": 3},
        "gpu": [{"name": "G", "usage": 3.5, "memory_used": 5, "memory_total": 6, "core_count": 7,
                 "note": "n"}],
        "memory": {"used": 8000000000, "total": 16000000000, "available": 7000000000,
                   "used_percent": 50.25, "swap_used": 1, "swap_total": 2, "cached": 3,
                   "pressure": "normal"},
        "disks": [{"mount": "/", "device": "sda1", "used": 10, "total": 20, "used_percent": 50,
                   "fstype": "ext4", "external": true}],
        "trash_size": 123456789012, "trash_approx": true,
        "disk_io": {"read_rate": 1.5, "write_rate": 2.5},
        "network": [{"name": "eth0", "rx_rate_mbs": 0.5, "tx_rate_mbs": 0.75,
                     "ip": "192.0.2.1"}],
        "network_history": {"rx_history": [1, 2.5], "tx_history": []},
        "proxy": {"enabled": false, "type": "", "host": ""},
        "batteries": [{"percent": 80, "status": "charging", "time_left": "1:00", "health": "Good",
                       "cycle_count": 10, "capacity": 95}],
        "thermal": {"cpu_temp": 41.5, "gpu_temp": 0, "battery_temp": 30, "fan_speed": 1200,
                    "fan_count": 1, "system_power": 15.5, "adapter_power": 20, "battery_power": 0},
        "sensors": "quiet",
        "bluetooth": [{"name": "Mouse", "connected": true, "battery": "90%"}],
        "top_processes": [{"pid": 42, "ppid": 1, "name": "make", "command": "make -j2",
                           "cpu": 99.5, "memory": 1, "memory_bytes": 4096}],
        "process_watch": {"enabled": true, "cpu_threshold": 80.5, "window": "5m"},
        "process_alerts": [{"pid": 42, "name": "make"}]
    })");
}

std::string statusLine(double usage, double usedPercent)
{
    nlohmann::json document = statusDocument();
    document["cpu"]["usage"] = usage;
    document["memory"]["used_percent"] = usedPercent;
    return document.dump();
}

} // namespace zolva::test
