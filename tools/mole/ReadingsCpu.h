#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

/// What the processors do. One thread.
namespace zolva::mole {

/// Time spent since the machine started, in ticks. Waiting for a disk counts as idle.
struct CpuTicks
{
    std::uint64_t total = 0;
    std::uint64_t idle = 0;

    friend bool operator==(const CpuTicks&, const CpuTicks&) = default;
};

struct CpuTimes
{
    CpuTicks all;
    std::map<int, CpuTicks> cores; ///< by the kernel's number; those that are switched on
};

/// The times in the text of /proc/stat; lines that are not understood are passed over. Pure.
[[nodiscard]] CpuTimes parseCpuTimes(std::string_view text);

/// Percent of the time between two readings that was not idle, 0 to 100. Pure.
[[nodiscard]] double cpuUsage(const CpuTicks& before, const CpuTicks& after);

struct CoreUsage
{
    std::vector<double> percent; ///< one a core, in the kernel's order
    bool estimated = false;      ///< a core had no earlier reading: the usage of all stands for it
};

[[nodiscard]] CoreUsage coreUsage(const CpuTimes& before, const CpuTimes& after);

/// The kinds are 0 and 0 where the machine has only one kind of core.
struct CoreCounts
{
    int physical = 0;
    int logical = 0;
    int performance = 0;
    int efficiency = 0;
};

/// The cores that are told below `devices`, which is /sys/devices.
[[nodiscard]] CoreCounts readCoreCounts(const std::string& devices);

struct LoadAverages
{
    double one = 0;
    double five = 0;
    double fifteen = 0;
};

/// Through the statistics library.
[[nodiscard]] LoadAverages readLoads();

struct CpuReading
{
    double usage = 0; ///< percent of all cores together
    CoreUsage cores;
    LoadAverages loads;
    CoreCounts counts;
};

/// Usage from one reading to the next.
class CpuMeter
{
public:
    CpuMeter();
    [[nodiscard]] CpuReading read();

private:
    CpuTimes m_before;
    CoreCounts m_counts;
};

} // namespace zolva::mole
