#pragma once

#include "core/SortKey.h"
#include "files/Records.h"
#include "scanners/AppInventory.h"
#include "scanners/StorageAnalysis.h"

#include <QCollator>

#include <cstddef>
#include <vector>

/// The rows of a list in the order of its screen. Names go by the collator's locale; what is equal
/// goes by path, byte by byte, and a category, which has none, by its id. Rows without an age or a
/// size count as 0. Pure.
namespace zolva {

/// By all bytes of a category.
[[nodiscard]] std::vector<Category> sortedCategories(std::vector<Category> rows, SortKey key,
                                                     const QCollator& names = QCollator());
/// The name of a project is the folder that its row shows.
[[nodiscard]] std::vector<Project> sortedProjects(std::vector<Project> rows, SortKey key,
                                                  const QCollator& names = QCollator());
[[nodiscard]] std::vector<InstallerItem> sortedInstallers(std::vector<InstallerItem> rows,
                                                          SortKey key,
                                                          const QCollator& names = QCollator());
/// By the bytes of the bundle.
[[nodiscard]] std::vector<UninstallApp> sortedApps(std::vector<UninstallApp> rows, SortKey key,
                                                   const QCollator& names = QCollator());

/// Where the entries of an analysis, which may be very many, stand in it, in the order of their
/// names. It takes its time; any thread.
[[nodiscard]] std::vector<std::size_t> placesByName(const std::vector<AnalyzeEntry>& entries,
                                                    const QCollator& names = QCollator());

} // namespace zolva
