#pragma once

#include "files/Records.h"

#include <QString>

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// What the user could get back now, by kind. Pure; the figures are added up at each call.
namespace zolva {

struct ReclaimRow
{
    QString id;
    QString label;
    QString symbol; ///< the system symbol's name
    std::int64_t bytes = 0;
    std::int64_t count = 0;
    QString noun;                  ///< of one, singular
    std::optional<QString> screen; ///< that it leads to, if any
};

/// What the summary is made from. It refers to the lists, which outlive it; a scan that is not
/// loaded is null.
struct ReclaimSources
{
    const std::vector<Category>* clean = nullptr;
    const std::vector<Project>* purge = nullptr;
    const std::vector<InstallerItem>& installers;
    const std::vector<std::string>& whitelist;
    std::int64_t trashBytes = 0;
    std::int64_t trashCount = 0;
    bool trashUnreadable = false;
};

/// Clean, purge, installers and the Trash, also where they hold nothing.
[[nodiscard]] std::array<ReclaimRow, 4> reclaimRows(const ReclaimSources& sources);

/// The bytes of the four rows.
[[nodiscard]] std::int64_t reclaimTotal(const ReclaimSources& sources);

/// Bytes of the Clean scan that are neither protected nor excluded.
[[nodiscard]] std::int64_t cleanableBytes(const ReclaimSources& sources);

/// The same of the model's own list of categories (null while it has none), and the removable
/// projects; neither installers nor the Trash.
[[nodiscard]] std::int64_t scannedReclaimBytes(const std::vector<Category>* liveCats,
                                               const ReclaimSources& sources);

} // namespace zolva
