#pragma once

#include "removal/Toasts.h"

#include <QString>

#include <cstdint>
#include <string>
#include <vector>

/// The words of the bulk runs. Pure; text of the disk may hold any bytes, and nothing in it begins
/// another line or turns the direction of one.
namespace zolva {

inline constexpr auto excludedReason = "excluded in Settings";

/// Which bulk run, and how it is named to the log and on the progress card.
struct RunName
{
    const char* label;
    const char* title;
};
namespace runname {
inline constexpr RunName clean{"clean", "Removing caches"};
inline constexpr RunName purge{"purge", "Removing build artifacts"};
inline constexpr RunName installers{"installers", "Removing installers"};
inline constexpr RunName installer{"installer", "Removing installer"};
inline constexpr RunName trash{"trash", "Moving to the Trash"};
inline constexpr RunName emptyTrash{"empty trash", "Emptying the Trash"};
} // namespace runname

inline constexpr auto stoppingTitle = "Stopping…";

/// The noun with an "s" unless the count is 1.
[[nodiscard]] QString counted(std::int64_t count, const QString& noun);

/// A path for the progress card: over 58 characters, as people count them, the first 24, "…" and
/// the last 31.
[[nodiscard]] QString shortenedPath(const std::string& path);

enum class SummaryAction
{
    None,
    OpenTrash
};
struct SummaryToast
{
    BannerKind kind = BannerKind::Info;
    QString text;
    SummaryAction action = SummaryAction::None;

    friend bool operator==(const SummaryToast&, const SummaryToast&) = default;
};

/// The figures of a run that has ended.
struct RunFigures
{
    std::int64_t attempts = 0;
    std::int64_t moved = 0;
    std::int64_t freed = 0;            ///< bytes
    std::vector<std::string> failures; ///< texts of what was refused or failed, in order
    std::int64_t purged = 0;
    std::vector<std::string> problems; ///< of the purge
};

/// The toasts at the end of a run, in order.
[[nodiscard]] std::vector<SummaryToast> runSummary(const RunFigures& run, bool keepInTrash);

inline constexpr auto openTrashAction = "Open Trash";

/// "Stopped. …"
[[nodiscard]] QString stoppedText(std::int64_t moved, std::int64_t left);

/// Told where a removal cannot start because another process of this user removes.
[[nodiscard]] QString otherProcessText();

} // namespace zolva
