#pragma once

#include "mole/Rates.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The processes that use most of the machine. One thread.
namespace zolva::mole {

/// What /proc/PID/stat tells. Names are bytes: a process may call itself anything.
struct ProcessStat
{
    std::int64_t pid = 0;
    std::int64_t parent = 0;
    std::string name;
    std::uint64_t ticks = 0;   ///< of processor time, in user and kernel mode
    std::uint64_t started = 0; ///< ticks after the machine's start; with `pid` the identity
    std::int64_t residentPages = 0;
};

/// Nothing for a text of another form. Pure.
[[nodiscard]] std::optional<ProcessStat> parseProcessStat(std::string_view text);

/// The text of /proc/PID/cmdline with blanks between the arguments; "[name]" where it is empty, as
/// with the kernel's own. Pure.
[[nodiscard]] std::string commandText(std::string_view arguments, const std::string& name);

struct ProcessReading
{
    std::int64_t pid = 0;
    std::int64_t parent = 0;
    std::string name;
    std::string command;
    double cpu = 0; ///< percent of one core
    std::int64_t memoryBytes = 0;
};

struct ProcessesReading
{
    std::int64_t count = 0;          ///< of all that this user may see
    std::vector<ProcessReading> top; ///< most processor time first, then most memory
};

/// Usage from one reading to the next. The statistics library tells processor time in whole seconds
/// only and opens four files a process, so the kernel's text is read instead.
class ProcessMeter
{
public:
    static constexpr std::size_t shown = 10;

    ProcessMeter();
    [[nodiscard]] ProcessesReading read();

private:
    std::vector<ProcessStat> m_before; ///< by pid
    std::chrono::steady_clock::time_point m_when;
};

/// Percent of one core that each of `after` used since `before`, both by pid; what started in
/// between counts whole, what was overlooked before counts nothing. Pure.
[[nodiscard]] std::vector<double> processUsage(const std::vector<ProcessStat>& before,
                                               const std::vector<ProcessStat>& after,
                                               Seconds elapsed, double ticksPerSecond);

} // namespace zolva::mole
