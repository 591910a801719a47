#include "removal/runs/RunSelection.h"

#include "files/ExclusionRules.h"
#include "removal/runs/RunMessages.h"

#include <algorithm>
#include <iterator>
#include <numeric>

namespace zolva {

namespace {

template <typename Row>
std::int64_t sumOf(const std::vector<Row>& rows)
{
    return std::accumulate(rows.begin(), rows.end(), std::int64_t{0},
                           [](std::int64_t sum, const Row& row) { return sum + row.b; });
}

bool mayGo(const CatPath& path, const Whitelist& whitelist)
{
    return !path.prot && !isExcluded(path.p, whitelist);
}

} // namespace

std::vector<CatPath> selectedCleanPaths(const std::vector<Category>& categories,
                                        const CategoryPicks& picks, const Whitelist& whitelist)
{
    std::vector<CatPath> selected;
    for (const Category& category : categories) {
        const auto pick = picks.find(category.id);
        if (pick == picks.end() || !pick->second) {
            continue;
        }
        std::copy_if(category.paths.begin(), category.paths.end(), std::back_inserter(selected),
                     [&](const CatPath& path) { return mayGo(path, whitelist); });
    }
    return selected;
}

std::int64_t selectedCategoryCount(const CategoryPicks& picks)
{
    return std::count_if(picks.begin(), picks.end(), [](const auto& pick) { return pick.second; });
}

std::vector<Project> selectedProjects(const std::vector<Project>& projects,
                                      const std::set<std::string>& picks,
                                      const Whitelist& whitelist)
{
    std::vector<Project> selected = removableProjects(projects, whitelist);
    std::erase_if(selected, [&picks](const Project& project) {
        return !picks.contains(projectKey(project));
    });
    return selected;
}

std::vector<Project> removableProjects(const std::vector<Project>& projects,
                                       const Whitelist& whitelist)
{
    std::vector<Project> removable;
    std::copy_if(projects.begin(), projects.end(), std::back_inserter(removable),
                 [&whitelist](const Project& project) {
                     return !isExcluded(projectKey(project), whitelist);
                 });
    return removable;
}

std::vector<InstallerItem> selectedInstallers(const std::vector<InstallerItem>& installers,
                                              const std::set<std::string>& picks)
{
    std::vector<InstallerItem> selected;
    std::copy_if(installers.begin(), installers.end(), std::back_inserter(selected),
                 [&picks](const InstallerItem& item) { return picks.contains(item.p); });
    return selected;
}

std::int64_t bytesOf(const std::vector<CatPath>& paths)
{
    return sumOf(paths);
}

std::int64_t bytesOf(const std::vector<Project>& projects)
{
    return sumOf(projects);
}

std::int64_t bytesOf(const std::vector<InstallerItem>& installers)
{
    return sumOf(installers);
}

std::int64_t removableBytes(const std::vector<Category>& categories, const Whitelist& whitelist)
{
    std::int64_t bytes = 0;
    for (const Category& category : categories) {
        for (const CatPath& path : category.paths) {
            bytes += mayGo(path, whitelist) ? path.b : 0;
        }
    }
    return bytes;
}

QString cleanNote(const std::vector<Category>& categories, const Whitelist& whitelist,
                  bool keepInTrash)
{
    std::int64_t skipped = 0;
    for (const Category& category : categories) {
        skipped +=
            std::count_if(category.paths.begin(), category.paths.end(),
                          [&whitelist](const CatPath& path) { return !mayGo(path, whitelist); });
    }
    if (skipped > 0) {
        return counted(skipped, "path") + " protected and skipped.";
    }
    return keepInTrash ? QStringLiteral("Everything selected goes to the Trash. Your Mac rebuilds "
                                        "these on its own.")
                       : QStringLiteral("Everything selected is deleted for good. Your Mac "
                                        "rebuilds these on its own.");
}

bool mayRaiseSheet(const std::string& id, const SheetFigures& figures)
{
    if (id == "erase") {
        return figures.cleanBytes > 0;
    }
    if (id == "purge") {
        return figures.projectBytes > 0;
    }
    if (id == "installer") {
        return figures.installerBytes > 0;
    }
    return id != "uninstall" || figures.checkedApps > 0;
}

} // namespace zolva
