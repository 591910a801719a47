#pragma once

#include "files/ExclusionRules.h"
#include "files/Records.h"

#include <QString>

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <vector>

/// What of the scans' lists the user has chosen, and what of it may go. Pure; nothing is cached, so
/// a change of the exclusion list shows at the next read.
namespace zolva {

/// By the categories' ids.
using CategoryPicks = std::map<std::string, bool>;
using Whitelist = std::vector<std::string>;

/// The paths of the ticked categories, in order, without the protected and the excluded.
[[nodiscard]] std::vector<CatPath> selectedCleanPaths(const std::vector<Category>& categories,
                                                      const CategoryPicks& picks,
                                                      const Whitelist& whitelist);
/// Their bytes, without a copy of them.
[[nodiscard]] std::int64_t selectedCleanBytes(const std::vector<Category>& categories,
                                              const CategoryPicks& picks,
                                              const Whitelist& whitelist);
[[nodiscard]] std::int64_t selectedCategoryCount(const CategoryPicks& picks);

/// By their keys, without the excluded.
[[nodiscard]] std::vector<Project> selectedProjects(const std::vector<Project>& projects,
                                                    const std::set<std::string>& picks,
                                                    const Whitelist& whitelist);
/// Their bytes, without a copy of them.
[[nodiscard]] std::int64_t selectedProjectBytes(const std::vector<Project>& projects,
                                                const std::set<std::string>& picks,
                                                const Whitelist& whitelist);
/// All that are not excluded.
[[nodiscard]] std::vector<Project> removableProjects(const std::vector<Project>& projects,
                                                     const Whitelist& whitelist);
/// Their bytes, without a copy of them.
[[nodiscard]] std::int64_t removableProjectBytes(const std::vector<Project>& projects,
                                                 const Whitelist& whitelist);

/// By their paths. The exclusion list is left to the run.
[[nodiscard]] std::vector<InstallerItem>
selectedInstallers(const std::vector<InstallerItem>& installers,
                   const std::set<std::string>& picks);

/// The bytes of the rows.
[[nodiscard]] std::int64_t bytesOf(const std::vector<CatPath>& paths);
[[nodiscard]] std::int64_t bytesOf(const std::vector<Project>& projects);
[[nodiscard]] std::int64_t bytesOf(const std::vector<InstallerItem>& installers);

/// Bytes of all paths, ticked or not, that are neither protected nor excluded.
[[nodiscard]] std::int64_t removableBytes(const std::vector<Category>& categories,
                                          const Whitelist& whitelist);
/// The same of one category.
[[nodiscard]] std::int64_t removableBytes(const Category& category, const ExclusionRules& rules);

/// The line under the list of categories; `skipped` counts the protected and excluded paths of all.
[[nodiscard]] QString cleanNote(std::int64_t skipped, bool keepInTrash);

/// What the sheets would be about.
struct SheetFigures
{
    std::int64_t cleanBytes = 0;
    std::int64_t projectBytes = 0;
    std::int64_t installerBytes = 0;
    std::size_t checkedApps = 0;
};
/// Whether the sheet has anything to confirm; one that is not about a selection always opens.
[[nodiscard]] bool mayRaiseSheet(const std::string& id, const SheetFigures& figures);

} // namespace zolva
