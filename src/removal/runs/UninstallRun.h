#pragma once

#include "files/Records.h"
#include "removal/runs/AppProcesses.h"
#include "removal/runs/RunTools.h"
#include "scanners/AppInventory.h"
#include "scanners/LeftoverScan.h"

#include <QCoroTask>

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>
#include <set>
#include <string>
#include <vector>

namespace zolva {

/// What an uninstall needs of the list of applications. Main thread.
class ListedApps
{
public:
    ListedApps() = default;
    virtual ~ListedApps() = default;
    ListedApps(const ListedApps&) = delete;
    ListedApps& operator=(const ListedApps&) = delete;

    /// Null unless the list is loaded.
    [[nodiscard]] virtual const std::vector<UninstallApp>* loaded() const = 0;
    /// The ids of the ticked ones, and of the one whose leftovers are on show.
    [[nodiscard]] virtual std::set<std::string> checkedApps() const = 0;
    [[nodiscard]] virtual std::optional<std::string> focused() const = 0;

    virtual void store(std::vector<UninstallApp> apps) = 0;
    virtual void clearChecked() = 0;
    virtual void clearFocus() = 0;
    /// Shows the application and scans its leftovers.
    virtual void focus(UninstallApp app) = 0;
};

/// Called in the background.
using ResidueScan =
    std::function<std::vector<ResidueRow>(const UninstallApp&, const std::vector<UninstallApp>&)>;

/// What an uninstall works with beside the tools of all runs; list and processes outlive the state.
struct UninstallTools
{
    RunTools run;
    ListedApps& list;
    AppProcesses& processes;
    ResidueScan scanResidue = zolva::scanResidue;
};

struct UninstallReport
{
    RunStart start = RunStart::NothingToDo;
    std::int64_t uninstalled = 0;
    std::vector<UninstallApp> stuck;        ///< the bundle is still there
    std::vector<UninstallApp> stillRunning; ///< of these, the ones that would not quit
};

/// Removes the ticked applications with what they left on the disk, for good whatever the settings
/// say. The rows leave the list at the call, and those that could not be removed come back. It is
/// no bulk run: neither progress nor stop nor journal, and it may overlap one. Main thread.
[[nodiscard]] QCoro::Task<UninstallReport> uninstallChecked(UninstallTools tools);

/// Once more for the applications that the user's own rights did not reach; what is moved stays in
/// the Trash. Leftovers that another application of the list may own stay; `known` stands for the
/// list while it is not loaded. Main thread.
[[nodiscard]] QCoro::Task<UninstallReport> retryWithAdmin(UninstallTools tools,
                                                          std::vector<UninstallApp> apps,
                                                          std::vector<UninstallApp> known);

inline constexpr int quitRounds = 20;
inline constexpr std::chrono::milliseconds quitRound{150};

/// Asks every running instance to quit, and waits a while for them. Whether there was any; not
/// whether it went. Main thread.
[[nodiscard]] QCoro::Task<bool> quitRunningApp(UninstallTools tools, std::string bundleID);
[[nodiscard]] bool isStillRunning(AppProcesses& processes, const std::string& bundleID);

} // namespace zolva
