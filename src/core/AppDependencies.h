#pragma once

#include "async/Clock.h"
#include "core/LiveScans.h"
#include "core/MoLocation.h"
#include "core/MoRunner.h"
#include "core/PrefsStore.h"
#include "core/SystemAppearance.h"
#include "files/Records.h"
#include "platform/VolumeSpace.h"
#include "removal/runs/RemovalDisk.h"
#include "removal/runs/UninstallRun.h"
#include "scanners/DiskAccess.h"
#include "updates/UpdateController.h"

#include <QCoroTask>

#include <functional>
#include <memory>
#include <string>
#include <vector>

/// What an `AppModel` is built from.
namespace zolva {

/// The reads of the disk that the model starts itself. They take and give plain values and cannot
/// fail.
struct AppReads
{
    std::function<QCoro::Task<std::vector<InstallerItem>>()> installers;
    std::function<QCoro::Task<std::vector<diskAccess::Location>>()> blockedLocations;
    /// Of the home's volume, at once, as bytes; empty where it has none.
    std::function<std::string()> volumeName{};
};

/// Places that are shown to the user outside this program. Where there is none, nothing happens.
struct AppDoors
{
    std::function<void()> accessSettings; ///< where access to folders is granted
    std::function<void()> logFolder;
    std::function<void()> trash;
    /// A page of the web, by its whole address.
    std::function<void(const std::string& url)> page;
    /// The item at the path, selected in its folder; it may begin with a tilde, and be gone.
    std::function<void(const std::string& path)> reveal;
    std::function<void()> toolLicense; ///< the text that the shipped tool came with
};

/// What removals read and change outside this program.
struct AppDisk
{
    std::shared_ptr<RemovalDisk> disk;
    std::function<VolumeSpace()> space; ///< of the home's volume
    std::unique_ptr<AppProcesses> processes;
    ResidueScan scanResidue; ///< called in the background
};

/// The steps of a start that belong to the program with the window.
struct StartSteps
{
    bool meters = true;
    bool prefsCheck = true; ///< telling why the settings may not be the user's own
    bool journalCheck = true;
    bool accessProbe = true;
};

struct AppDependencies
{
    Clock& clock;      ///< outlives the model
    PrefsStore& prefs; ///< outlives the model
    std::unique_ptr<MoRunner> runner;
    MoLocation mo; ///< where the runner's tool stands
    LiveScans scans;
    AppReads reads;
    AppDisk disk;
    std::string logFolder; ///< of the run journal and the record of crashes
    std::function<void(const std::string& logFolder)> crashCapture;
    SystemAppearance* appearance = nullptr; ///< outlives the model; null for a light desktop
    AppDoors doors{};
    AppUpdates updates{};
    StartSteps steps{};
};

/// The real ones, as far as they need no window: no appearance, doors or updates. Looks for the
/// tool.
[[nodiscard]] AppDependencies liveDependencies(Clock& clock, PrefsStore& prefs);

} // namespace zolva
