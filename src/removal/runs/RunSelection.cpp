#include "removal/runs/RunSelection.h"

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

bool mayGo(const CatPath& path, const ExclusionRules& rules)
{
    return !path.prot && !rules.covers(path.p);
}

template <typename Visit>
void eachSelectedPath(const std::vector<Category>& categories, const CategoryPicks& picks,
                      const Whitelist& whitelist, const Visit& visit)
{
    const ExclusionRules rules(whitelist);
    for (const Category& category : categories) {
        const auto pick = picks.find(category.id);
        if (pick == picks.end() || !pick->second) {
            continue;
        }
        for (const CatPath& path : category.paths) {
            if (mayGo(path, rules)) {
                visit(path);
            }
        }
    }
}

/// Those whose keys `isWanted` takes.
template <typename IsWanted, typename Visit>
void eachRemovableProject(const std::vector<Project>& projects, const Whitelist& whitelist,
                          const IsWanted& isWanted, const Visit& visit)
{
    const ExclusionRules rules(whitelist);
    for (const Project& project : projects) {
        const std::string key = projectKey(project);
        if (isWanted(key) && !rules.covers(key)) {
            visit(project);
        }
    }
}

bool isAny(const std::string&)
{
    return true;
}

auto isIn(const std::set<std::string>& picks)
{
    return [&picks](const std::string& key) { return picks.contains(key); };
}

template <typename Row>
auto addingBytes(std::int64_t& bytes)
{
    return [&bytes](const Row& row) { bytes += row.b; };
}

template <typename Row>
auto copyingTo(std::vector<Row>& rows)
{
    return [&rows](const Row& row) { rows.push_back(row); };
}

} // namespace

std::vector<CatPath> selectedCleanPaths(const std::vector<Category>& categories,
                                        const CategoryPicks& picks, const Whitelist& whitelist)
{
    std::vector<CatPath> selected;
    eachSelectedPath(categories, picks, whitelist, copyingTo(selected));
    return selected;
}

std::int64_t selectedCleanBytes(const std::vector<Category>& categories, const CategoryPicks& picks,
                                const Whitelist& whitelist)
{
    std::int64_t bytes = 0;
    eachSelectedPath(categories, picks, whitelist, addingBytes<CatPath>(bytes));
    return bytes;
}

std::int64_t selectedCategoryCount(const CategoryPicks& picks)
{
    return std::count_if(picks.begin(), picks.end(), [](const auto& pick) { return pick.second; });
}

std::vector<Project> selectedProjects(const std::vector<Project>& projects,
                                      const std::set<std::string>& picks,
                                      const Whitelist& whitelist)
{
    std::vector<Project> selected;
    eachRemovableProject(projects, whitelist, isIn(picks), copyingTo(selected));
    return selected;
}

std::int64_t selectedProjectBytes(const std::vector<Project>& projects,
                                  const std::set<std::string>& picks, const Whitelist& whitelist)
{
    std::int64_t bytes = 0;
    eachRemovableProject(projects, whitelist, isIn(picks), addingBytes<Project>(bytes));
    return bytes;
}

std::vector<Project> removableProjects(const std::vector<Project>& projects,
                                       const Whitelist& whitelist)
{
    std::vector<Project> removable;
    eachRemovableProject(projects, whitelist, isAny, copyingTo(removable));
    return removable;
}

std::int64_t removableProjectBytes(const std::vector<Project>& projects, const Whitelist& whitelist)
{
    std::int64_t bytes = 0;
    eachRemovableProject(projects, whitelist, isAny, addingBytes<Project>(bytes));
    return bytes;
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
    const ExclusionRules rules(whitelist);
    std::int64_t bytes = 0;
    for (const Category& category : categories) {
        bytes += removableBytes(category, rules);
    }
    return bytes;
}

std::int64_t removableBytes(const Category& category, const ExclusionRules& rules)
{
    std::int64_t bytes = 0;
    for (const CatPath& path : category.paths) {
        bytes += mayGo(path, rules) ? path.b : 0;
    }
    return bytes;
}

QString cleanNote(std::int64_t skipped, bool keepInTrash)
{
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
