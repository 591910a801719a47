#include "mole/ReadingsCpu.h"

#include "mole/Rates.h"
#include "mole/SystemFile.h"

#include <statgrab.h>

#include <algorithm>
#include <optional>
#include <set>
#include <utility>

namespace zolva::mole {

namespace {

/// user, nice, system, idle, iowait, irq, softirq, steal. What guests use is within user already.
constexpr int countedFields = 8;
constexpr int idleField = 3;
constexpr int waitingField = 4;

std::optional<CpuTicks> ticksOf(std::string_view fields)
{
    CpuTicks ticks;
    for (int field = 0; field < countedFields; ++field) {
        const std::string_view word = nextWord(fields);
        if (word.empty()) {
            // Old kernels tell fewer of them.
            return field > idleField ? std::optional(ticks) : std::nullopt;
        }
        const std::optional<std::uint64_t> value = unsignedNumber(word);
        if (!value) {
            return std::nullopt;
        }
        ticks.total += *value;
        if (field == idleField || field == waitingField) {
            ticks.idle += *value;
        }
    }
    return ticks;
}

using CoreId = std::pair<std::int64_t, std::int64_t>; ///< package, core

struct LogicalCpu
{
    CoreId core;
    std::int64_t capacity = 0;
};

std::map<int, LogicalCpu> logicalCpus(const std::string& devices)
{
    std::map<int, LogicalCpu> cpus;
    const std::string folder = devices + "/system/cpu/";
    for (const std::string& name : namesIn(folder)) {
        const std::optional<std::uint64_t> number =
            name.starts_with("cpu") ? unsignedNumber(std::string_view(name).substr(3))
                                    : std::nullopt;
        // A core that cannot be switched off has no such file.
        if (!number || fileNumber(folder + name + "/online").value_or(1) == 0) {
            continue;
        }
        const std::string topology = folder + name + "/topology/";
        const auto id = static_cast<std::int64_t>(*number);
        cpus[static_cast<int>(id)] = {{fileNumber(topology + "physical_package_id").value_or(0),
                                       fileNumber(topology + "core_id").value_or(id)},
                                      fileNumber(folder + name + "/cpu_capacity").value_or(0)};
    }
    return cpus;
}

/// The cores in a list of the kernel's form, "0-3,8".
std::set<CoreId> coresIn(std::string_view list, const std::map<int, LogicalCpu>& cpus)
{
    std::set<CoreId> cores;
    while (!list.empty()) {
        const std::string_view range = list.substr(0, list.find(','));
        list.remove_prefix(std::min(range.size() + 1, list.size()));
        const std::size_t dash = range.find('-');
        const auto first = wholeNumber(range.substr(0, dash));
        const auto last = dash == range.npos ? first : wholeNumber(range.substr(dash + 1));
        for (const auto& [id, cpu] : cpus) {
            if (first && last && id >= *first && id <= *last) {
                cores.insert(cpu.core);
            }
        }
    }
    return cores;
}

// The statistics library knows no single cores, and its account of all of them leaves out the time
// of interrupts and what a host machine took away: the kernel's own text is read instead.
CpuTimes readCpuTimes()
{
    return parseCpuTimes(fileText("/proc/stat").value_or(std::string()));
}

} // namespace

CpuTimes parseCpuTimes(std::string_view text)
{
    CpuTimes times;
    while (!text.empty()) {
        std::string_view line = nextLine(text);
        const std::string_view name = nextWord(line);
        if (!name.starts_with("cpu")) {
            continue;
        }
        const std::optional<CpuTicks> ticks = ticksOf(line);
        const std::optional<std::uint64_t> core = unsignedNumber(name.substr(3));
        if (ticks && name == "cpu") {
            times.all = *ticks;
        } else if (ticks && core && *core < 1'000'000) {
            times.cores[static_cast<int>(*core)] = *ticks;
        }
    }
    return times;
}

double cpuUsage(const CpuTicks& before, const CpuTicks& after)
{
    if (after.total <= before.total) {
        return 0;
    }
    // The kernel's account of waiting may go back a little.
    const std::uint64_t idle = after.idle > before.idle ? after.idle - before.idle : 0;
    const std::uint64_t total = after.total - before.total;
    return percent(static_cast<double>(total) - static_cast<double>(idle),
                   static_cast<double>(total));
}

CoreUsage coreUsage(const CpuTimes& before, const CpuTimes& after)
{
    CoreUsage usage;
    for (const auto& [id, ticks] : after.cores) {
        const auto earlier = before.cores.find(id);
        if (earlier == before.cores.end()) {
            usage.percent.push_back(cpuUsage(before.all, after.all));
            usage.estimated = true;
        } else {
            usage.percent.push_back(cpuUsage(earlier->second, ticks));
        }
    }
    return usage;
}

CoreCounts readCoreCounts(const std::string& devices)
{
    const std::map<int, LogicalCpu> cpus = logicalCpus(devices);
    std::set<CoreId> all;
    std::set<std::int64_t> capacities;
    for (const auto& [id, cpu] : cpus) {
        all.insert(cpu.core);
        capacities.insert(cpu.capacity);
    }
    std::set<CoreId> efficient = coresIn(fileLine(devices + "/cpu_atom/cpus"), cpus);
    if (efficient.empty() && capacities.size() > 1) {
        for (const auto& [id, cpu] : cpus) {
            if (cpu.capacity == *capacities.begin()) {
                efficient.insert(cpu.core);
            }
        }
    }
    CoreCounts counts{static_cast<int>(all.size()), static_cast<int>(cpus.size())};
    if (!efficient.empty() && efficient.size() < all.size()) {
        counts.efficiency = static_cast<int>(efficient.size());
        counts.performance = counts.physical - counts.efficiency;
    }
    return counts;
}

LoadAverages readLoads()
{
    std::size_t entries = 0;
    const sg_load_stats* loads = sg_get_load_stats(&entries);
    return loads && entries > 0 ? LoadAverages{loads->min1, loads->min5, loads->min15}
                                : LoadAverages{};
}

CpuMeter::CpuMeter() : m_before(readCpuTimes()), m_counts(readCoreCounts("/sys/devices")) {}

CpuReading CpuMeter::read()
{
    CpuTimes now = readCpuTimes();
    if (now.cores.size() != m_before.cores.size()) {
        m_counts = readCoreCounts("/sys/devices");
    }
    CpuReading reading{cpuUsage(m_before.all, now.all), coreUsage(m_before, now), readLoads(),
                       m_counts};
    m_before = std::move(now);
    return reading;
}

} // namespace zolva::mole
