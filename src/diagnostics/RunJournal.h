#pragma once

#include <chrono>
#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

/// The marker file that is there exactly while a bulk removal runs, so that the next start can tell
/// that one was cut short. A step that fails is passed over: no run is refused for its journal's
/// sake. Main thread.
namespace zolva {

/// The folder of this program's own logs below the home folder.
[[nodiscard]] std::string logFolder(std::string_view home);

/// The time in UTC, to the second: "2026-01-02T03:04:05Z". Pure.
[[nodiscard]] std::string iso8601(std::chrono::system_clock::time_point time);

/// A run of so many paths starts; an older marker is replaced.
void journalBegin(const std::string& folder, std::string_view label, std::size_t paths,
                  std::chrono::system_clock::time_point now);

/// The run has ended, in whatever way.
void journalClear(const std::string& folder);

/// The marker without the white space around it; nothing if there is none, it cannot be read, or
/// nothing is left.
[[nodiscard]] std::optional<std::string> journalRead(const std::string& folder);

/// A run that did not come to its end.
struct UnfinishedRun
{
    std::string journal; ///< the marker's content
    std::string label;   ///< the run's, "A removal" where the marker does not tell
};

/// Takes up the marker of a run that was cut short: it is removed and logged, so that each is told
/// once. Nothing if there is none, or if its run still goes on in another process.
[[nodiscard]] std::optional<UnfinishedRun> takeUnfinishedRun(const std::string& folder);

/// How the user is told.
[[nodiscard]] std::string unfinishedRunText(const UnfinishedRun& run);

} // namespace zolva
