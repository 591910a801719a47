#pragma once

#include "files/Records.h"
#include "removal/runs/BulkRun.h"

#include <QCoroTask>

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

/// The flows that remove rows of a scan's list. Each begins at the call: a run that is going, here
/// or in another process, or an empty selection ends it there, with nothing done. Main thread.
namespace zolva {

struct RunReport
{
    RunStart start = RunStart::NothingToDo;
    RunResult result; ///< of a run that started
};

/// What follows a run over a list that is then scanned anew. Called only while the run's state
/// lives; any may be empty.
struct AfterRun
{
    std::function<void(std::int64_t freed)> setFreed;
    std::function<void()> forgetList; ///< so that nothing stale is chosen while the scan runs
    std::function<QCoro::Task<>()> rescan;
};

/// The chosen paths of the categories.
[[nodiscard]] QCoro::Task<RunReport> runClean(RunTools tools, std::vector<CatPath> selected,
                                              AfterRun after);
/// The chosen projects' artifacts.
[[nodiscard]] QCoro::Task<RunReport> runPurge(RunTools tools, std::vector<Project> selected,
                                              AfterRun after);

/// Takes rows out of the list and out of the selection, by their paths. That comes before anything
/// is done on disk, and no scan follows.
using DropRows = std::function<void(const std::vector<std::string>& paths)>;

/// The chosen installers.
[[nodiscard]] QCoro::Task<RunReport>
runInstallers(RunTools tools, std::vector<InstallerItem> selected, DropRows dropRows);
/// One installer, without a sheet.
[[nodiscard]] QCoro::Task<RunReport> removeInstaller(RunTools tools, InstallerItem item,
                                                     DropRows dropRows);

/// Any paths, as a run of their own.
[[nodiscard]] QCoro::Task<RunReport> runPaths(RunTools tools, std::vector<std::string> paths);

} // namespace zolva
