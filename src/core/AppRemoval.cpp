#include "core/AppRemoval.h"

#include "core/PrefsMessages.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace zolva {

AppRemoval::AppRemoval(Model model, AppDisk disk, std::string journalFolder,
                       std::function<void()> openTrash)
    : m_model(model), m_journalFolder(std::move(journalFolder)), m_openTrash(std::move(openTrash)),
      m_disk(std::move(disk.disk)), m_processes(std::move(disk.processes)),
      m_scanResidue(std::move(disk.scanResidue)), m_space(model.clock, std::move(disk.space)),
      m_trash(model.clock, model.toasts, m_space, m_disk),
      m_analyzed(m_disk, model.toasts, m_trash, [this] { return newestWhitelist(); }),
      m_apps(model.live)
{
    followCleanable();
}

void AppRemoval::followCleanable()
{
    // Nobody can be told of a change before: whoever shows the model is made after it.
    const auto forget = [this] { m_cleanableBytes.reset(); };
    QObject::connect(&m_model.live, &LiveData::cleanChanged, &m_follower, forget);
    QObject::connect(&m_model.settings.exclusions(), &Exclusions::whitelistChanged, &m_follower,
                     forget);
}

bool AppRemoval::knowsExclusions()
{
    AppSettings& settings = m_model.settings;
    settings.takeOthersExclusions();
    if (settings.unread().empty()) {
        return true;
    }
    m_model.toasts.addToast(BannerKind::Warning,
                            QString::fromStdString(prefsUnreadText(settings.unread())));
    return false;
}

void AppRemoval::trashAnalyzeItem(const std::string& name, const std::string& path,
                                  std::int64_t bytes)
{
    // What is moved already comes to nothing, and nothing is said.
    if (m_analyzed.trashed().contains(path) || knowsExclusions()) {
        m_analyzed.trashAnalyzeItem(name, path, bytes);
    }
}

RunTools AppRemoval::tools()
{
    AppSettings& settings = m_model.settings;
    return {&m_runs,
            m_disk,
            m_model.clock,
            m_model.toasts,
            m_trash,
            m_space,
            {[&settings] { return settings.keepInTrash(); }, [this] { return newestWhitelist(); }},
            m_journalFolder,
            m_openTrash};
}

UninstallTools AppRemoval::uninstallTools()
{
    return {tools(), m_apps, *m_processes, m_scanResidue};
}

const std::vector<std::string>& AppRemoval::newestWhitelist() const
{
    m_model.settings.takeOthersExclusions();
    return whitelist();
}

const std::vector<std::string>& AppRemoval::whitelist() const
{
    return m_model.settings.exclusions().whitelist();
}

const std::vector<Category>& AppRemoval::categories() const
{
    static const std::vector<Category> none;
    const auto& held = m_model.lists.liveCats();
    return held ? *held : none;
}

const std::vector<Project>& AppRemoval::projects() const
{
    static const std::vector<Project> none;
    const auto& held = m_model.lists.liveProjects();
    return held ? *held : none;
}

std::vector<CatPath> AppRemoval::selectedCleanPaths() const
{
    return zolva::selectedCleanPaths(categories(), m_model.lists.sel(), whitelist());
}

std::int64_t AppRemoval::selectedCleanBytes() const
{
    return zolva::selectedCleanBytes(categories(), m_model.lists.sel(), whitelist());
}

std::int64_t AppRemoval::selectedCategoryCount() const
{
    return zolva::selectedCategoryCount(m_model.lists.sel());
}

std::vector<Project> AppRemoval::selectedProjects() const
{
    return zolva::selectedProjects(projects(), m_model.lists.projPicked(), whitelist());
}

std::int64_t AppRemoval::selectedProjectBytes() const
{
    return zolva::selectedProjectBytes(projects(), m_model.lists.projPicked(), whitelist());
}

std::vector<Project> AppRemoval::removableProjects() const
{
    const auto* const scanned = m_model.live.purge().value();
    return scanned ? zolva::removableProjects(*scanned, whitelist()) : std::vector<Project>();
}

std::int64_t AppRemoval::removableProjectBytes() const
{
    const auto* const scanned = m_model.live.purge().value();
    return scanned ? zolva::removableProjectBytes(*scanned, whitelist()) : 0;
}

std::vector<InstallerItem> AppRemoval::selectedInstallers() const
{
    return zolva::selectedInstallers(m_model.lists.installerList(), m_model.lists.instPicked());
}

std::int64_t AppRemoval::selectedInstallerBytes() const
{
    return bytesOf(selectedInstallers());
}

std::vector<UninstallApp> AppRemoval::checkedApps() const
{
    std::vector<UninstallApp> ticked;
    if (const auto* const listed = m_model.live.apps().value()) {
        std::copy_if(listed->begin(), listed->end(), std::back_inserter(ticked),
                     [&checked = m_model.live.checkedApps()](const UninstallApp& app) {
                         return checked.contains(app.id());
                     });
    }
    return ticked;
}

SheetFigures AppRemoval::sheetFigures() const
{
    return {.cleanBytes = selectedCleanBytes(),
            .projectBytes = selectedProjectBytes(),
            .installerBytes = selectedInstallerBytes(),
            .checkedApps = checkedApps().size()};
}

ReclaimSources AppRemoval::reclaimSources() const
{
    return {.clean = m_model.live.clean().value(),
            .purge = m_model.live.purge().value(),
            .installers = m_model.lists.installerList(),
            .whitelist = whitelist(),
            .trashBytes = m_trash.trashBytes(),
            .trashCount = m_trash.trashCount(),
            .trashUnreadable = m_trash.trashUnreadable()};
}

std::array<ReclaimRow, 4> AppRemoval::reclaimRows() const
{
    return zolva::reclaimRows(reclaimSources());
}

std::int64_t AppRemoval::reclaimTotal() const
{
    return zolva::reclaimTotal(reclaimSources());
}

std::int64_t AppRemoval::scannedReclaimBytes() const
{
    const auto& held = m_model.lists.liveCats();
    return zolva::scannedReclaimBytes(held ? &*held : nullptr, reclaimSources());
}

std::int64_t AppRemoval::cleanableBytes() const
{
    if (!m_cleanableBytes) {
        m_cleanableBytes = zolva::cleanableBytes(reclaimSources());
    }
    return *m_cleanableBytes;
}

} // namespace zolva
