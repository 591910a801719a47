#pragma once

#include "core/AppDependencies.h"
#include "core/AppLists.h"
#include "core/AppSettings.h"
#include "core/LiveData.h"
#include "core/LiveListedApps.h"
#include "removal/FreeSpaceMeter.h"
#include "removal/ReclaimSummary.h"
#include "removal/Toasts.h"
#include "removal/TrashMeter.h"
#include "removal/runs/AnalyzeRemoval.h"
#include "removal/runs/RunSelection.h"
#include "removal/runs/RunState.h"
#include "removal/runs/RunTools.h"
#include "removal/runs/UninstallRun.h"

#include <QObject>
#include <QString>

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace zolva {

/// What removals work with, and what of the lists they would take. Figures are those of the
/// moment they are read. All that it is made from outlives it, and it ends before the rest of the
/// model. Main thread.
class AppRemoval final
{
public:
    /// The parts of the model that removals read and change.
    struct Model
    {
        Clock& clock;
        LiveData& live;
        AppSettings& settings;
        AppLists& lists;
        ToastList& toasts;
    };

    AppRemoval(Model model, AppDisk disk, std::string journalFolder,
               std::function<void()> openTrash);

    [[nodiscard]] RunState& runs() { return m_runs; }
    [[nodiscard]] TrashMeter& trash() { return m_trash; }
    [[nodiscard]] FreeSpaceMeter& space() { return m_space; }
    /// One analysed file at a time, and its way back.
    [[nodiscard]] AnalyzeRemoval& analyzed() { return m_analyzed; }

    /// What is excluded must be known before anything is removed; a toast says why it is not.
    [[nodiscard]] bool knowsExclusions();
    void trashAnalyzeItem(const std::string& name, const std::string& path, std::int64_t bytes);

    /// For a run that begins now.
    [[nodiscard]] RunTools tools();
    [[nodiscard]] UninstallTools uninstallTools();

    [[nodiscard]] std::vector<CatPath> selectedCleanPaths() const;
    [[nodiscard]] std::int64_t selectedCleanBytes() const;
    [[nodiscard]] std::int64_t selectedCategoryCount() const;
    [[nodiscard]] std::vector<Project> selectedProjects() const;
    [[nodiscard]] std::int64_t selectedProjectBytes() const;
    /// Of the last scan.
    [[nodiscard]] std::vector<Project> removableProjects() const;
    [[nodiscard]] std::int64_t removableProjectBytes() const;
    [[nodiscard]] std::vector<InstallerItem> selectedInstallers() const;
    [[nodiscard]] std::int64_t selectedInstallerBytes() const;
    /// The ticked applications of the list.
    [[nodiscard]] std::vector<UninstallApp> checkedApps() const;
    [[nodiscard]] SheetFigures sheetFigures() const;

    [[nodiscard]] std::array<ReclaimRow, 4> reclaimRows() const;
    [[nodiscard]] std::int64_t reclaimTotal() const;
    [[nodiscard]] std::int64_t scannedReclaimBytes() const;
    /// Read by several screens at each change, so it is added up once for all of them.
    [[nodiscard]] std::int64_t cleanableBytes() const;

private:
    void followCleanable();
    [[nodiscard]] const std::vector<std::string>& whitelist() const;
    /// With what other processes have added.
    [[nodiscard]] const std::vector<std::string>& newestWhitelist() const;
    [[nodiscard]] const std::vector<Category>& categories() const;
    [[nodiscard]] const std::vector<Project>& projects() const;
    [[nodiscard]] ReclaimSources reclaimSources() const;

    Model m_model;
    QObject m_follower;                                   ///< of what the sum goes by
    mutable std::optional<std::int64_t> m_cleanableBytes; ///< until one of it changes
    std::string m_journalFolder;
    std::function<void()> m_openTrash;
    std::shared_ptr<RemovalDisk> m_disk;
    std::unique_ptr<AppProcesses> m_processes;
    ResidueScan m_scanResidue;
    FreeSpaceMeter m_space;
    TrashMeter m_trash;
    AnalyzeRemoval m_analyzed;
    LiveListedApps m_apps;
    RunState m_runs; ///< goes first: a run whose state is gone touches nothing more
};

} // namespace zolva
