#include "mole/ReadingsProcesses.h"

#include "mole/SystemFile.h"

#include <dirent.h>
#include <unistd.h>

#include <algorithm>
#include <memory>
#include <numeric>

namespace zolva::mole {

namespace {

/// Enough for a line that people look at; a command can be megabytes long.
constexpr std::size_t maxCommand = 1024;

/// Fields of /proc/PID/stat as the manual counts them, from 1.
constexpr int fieldAfterName = 3;
constexpr int parentField = 4;
constexpr int userTicksField = 14;
constexpr int kernelTicksField = 15;
constexpr int startField = 22;
constexpr int residentField = 24;

std::vector<ProcessStat> processes()
{
    std::vector<ProcessStat> found;
    const std::unique_ptr<DIR, int (*)(DIR*)> open(::opendir("/proc"), ::closedir);
    if (!open) {
        return found;
    }
    while (const dirent* entry = ::readdir(open.get())) {
        if (!unsignedNumber(entry->d_name)) {
            continue;
        }
        // One that ended meanwhile has no text any more.
        const auto text = fileText(std::string("/proc/") + entry->d_name + "/stat");
        std::optional<ProcessStat> stat = text ? parseProcessStat(*text) : std::nullopt;
        if (stat) {
            found.push_back(std::move(*stat));
        }
    }
    std::ranges::sort(found, {}, &ProcessStat::pid);
    return found;
}

ProcessReading readingOf(const ProcessStat& stat, double cpu)
{
    static const std::int64_t pageSize = ::sysconf(_SC_PAGESIZE);
    const std::string arguments =
        fileText("/proc/" + std::to_string(stat.pid) + "/cmdline", maxCommand)
            .value_or(std::string());
    return {stat.pid,  stat.parent,
            stat.name, commandText(arguments, stat.name),
            cpu,       std::max<std::int64_t>(stat.residentPages, 0) * pageSize};
}

} // namespace

std::optional<ProcessStat> parseProcessStat(std::string_view text)
{
    // The name stands in brackets and may hold brackets and blanks itself.
    const std::size_t open = text.find('(');
    const std::size_t close = text.rfind(')');
    if (open == text.npos || close == text.npos || close < open) {
        return std::nullopt;
    }
    std::string_view before = text.substr(0, open);
    const std::optional<std::int64_t> pid = wholeNumber(nextWord(before));
    ProcessStat stat;
    stat.name = text.substr(open + 1, close - open - 1);
    std::string_view rest = text.substr(close + 1);
    std::optional<std::int64_t> parent;
    std::optional<std::uint64_t> user;
    std::optional<std::uint64_t> kernel;
    std::optional<std::uint64_t> started;
    std::optional<std::int64_t> resident;
    for (int field = fieldAfterName; field <= residentField; ++field) {
        const std::string_view word = nextWord(rest);
        switch (field) {
        case parentField:
            parent = wholeNumber(word);
            break;
        case userTicksField:
            user = unsignedNumber(word);
            break;
        case kernelTicksField:
            kernel = unsignedNumber(word);
            break;
        case startField:
            started = unsignedNumber(word);
            break;
        case residentField:
            resident = wholeNumber(word);
            break;
        default:
            break;
        }
    }
    if (!pid || !parent || !user || !kernel || !started || !resident) {
        return std::nullopt;
    }
    stat.pid = *pid;
    stat.parent = *parent;
    stat.ticks = *user + *kernel;
    stat.started = *started;
    stat.residentPages = *resident;
    return stat;
}

std::string commandText(std::string_view arguments, const std::string& name)
{
    while (!arguments.empty() && (arguments.back() == '\0' || arguments.back() == ' ')) {
        arguments.remove_suffix(1);
    }
    if (arguments.empty()) {
        return "[" + name + "]";
    }
    std::string text(arguments);
    std::ranges::replace(text, '\0', ' ');
    return text;
}

std::vector<double> processUsage(const std::vector<ProcessStat>& before,
                                 const std::vector<ProcessStat>& after, Seconds elapsed,
                                 double ticksPerSecond)
{
    std::vector<double> usage;
    usage.reserve(after.size());
    std::uint64_t newest = 0;
    for (const ProcessStat& one : before) {
        newest = std::max(newest, one.started);
    }
    auto earlier = before.begin();
    for (const ProcessStat& now : after) {
        while (earlier != before.end() && earlier->pid < now.pid) {
            ++earlier;
        }
        // The same number may by now be another process.
        const bool known =
            earlier != before.end() && earlier->pid == now.pid && earlier->started == now.started;
        // One that is older than the last reading and was not in it was overlooked: what it used
        // since then is unknown.
        const bool overlooked = !known && now.started < newest;
        const std::uint64_t ticks = known ? earlier->ticks : overlooked ? now.ticks : 0;
        usage.push_back(100 * perSecond(ticks, now.ticks, elapsed) / ticksPerSecond);
    }
    return usage;
}

ProcessMeter::ProcessMeter() : m_before(processes()), m_when(std::chrono::steady_clock::now()) {}

ProcessesReading ProcessMeter::read()
{
    static const auto ticksPerSecond = static_cast<double>(::sysconf(_SC_CLK_TCK));
    std::vector<ProcessStat> now = processes();
    const auto when = std::chrono::steady_clock::now();
    const std::vector<double> usage = processUsage(m_before, now, when - m_when, ticksPerSecond);

    std::vector<std::size_t> order(now.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    const std::size_t kept = std::min(shown, order.size());
    std::ranges::partial_sort(order, order.begin() + static_cast<std::ptrdiff_t>(kept),
                              [&](std::size_t left, std::size_t right) {
                                  if (usage[left] != usage[right]) {
                                      return usage[left] > usage[right];
                                  }
                                  if (now[left].residentPages != now[right].residentPages) {
                                      return now[left].residentPages > now[right].residentPages;
                                  }
                                  return left < right;
                              });

    ProcessesReading reading;
    reading.count = static_cast<std::int64_t>(now.size());
    for (std::size_t place = 0; place < kept; ++place) {
        reading.top.push_back(readingOf(now[order[place]], usage[order[place]]));
    }
    m_before = std::move(now);
    m_when = when;
    return reading;
}

} // namespace zolva::mole
