#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

/// What the machine is, and how long it has been up. One thread.
namespace zolva::mole {

struct HostReading
{
    std::string name;
    std::string platform; ///< the kernel and the kind of processor, such as "Linux x86_64"
    std::int64_t uptimeSeconds = 0;
};

/// Through the statistics library.
[[nodiscard]] HostReading readHost();

/// What does not change as long as the machine runs; empty where it does not tell.
struct HardwareReading
{
    std::string model;
    std::string cpuModel;
    std::string osVersion;
};

/// As told below `sys` and `proc`, which are /sys and /proc, and in the file `osRelease`.
[[nodiscard]] HardwareReading readHardware(const std::string& sys, const std::string& proc,
                                           const std::string& osRelease);

/// The processor's name in the text of /proc/cpuinfo; empty without one. Pure.
[[nodiscard]] std::string cpuModelIn(std::string_view text);

/// The system's name for people in the text of an os-release file, without quotes; empty without
/// one. Pure.
[[nodiscard]] std::string systemNameIn(std::string_view text);

/// "3d 4h 5m", "4h 5m", "5m". Pure.
[[nodiscard]] std::string uptimeText(std::int64_t seconds);

struct ProxyReading
{
    bool enabled = false;
    std::string type; ///< the scheme in capitals, such as "HTTP" or "SOCKS5"
    std::string host; ///< with its port, without user and password
};

/// The proxy that the variables of the environment name, as command-line programs heed them; looked
/// up through `variable`, which gives nothing for one that is not set. Pure.
[[nodiscard]] ProxyReading
proxyFrom(const std::function<std::optional<std::string>(const char*)>& variable);

/// The same, of this process's environment.
[[nodiscard]] ProxyReading readProxy();

} // namespace zolva::mole
