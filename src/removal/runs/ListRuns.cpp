#include "removal/runs/ListRuns.h"

#include "removal/runs/RunSelection.h"

#include <utility>

namespace zolva {

namespace {

/// The run itself, and what every flow does behind it.
QCoro::Task<RunReport> enteredRun(RunTools tools, BulkOrder order, HeldRunLock lock, AfterRun after)
{
    RunReport report;
    report.start = RunStart::Started;
    report.result = co_await runBulk(tools, std::move(order), std::move(lock));
    if (!tools.state) {
        co_return report;
    }
    if (after.setFreed) {
        after.setFreed(report.result.freed);
    }
    showRunSummary(tools, report.result);
    tools.space.refreshFreeSpace();
    if (after.forgetList) {
        after.forgetList();
    }
    if (after.rescan) {
        co_await after.rescan();
    }
    co_return report;
}

QCoro::Task<RunReport> listRun(RunTools tools, BulkOrder order, AfterRun after)
{
    RunReport report;
    if (order.paths.empty()) {
        co_return report;
    }
    HeldRunLock lock;
    report.start = enterRun(tools, lock);
    if (report.start != RunStart::Started) {
        co_return report;
    }
    report = co_await enteredRun(tools, std::move(order), std::move(lock), std::move(after));
    co_return report;
}

QCoro::Task<RunReport> installersRun(RunTools tools, RunName name, std::vector<InstallerItem> items,
                                     DropRows dropRows)
{
    RunReport report;
    BulkOrder order{name, {}, bytesOf(items)};
    for (const InstallerItem& item : items) {
        order.paths.push_back(item.p);
    }
    if (order.paths.empty()) {
        co_return report;
    }
    HeldRunLock lock;
    report.start = enterRun(tools, lock);
    if (report.start != RunStart::Started) {
        co_return report;
    }
    if (dropRows) {
        dropRows(order.paths);
    }
    AfterRun nothing;
    report = co_await enteredRun(tools, std::move(order), std::move(lock), std::move(nothing));
    co_return report;
}

} // namespace

QCoro::Task<RunReport> runClean(RunTools tools, std::vector<CatPath> selected, AfterRun after)
{
    BulkOrder order{runname::clean, {}, bytesOf(selected)};
    for (CatPath& path : selected) {
        order.paths.push_back(std::move(path.p));
    }
    return listRun(std::move(tools), std::move(order), std::move(after));
}

QCoro::Task<RunReport> runPurge(RunTools tools, std::vector<Project> selected, AfterRun after)
{
    BulkOrder order{runname::purge, {}, bytesOf(selected)};
    for (const Project& project : std::exchange(selected, {})) {
        order.paths.push_back(projectKey(project));
    }
    return listRun(std::move(tools), std::move(order), std::move(after));
}

QCoro::Task<RunReport> runInstallers(RunTools tools, std::vector<InstallerItem> selected,
                                     DropRows dropRows)
{
    return installersRun(std::move(tools), runname::installers, std::move(selected),
                         std::move(dropRows));
}

QCoro::Task<RunReport> removeInstaller(RunTools tools, InstallerItem item, DropRows dropRows)
{
    return installersRun(std::move(tools), runname::installer, {std::move(item)},
                         std::move(dropRows));
}

QCoro::Task<RunReport> runPaths(RunTools tools, std::vector<std::string> paths)
{
    BulkOrder order{runname::trash, std::move(paths), 0};
    return listRun(std::move(tools), std::move(order), {});
}

} // namespace zolva
