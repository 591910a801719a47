// What the screens start: each removal, with what it leaves behind in the model.

#include "core/AppModel.h"

#include "async/Unawaited.h"
#include "removal/runs/EmptyTrashRun.h"
#include "removal/runs/ListRuns.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace zolva {

void AppModel::raiseSheet(const std::string& id)
{
    m_settings.takeOthersExclusions();
    // The Trash is emptied whatever is excluded.
    if (mayRaiseSheet(id, m_removal.sheetFigures()) &&
        (id == "emptytrash" || m_removal.knowsExclusions())) {
        setSheet(id);
    }
}

void AppModel::askEmptyTrash()
{
    if (m_removal.trash().trashCount() > 0) {
        raiseSheet("emptytrash");
    }
}

void AppModel::runSheet()
{
    struct Confirmed
    {
        std::string_view id;
        void (AppModel::*start)();
        bool isNoted;
    };
    static constexpr std::array all = {Confirmed{"erase", &AppModel::cleanSelected, false},
                                       Confirmed{"purge", &AppModel::purgeSelected, true},
                                       Confirmed{"installer", &AppModel::removeInstallers, true},
                                       Confirmed{"uninstall", &AppModel::uninstallTicked, true},
                                       Confirmed{"emptytrash", &AppModel::emptyTrash, false}};
    if (!m_sheet) {
        return;
    }
    const std::string id = *m_sheet;
    setSheet(std::nullopt);
    const auto* const found = std::find_if(
        all.begin(), all.end(), [&id](const Confirmed& sheet) { return sheet.id == id; });
    if (found == all.end()) {
        return;
    }
    (this->*found->start)();
    if (found->isNoted) {
        markDone(id);
    }
}

void AppModel::cleanSelected()
{
    const AfterRun after{.setFreed = [this](std::int64_t freed) { setLastCleanFreed(freed); },
                         .forgetList = [this] { m_lists.forgetCategories(); },
                         .rescan = [this] { return scanClean(true); }};
    unawaited(runClean(m_removal.tools(), m_removal.selectedCleanPaths(), after));
}

void AppModel::purgeSelected()
{
    const AfterRun after{.setFreed = [this](std::int64_t freed) { setLastPurgeFreed(freed); },
                         .forgetList = [this] { m_lists.forgetProjects(); },
                         .rescan = [this] { return scanPurge(true); }};
    unawaited(runPurge(m_removal.tools(), m_removal.selectedProjects(), after));
}

void AppModel::removeInstallers()
{
    unawaited(countInstallerRun(
        runInstallers(m_removal.tools(), m_removal.selectedInstallers(),
                      [this](const AppLists::Keys& paths) { m_lists.dropInstallers(paths); })));
}

void AppModel::removeInstaller(const InstallerItem& item)
{
    // During a run nothing comes of it, and nothing is said.
    if (!m_removal.runs().bulk() && !m_removal.knowsExclusions()) {
        return;
    }
    unawaited(countInstallerRun(
        zolva::removeInstaller(m_removal.tools(), item, [this](const AppLists::Keys& paths) {
            m_lists.dropInstallers(paths);
        })));
}

QCoro::Task<> AppModel::countInstallerRun(QCoro::Task<RunReport> run)
{
    const QPointer<AppModel> self(this);
    ++m_installerRuns;
    co_await run;
    if (self) {
        --m_installerRuns;
    }
}

void AppModel::uninstallTicked()
{
    unawaited(uninstallChecked(m_removal.uninstallTools()));
}

void AppModel::emptyTrash()
{
    unawaited(zolva::emptyTrash(m_removal.tools()));
}

void AppModel::rescanClean()
{
    setSheet(std::nullopt);
    setLastCleanFreed(0);
    unawaited(scanClean(true));
}

} // namespace zolva
