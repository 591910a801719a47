#pragma once

#include <string_view>

/// Every message of the log. In a format, each "%…" stands for one argument.
namespace zolva {

enum class LogCategory
{
    App,
    Remove,
    Scan
};
enum class LogLevel
{
    Debug,
    Default,
    Error,
    Fault
};

struct LogFormat
{
    LogCategory category;
    LogLevel level;
    std::string_view text;
};

namespace logformat {

using enum LogCategory;
using enum LogLevel;

inline constexpr LogFormat accessIntro{App, Default,
                                       "access intro shown, opened settings: %{bool}d"};
inline constexpr LogFormat updaterEnabled{App, Default, "updater enabled, feed %{public}s"};
inline constexpr LogFormat updaterInert{App, Default,
                                        "updater inert: no signed feed configured for this build"};
inline constexpr LogFormat updateAvailable{App, Default, "update check: build %ld available"};
inline constexpr LogFormat updateCurrent{App, Default, "update check: already current"};
inline constexpr LogFormat updateSkipped{App, Default, "update check skipped: not configured"};
inline constexpr LogFormat updateFailed{App, Error, "update check failed: %{public}s"};
inline constexpr LogFormat preferencesSetAside{App, Error,
                                               "preferences damaged, set aside as %{public}s"};
inline constexpr LogFormat preferencesUnreadable{App, Error, "preferences not read: %{public}s"};
inline constexpr LogFormat preferencesUnwritten{App, Error, "preferences not written: %{public}s"};

inline constexpr LogFormat unfinishedRun{Remove, Fault, "previous run did not finish: %{public}s"};
inline constexpr LogFormat runStarting{Remove, Default,
                                       "%{public}s starting: %ld paths, %lld bytes"};
inline constexpr LogFormat runFinished{Remove, Default,
                                       "%{public}s finished: %ld moved, %ld purged, %ld problems"};
inline constexpr LogFormat runStopped{
    Remove, Default, "%{public}s stopped by the user: %ld removed, %ld left alone"};
inline constexpr LogFormat trashed{Remove, Default, "trashed %{public}s (%lld bytes)"};
inline constexpr LogFormat purged{Remove, Default, "purged from Trash %{public}s"};
inline constexpr LogFormat alreadyGone{Remove, Debug, "already gone %{public}s"};
inline constexpr LogFormat refused{Remove, Error, "refused %{public}s: %{public}s"};
inline constexpr LogFormat failed{Remove, Error, "failed %{public}s: %{public}s"};
inline constexpr LogFormat purgeRefused{Remove, Fault, "purge refused %{public}s: %{public}s"};
inline constexpr LogFormat trashNotFound{Remove, Error,
                                         "could not locate the Trash folder; nothing purged"};

inline constexpr LogFormat blockedByPrivacy{Scan, Default,
                                            "blocked by privacy settings: %{public}s"};

} // namespace logformat

} // namespace zolva
