#include "ctl/AppSource.h"
#include "ctl/Commands.h"
#include "ctl/RemovalPlan.h"
#include "ctl/RemovalReport.h"
#include "ctl/RemovalSession.h"
#include "ctl/Table.h"
#include "ctl/TypedPath.h"
#include "files/DisplayPath.h"
#include "files/ExclusionRules.h"
#include "files/FolderTally.h"
#include "removal/runs/UninstallRun.h"
#include "scanners/LeftoverScan.h"

#include <algorithm>
#include <iterator>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace zolva::ctl {

namespace {

using Apps = std::vector<UninstallApp>;

/// The listed applications, and those that were named, which nobody looks at.
class NamedApps final : public ListedApps
{
public:
    explicit NamedApps(Apps apps) : m_apps(std::move(apps)) {}

    void check(const UninstallApp& app) { m_checked.insert(app.id()); }

    [[nodiscard]] Apps those(bool checked) const
    {
        Apps some;
        std::copy_if(
            m_apps.begin(), m_apps.end(), std::back_inserter(some),
            [&](const UninstallApp& app) { return m_checked.contains(app.id()) == checked; });
        return some;
    }

    [[nodiscard]] const Apps* loaded() const override { return &m_apps; }
    [[nodiscard]] std::set<std::string> checkedApps() const override { return m_checked; }
    [[nodiscard]] std::optional<std::string> focused() const override { return std::nullopt; }
    void store(Apps apps) override { m_apps = std::move(apps); }
    void clearChecked() override { m_checked.clear(); }
    void clearFocus() override {}
    void focus(UninstallApp /*app*/) override {}

private:
    Apps m_apps;
    std::set<std::string> m_checked;
};

/// What the uninstall will find, if nothing changes before.
Plan uninstallPlan(const NamedApps& list, const std::vector<std::string>& excluded)
{
    const Apps others = list.those(false);
    Plan plan;
    for (const UninstallApp& app : list.those(true)) {
        Plan own;
        for (const ResidueRow& row : scanResidue(app, others)) {
            if (!row.shared) {
                own.push_back(planned(row.p, row.b));
            }
        }
        if (own.empty()) {
            own.push_back(planned(app.path, folderTally(app.path).bytes));
        }
        std::copy_if(own.begin(), own.end(), std::back_inserter(plan),
                     [&](const PlannedItem& item) { return !isExcluded(item.path, excluded); });
    }
    return plan;
}

/// Ticks what was named; the path that no application has.
std::optional<std::string> checkNamed(NamedApps& list, const std::vector<std::string>& typed)
{
    for (const std::string& path : typed) {
        const std::string whole = namedPath(path);
        const Apps& apps = *list.loaded();
        const auto app = std::find_if(apps.begin(), apps.end(), [&](const UninstallApp& one) {
            return namedPath(one.path) == whole;
        });
        if (app == apps.end()) {
            return path;
        }
        list.check(*app);
    }
    return std::nullopt;
}

Json pathsJson(const Apps& apps)
{
    std::vector<std::string> paths;
    for (const UninstallApp& app : apps) {
        paths.push_back(app.path);
    }
    return textsJson(paths);
}

Json uninstallJson(const UninstallReport& report, const Json& toasts)
{
    return {{"uninstalled", report.uninstalled},
            {"stuck", pathsJson(report.stuck)},
            {"stillRunning", pathsJson(report.stillRunning)},
            {"toasts", toasts}};
}

} // namespace

Answer uninstall(const Request& request)
{
    if (const auto refusal = nobodyToAsk(request)) {
        return *refusal;
    }
    auto listed = listedApps(request);
    if (!listed) {
        return {{}, listed.error(), Exit::Failed};
    }
    NamedApps list(std::move(*listed));
    if (const auto missing = checkNamed(list, request.operands)) {
        return {{}, "no application is listed at " + displayLine(*missing), Exit::WrongUsage};
    }
    const std::vector<std::string> excluded = request.exclusionList();
    const Plan plan = isShown(request) ? uninstallPlan(list, excluded) : Plan();
    if (request.dryRun) {
        return wouldAnswer(request, plan);
    }
    RemovalSession session(request, excluded);
    const auto apps = static_cast<std::int64_t>(list.checkedApps().size());
    const std::string question = "Quit and uninstall " + counted(apps, "app") + ", and delete " +
                                 amountText(plan) + " for good?";
    // Also where nothing would go: the application is asked to quit all the same.
    if (!confirmed(request, plan, question, session.stop()) || !session.begin()) {
        return declined(uninstallJson({}, Json::array()), request);
    }
    if (auto reason = session.exclusionsUnknown()) {
        return {{}, *std::move(reason), Exit::Failed};
    }
    SystemAppProcesses processes;
    const UninstallReport report =
        session.finish(uninstallChecked({session.tools(), list, processes}));
    Answer answer = request.json ? document(uninstallJson(report, session.toastsJson()))
                                 : Answer{session.toastsText(), {}, {}};
    if (report.start == RunStart::OtherProcess) {
        return otherProcess(answer.output, request);
    }
    answer.code = report.stuck.empty() ? Exit::Done : Exit::Failed;
    return answer;
}

} // namespace zolva::ctl
