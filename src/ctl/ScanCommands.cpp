#include "ctl/Commands.h"
#include "ctl/JsonText.h"
#include "ctl/Progress.h"
#include "ctl/Table.h"
#include "files/DisplayPath.h"
#include "files/ExclusionRules.h"
#include "files/SizeText.h"
#include "scanners/CleanScan.h"
#include "scanners/InstallerScanner.h"
#include "scanners/ProjectScan.h"

#include <algorithm>
#include <string>
#include <vector>

namespace zolva::ctl {

namespace {

std::string daysText(std::int64_t days)
{
    return counted(days, "day");
}

Json cleanJson(const std::vector<Category>& categories)
{
    Json rows = Json::array();
    for (const Category& category : categories) {
        Json paths = Json::array();
        for (const CatPath& path : category.paths) {
            Json& entry = paths.emplace_back(Json::object());
            putPath(entry, "p", path.p);
            entry["b"] = path.b;
            entry["prot"] = path.prot;
            entry["sudo"] = path.sudo;
        }
        rows.push_back({{"id", category.id},
                        {"name", category.name},
                        {"desc", category.desc},
                        {"items", category.items},
                        {"sudo", category.sudo},
                        {"bytes", totalBytes(category)},
                        {"paths", paths}});
    }
    return {{"categories", rows}};
}

/// Why the path stays where it is; empty where it may go.
const char* keptText(const std::string& path, const std::vector<std::string>& excluded)
{
    return isExcluded(path, excluded) ? "excluded, never touched" : "";
}

const char* keptText(const CatPath& path, const std::vector<std::string>& excluded)
{
    return path.prot ? "protected, never removed" : keptText(path.p, excluded);
}

/// The exclusion list, where something is said of it.
std::vector<std::string> shownExclusions(const Request& request)
{
    return request.json ? std::vector<std::string>() : request.exclusionList();
}

/// What of a list may go, and what stays.
struct Sums
{
    std::int64_t free = 0;
    std::int64_t kept = 0;

    void add(std::int64_t bytes, const char* whyKept) { (*whyKept == '\0' ? free : kept) += bytes; }

    [[nodiscard]] std::string line(const std::string& what, const Look& look) const
    {
        return what + ": " + painted(sizeText(free), Ink::Strong, look) +
               (kept > 0 ? " (" + sizeText(kept) + " more is kept)\n" : "\n");
    }
};

/// One category: its heading and its paths by their share of it.
std::string categoryText(const Category& category, const std::vector<std::string>& excluded,
                         const Look& look)
{
    const std::int64_t whole = totalBytes(category);
    Table table({{{}, Side::Right}, {}, {}, {}});
    for (const CatPath& path : category.paths) {
        table.row({{sizeText(path.b), Ink::Strong},
                   {shareBar(path.b, whole), Ink::Bar},
                   {displayLine(path.p)},
                   {keptText(path, excluded), Ink::Bad}});
    }
    return painted(category.name, Ink::Strong, look) + "  " + sizeText(whole) + ", " +
           counted(category.items, "item") + "\n" + painted(category.desc, Ink::Faint, look) +
           "\n" + table.text(look) + "\n";
}

} // namespace

Answer clean(const Request& request)
{
    std::vector<Category> categories;
    {
        Progress progress;
        categories = scanCategories(minimumBytes, progress.teller());
    }
    if (request.json) {
        return document(cleanJson(categories));
    }
    if (categories.empty()) {
        return {"Nothing to clean right now. Your caches are already at their floor.\n", {}, {}};
    }
    const std::vector<std::string> excluded = request.exclusionList();
    std::string text;
    Sums sums;
    for (const Category& category : categories) {
        text += categoryText(category, excluded, request.look);
        for (const CatPath& path : category.paths) {
            sums.add(path.b, keptText(path, excluded));
        }
    }
    return {text + sums.line("Can be cleaned", request.look), {}, {}};
}

Answer purge(const Request& request)
{
    std::vector<Project> projects;
    {
        Progress progress;
        projects = scanProjects(request.now, artifactFloor, progress.teller());
    }
    Json rows = Json::array();
    Table table(
        {{"SIZE", Side::Right}, {"SHARE"}, {"ARTIFACT"}, {"AGE", Side::Right}, {"PROJECT"}, {}});
    const auto excluded = shownExclusions(request);
    Sums sums;
    std::int64_t whole = 0;
    for (const Project& project : projects) {
        whole += project.b;
    }
    for (const Project& project : projects) {
        if (request.json) {
            Json& row = rows.emplace_back(Json::object());
            putPath(row, "p", project.p);
            row["artifact"] = displayText(project.artifact);
            row["b"] = project.b;
            row["age"] = project.age;
            continue;
        }
        const bool recent = project.age < recentDays;
        const char* kept = keptText(projectKey(project), excluded);
        sums.add(project.b, kept);
        table.row({{sizeText(project.b), Ink::Strong},
                   {shareBar(project.b, whole), Ink::Bar},
                   {displayLine(project.artifact)},
                   {daysText(project.age), recent ? Ink::Good : Ink::Plain},
                   {displayLine(project.p)},
                   {kept, Ink::Bad}});
    }
    if (request.json) {
        return document({{"projects", rows}});
    }
    if (projects.empty()) {
        return {"No build artifacts found in your project folders.\n", {}, {}};
    }
    return {table.text(request.look) + "\n" + sums.line("Build artifacts", request.look), {}, {}};
}

Answer installers(const Request& request)
{
    const std::vector<InstallerItem> items = InstallerScanner::scan(request.now);
    Json rows = Json::array();
    Table table({{"SIZE", Side::Right}, {"NAME"}, {"FROM"}, {"AGE", Side::Right}, {"PATH"}, {}});
    const auto excluded = shownExclusions(request);
    Sums sums;
    for (const InstallerItem& item : items) {
        if (request.json) {
            Json& row = rows.emplace_back(Json::object());
            row["name"] = displayText(item.name);
            row["src"] = item.src;
            row["b"] = item.b;
            row["age"] = item.age;
            putPath(row, "p", item.p);
            continue;
        }
        const char* kept = keptText(item.p, excluded);
        sums.add(item.b, kept);
        table.row({{sizeText(item.b), Ink::Strong},
                   {displayLine(item.name)},
                   {item.src},
                   {daysText(item.age)},
                   {displayLine(item.p), Ink::Faint},
                   {kept, Ink::Bad}});
    }
    if (request.json) {
        return document({{"installers", rows}});
    }
    if (items.empty()) {
        return {"No installers left behind.\n", {}, {}};
    }
    return {table.text(request.look) + "\n" + sums.line("Installers", request.look), {}, {}};
}

} // namespace zolva::ctl
