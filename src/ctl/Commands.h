#pragma once

#include "ctl/Terminal.h"
#include "files/Age.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// What each command does with arguments that are well formed. Each reads what it needs and gives
/// its answer as text. Only `status` prints by itself; scans and removals show live progress on
/// standard error. Only `prefs`, `exclusions` and the removals change anything; these ask before,
/// and go through the same runs as those of the window.
namespace zolva::ctl {

/// The exit codes that scripts rely on.
enum class Exit
{
    Done = 0,
    Failed = 1,
    WrongUsage = 2,
    Stopped = 3
};

/// Days; build artifacts younger than this are found but not what one wants to remove.
inline constexpr std::int64_t recentDays = 7;

/// What was asked, as it was typed: values are bytes.
struct Request
{
    std::vector<std::string> operands;            ///< paths, numbers or a text, in order
    std::optional<std::vector<std::string>> list; ///< the exclusion list; else the stored one
    std::optional<std::string> appsFile;          ///< else the tool is asked
    std::string bundle;
    std::optional<std::string> interval; ///< seconds; else the stored one
    bool watch = false;
    bool run = false;       ///< not only list, but remove
    bool yes = false;       ///< the answer is given
    bool dryRun = false;    ///< only show what would go
    bool permanent = false; ///< for good, whatever the settings say
    bool json = false;
    TimePoint now; ///< the one "now" of every age
    Look look;     ///< how standard output may be painted

    /// The list given, or the one stored, which is read now.
    [[nodiscard]] std::vector<std::string> exclusionList() const;
};

/// What to print. The note goes to standard error, after the program's name.
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

// Removals
[[nodiscard]] Answer trash(const Request& request);
[[nodiscard]] Answer runClean(const Request& request);
[[nodiscard]] Answer runPurge(const Request& request);
[[nodiscard]] Answer runInstallers(const Request& request);
[[nodiscard]] Answer uninstall(const Request& request);

// The Trash
[[nodiscard]] Answer putBack(const Request& request);
[[nodiscard]] Answer trashMeter(const Request& request);
[[nodiscard]] Answer emptyTrash(const Request& request);

// The machine and the program
[[nodiscard]] Answer status(const Request& request);
[[nodiscard]] Answer prefs(const Request& request);
[[nodiscard]] Answer exclusions(const Request& request);
[[nodiscard]] Answer version(const Request& request);

/// What a reader that went away, or a full disk, makes of an answer.
[[nodiscard]] Answer unwritten(int error);

} // namespace zolva::ctl
