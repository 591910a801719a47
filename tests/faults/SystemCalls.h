#pragma once

#include <functional>
#include <string>
#include <vector>

/// Runs a piece of the program in a child process under a tracer that can end it, or make the
/// system refuse, or other programs act, at any one of its calls that concern files.
namespace zolva::test {

/// What happens at which call; calls are counted from 0 among those that concern files.
struct FaultPlan
{
    int killAt = -1;
    int failAt = -1;
    int error = 0;
    bool andAllAfter = false;
    bool carriedOut = false; ///< the call at `failAt` is made all the same, and told as failed
    long alwaysRefused = -1; ///< the number of a call that is refused throughout
    int alwaysError = 0;
    /// What other programs do just before the call of that number, while the run stands still.
    std::function<void(int at)> meanwhile;
};

enum class RunEnd
{
    Finished,
    Killed, ///< by the plan
    Hung,   ///< it went on for too long
    Died    ///< by itself
};

struct TracedRun
{
    RunEnd end = RunEnd::Died;
    std::string report;      ///< what the body returned
    std::vector<long> calls; ///< the numbers of those that were made
};

[[nodiscard]] TracedRun runTraced(const std::function<std::string()>& body, const FaultPlan& plan);

} // namespace zolva::test
