// What the scans add to the model when they run through it.

#include "core/AppModel.h"

#include "async/Unawaited.h"
#include "diagnostics/Log.h"

#include <QPointer>

#include <string>
#include <utility>
#include <vector>

namespace zolva {

namespace {

QCoro::Task<std::vector<diskAccess::Location>> loggedProbe(AppReads reads)
{
    std::vector<diskAccess::Location> blocked = co_await reads.blockedLocations();
    if (!blocked.empty()) {
        std::vector<std::string> labels;
        labels.reserve(blocked.size());
        for (const diskAccess::Location& location : blocked) {
            labels.push_back(location.label);
        }
        log::blockedByPrivacy(labels);
    }
    co_return blocked;
}

} // namespace

void AppModel::scanAll()
{
    unawaited(probeAccess());
    scanInstallers();
    unawaited(scanClean(true));
    unawaited(scanPurge(true));
    unawaited(m_live.loadApps());
}

void AppModel::scanForMenu()
{
    unawaited(scanClean(false));
    unawaited(scanPurge(false));
    scanInstallers();
    refreshMeters();
}

void AppModel::rescanForMenu()
{
    scanInstallers();
    refreshMeters();
    unawaited(scanClean(true));
    unawaited(scanPurge(true));
}

// A scan that was overtaken finds the newer one's state here: still loading, and nothing happens,
// or loaded, and its list is taken over once more.

QCoro::Task<> AppModel::scanClean(bool force)
{
    const QPointer<AppModel> self(this);
    co_await m_live.scanClean(force);
    if (!self) {
        co_return;
    }
    if (const auto* const found = m_live.clean().value()) {
        m_lists.takeCategories(*found);
    }
}

QCoro::Task<> AppModel::scanPurge(bool force)
{
    const QPointer<AppModel> self(this);
    if (force) {
        setLastPurgeFreed(0);
    }
    co_await m_live.scanPurge(force);
    if (!self) {
        co_return;
    }
    if (const auto* const found = m_live.purge().value()) {
        m_lists.takeProjects(*found);
    }
}

void AppModel::scanInstallers()
{
    unawaited(probeAccess());
    const auto removal = m_installerRuns > 0 ? AppLists::Removal::IsGoing : AppLists::Removal::None;
    unawaited(readInstallers(m_lists.beginInstallers(removal)));
}

QCoro::Task<> AppModel::readInstallers(int gen)
{
    const QPointer<AppModel> self(this);
    std::vector<InstallerItem> found = co_await m_reads.installers();
    if (self) {
        m_lists.takeInstallers(gen, std::move(found));
    }
}

QCoro::Task<> AppModel::probeAccess()
{
    const QPointer<AppModel> self(this);
    std::vector<diskAccess::Location> blocked = co_await loggedProbe(m_reads);
    if (self) {
        setBlockedLocations(std::move(blocked));
    }
}

QCoro::Task<> AppModel::introduceAccess()
{
    const QPointer<AppModel> self(this);
    std::vector<diskAccess::Location> blocked = co_await loggedProbe(m_reads);
    if (self && !blocked.empty()) {
        setBlockedLocations(std::move(blocked));
        setShowAccessIntro(true);
    }
}

std::string AppModel::volumeName() const
{
    return m_reads.volumeName ? m_reads.volumeName() : std::string();
}

void AppModel::refreshMeters()
{
    m_removal.space().refreshFreeSpace();
    m_removal.trash().refreshTrashMeter();
}

} // namespace zolva
