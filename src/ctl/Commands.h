#pragma once

#include "ctl/Terminal.h"
#include "files/Age.h"

#include <string>
#include <vector>

/// What each command does with arguments that are well formed. Each reads what it needs and gives
/// its answer as text; none of them writes anywhere but for live progress on standard error.
namespace zolva::ctl {

/// The exit codes that scripts rely on.
enum class Exit
{
    Done = 0,
    Failed = 1,
    WrongUsage = 2
};

/// What was asked, as it was typed: values are bytes.
struct Request
{
    std::vector<std::string> operands; ///< paths, numbers or a text, in order
    std::vector<std::string> list;     ///< entries of the exclusion list
    std::string appsFile;
    std::string bundle;
    bool json = false;
    TimePoint now; ///< the one "now" of every age
    Look look;     ///< how standard output may be painted
};

/// What to print. The note goes to standard error, a line each.
struct Answer
{
    std::string output;
    std::string note;
    Exit code = Exit::Done;
};

// Rules
[[nodiscard]] Answer check(const Request& request);
[[nodiscard]] Answer excluded(const Request& request);
[[nodiscard]] Answer validateExclusionText(const Request& request);

// Measures
[[nodiscard]] Answer tally(const Request& request);
[[nodiscard]] Answer size(const Request& request);

// Scans
[[nodiscard]] Answer clean(const Request& request);
[[nodiscard]] Answer purge(const Request& request);
[[nodiscard]] Answer installers(const Request& request);

// Applications
[[nodiscard]] Answer apps(const Request& request);
[[nodiscard]] Answer leftovers(const Request& request);

// Storage
[[nodiscard]] Answer analyze(const Request& request);
[[nodiscard]] Answer blocked(const Request& request);
[[nodiscard]] Answer summary(const Request& request);

} // namespace zolva::ctl
