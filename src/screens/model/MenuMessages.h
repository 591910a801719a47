#pragma once

#include "removal/ReclaimSummary.h"

#include <QString>

#include <cstdint>

/// What the panel of the menu bar and its item say. Pure; numbers are bytes.
namespace zolva {

namespace menuwords {
inline constexpr auto unnamedVolume = "Macintosh HD";
inline constexpr auto accessNeeded = "access needed";
inline constexpr auto openZolva = "Open Zolva";
inline constexpr auto quitZolva = "Quit Zolva";
} // namespace menuwords

/// "43% full"; nothing is full where the total is not known.
[[nodiscard]] QString percentFull(std::int64_t free, std::int64_t total);
[[nodiscard]] QString freeOfTotal(std::int64_t total);
/// "Backup, 12.0 GB free of 500.0 GB".
[[nodiscard]] QString spokenDiskText(const QString& name, std::int64_t free, std::int64_t total);

/// The plural is the plain rule for every noun, "categorys" too.
[[nodiscard]] QString reclaimCount(std::int64_t count, const QString& noun);
/// Empty below 1.
[[nodiscard]] QString keptNote(std::int64_t bytes);
/// Empty below 1.
[[nodiscard]] QString trayLabel(std::int64_t total);
[[nodiscard]] QString trayToolTip(std::int64_t total);

} // namespace zolva
