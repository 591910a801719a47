#include "ctl/Commands.h"
#include "ctl/Progress.h"
#include "ctl/RemovalPlan.h"
#include "ctl/RemovalReport.h"
#include "ctl/RemovalSession.h"
#include "ctl/TypedPath.h"
#include "files/DisplayPath.h"
#include "files/ExclusionRules.h"
#include "removal/runs/ListRuns.h"
#include "removal/runs/RunSelection.h"
#include "scanners/CleanScan.h"
#include "scanners/InstallerScanner.h"
#include "scanners/ProjectScan.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace zolva::ctl {

namespace {

using Start = std::function<QCoro::Task<RunReport>(RunTools)>;

/// Shows, asks, removes and tells; what the list covers was left out of the plan.
Answer removal(const Request& request, const Plan& plan, const Start& start,
               const std::vector<std::string>& excluded = {})
{
    if (request.dryRun) {
        return wouldAnswer(request, plan);
    }
    RemovalSession session(request, excluded);
    const std::string amount = amountText(plan);
    const std::string question = session.isPermanent() ? "Delete " + amount + " for good?"
                                                       : "Move " + amount + " to the Trash?";
    const bool wanted = nothingGoes(plan) || confirmed(request, plan, question, session.stop());
    if (!wanted || !session.begin()) {
        RunResult nothing;
        nothing.stopped = true;
        return declined(outcomeJson(nothing, Json::array()), request);
    }
    if (auto reason = session.exclusionsUnknown()) {
        return {{}, *std::move(reason), Exit::Failed};
    }
    return outcomeAnswer(request, session, session.finish(start(session.tools())));
}

Answer unknown(const std::string& what, const std::string& typed)
{
    return {{}, "the scan lists no " + what + " " + displayLine(typed), Exit::WrongUsage};
}

/// Which rows were named, by `nameOf`; the name that no row has.
template <typename Row, typename NameOf>
std::optional<std::string> keepNamed(std::vector<Row>& rows, const Request& request, NameOf nameOf)
{
    std::set<std::string> known;
    for (const Row& row : rows) {
        known.insert(nameOf(row));
    }
    std::set<std::string> named;
    for (const std::string& typed : request.operands) {
        const std::string name = namedPath(typed);
        if (!known.contains(name)) {
            return typed;
        }
        named.insert(name);
    }
    std::erase_if(rows, [&](const Row& row) { return !named.contains(nameOf(row)); });
    return std::nullopt;
}

} // namespace

Answer trash(const Request& request)
{
    if (const auto refusal = nobodyToAsk(request)) {
        return *refusal;
    }
    std::vector<std::string> paths;
    for (const std::string& typed : request.operands) {
        paths.push_back(namedPath(typed));
    }
    const std::vector<std::string> excluded = request.exclusionList();
    const std::vector<std::int64_t> sizes = sizesToShow(request, paths);
    Plan plan;
    for (std::size_t i = 0; i < paths.size(); ++i) {
        if (!isExcluded(paths[i], excluded)) {
            plan.push_back(planned(paths[i], sizes[i]));
        }
    }
    return removal(
        request, plan, [&paths](RunTools tools) { return runPaths(std::move(tools), paths); },
        excluded);
}

Answer runClean(const Request& request)
{
    if (const auto refusal = nobodyToAsk(request)) {
        return *refusal;
    }
    std::vector<Category> categories;
    {
        Progress progress;
        categories = scanCategories(minimumBytes, progress.teller());
    }
    CategoryPicks picks;
    for (const Category& category : categories) {
        picks[category.id] = request.operands.empty();
    }
    for (const std::string& id : request.operands) {
        if (!picks.contains(id)) {
            return unknown("category", id);
        }
        picks[id] = true;
    }
    const std::vector<CatPath> selected =
        selectedCleanPaths(categories, picks, request.exclusionList());
    Plan plan;
    for (const CatPath& path : selected) {
        plan.push_back(planned(path.p, path.b));
    }
    return removal(request, plan, [&selected](RunTools tools) {
        return zolva::runClean(std::move(tools), selected, {});
    });
}

Answer runPurge(const Request& request)
{
    if (const auto refusal = nobodyToAsk(request)) {
        return *refusal;
    }
    std::vector<Project> projects;
    {
        Progress progress;
        projects = scanProjects(request.now, artifactFloor, progress.teller());
    }
    if (request.operands.empty()) {
        std::erase_if(projects, [](const Project& project) { return project.age < recentDays; });
    } else if (const auto missing = keepNamed(projects, request, [](const Project& project) {
                   return namedPath(projectKey(project));
               })) {
        return unknown("build artifact", *missing);
    }
    const std::vector<Project> selected = removableProjects(projects, request.exclusionList());
    Plan plan;
    for (const Project& project : selected) {
        plan.push_back(planned(projectKey(project), project.b));
    }
    return removal(request, plan, [&selected](RunTools tools) {
        return zolva::runPurge(std::move(tools), selected, {});
    });
}

Answer runInstallers(const Request& request)
{
    if (const auto refusal = nobodyToAsk(request)) {
        return *refusal;
    }
    std::vector<InstallerItem> items = InstallerScanner::scan(request.now);
    if (!request.operands.empty()) {
        const auto missing =
            keepNamed(items, request, [](const InstallerItem& item) { return namedPath(item.p); });
        if (missing) {
            return unknown("installer", *missing);
        }
    }
    const std::vector<std::string> excluded = request.exclusionList();
    std::erase_if(items, [&](const InstallerItem& item) { return isExcluded(item.p, excluded); });
    Plan plan;
    for (const InstallerItem& item : items) {
        plan.push_back(planned(item.p, item.b));
    }
    return removal(request, plan, [&items](RunTools tools) {
        return zolva::runInstallers(std::move(tools), items, {});
    });
}

} // namespace zolva::ctl
