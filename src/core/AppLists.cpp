#include "core/AppLists.h"

#include <utility>

namespace zolva {

namespace {

constexpr auto cleanList = "clean";
constexpr auto purgeList = "purge";
constexpr auto installerRows = "installer";

void putAll(PickSet& picked, const AppLists::Keys& keys, bool on)
{
    for (const std::string& key : keys) {
        if (on) {
            picked.insert(key);
        } else {
            picked.erase(key);
        }
    }
}

} // namespace

void AppLists::setOpenCat(std::optional<std::string> id)
{
    if (m_openCat != id) {
        m_openCat = std::move(id);
        Q_EMIT openCatChanged();
    }
}

void AppLists::setResOpen(std::optional<std::string> id)
{
    if (m_resOpen != id) {
        m_resOpen = std::move(id);
        Q_EMIT resOpenChanged();
    }
}

void AppLists::pickClean(const std::string& id, const Keys& order, bool shift)
{
    pickRow(m_sel, m_pickAnchor[cleanList], id, order, shift);
    Q_EMIT selChanged();
}

void AppLists::pickPurge(const std::string& project, const Keys& order, bool shift)
{
    pickRow(m_projPicked, m_pickAnchor[purgeList], project, order, shift);
    Q_EMIT projPickedChanged();
}

void AppLists::pickInstaller(const std::string& item, const Keys& order, bool shift)
{
    pickRow(m_instPicked, m_pickAnchor[installerRows], item, order, shift);
    Q_EMIT instPickedChanged();
}

void AppLists::setClean(const Keys& ids, bool picked)
{
    for (const std::string& id : ids) {
        m_sel[id] = picked;
    }
    Q_EMIT selChanged();
}

void AppLists::setPurge(const Keys& projects, bool picked)
{
    putAll(m_projPicked, projects, picked);
    Q_EMIT projPickedChanged();
}

void AppLists::setInstallers(const Keys& items, bool picked)
{
    putAll(m_instPicked, items, picked);
    Q_EMIT instPickedChanged();
}

// The fields change together and are told together, so that nobody sees a new list with old ticks.

void AppLists::takeCategories(std::vector<Category> found)
{
    std::set<std::string> ids;
    for (const Category& category : found) {
        ids.insert(category.id);
    }
    m_liveCats = std::move(found);
    keepPicked(m_sel, ids);
    const bool wasOpen = std::exchange(m_openCat, std::nullopt).has_value();
    Q_EMIT liveCatsChanged();
    Q_EMIT selChanged();
    if (wasOpen) {
        Q_EMIT openCatChanged();
    }
}

void AppLists::takeProjects(std::vector<Project> found)
{
    std::set<std::string> keys;
    for (const Project& project : found) {
        keys.insert(projectKey(project));
    }
    m_liveProjects = std::move(found);
    keepPicked(m_projPicked, keys);
    Q_EMIT liveProjectsChanged();
    Q_EMIT projPickedChanged();
}

void AppLists::forgetCategories()
{
    m_liveCats.reset();
    Q_EMIT liveCatsChanged();
}

void AppLists::forgetProjects()
{
    m_liveProjects.reset();
    Q_EMIT liveProjectsChanged();
}

int AppLists::beginInstallers(Removal removal)
{
    if (removal == Removal::None) {
        m_dropped.clear();
    }
    const int gen = ++m_installerGen;
    m_installerState = Loadable<Nothing>::loading();
    Q_EMIT installersChanged();
    return gen;
}

void AppLists::takeInstallers(int gen, std::vector<InstallerItem> found)
{
    if (gen != m_installerGen) {
        return;
    }
    std::erase_if(found, [this](const InstallerItem& item) { return m_dropped.contains(item.p); });
    m_installerList = std::move(found);
    m_instPicked.clear();
    m_installerState = Loadable<Nothing>::loaded({});
    Q_EMIT installersChanged();
    Q_EMIT instPickedChanged();
}

void AppLists::dropInstallers(const Keys& paths)
{
    m_dropped.insert(paths.begin(), paths.end());
    std::erase_if(m_installerList,
                  [this](const InstallerItem& item) { return m_dropped.contains(item.p); });
    putAll(m_instPicked, paths, false);
    Q_EMIT installersChanged();
    Q_EMIT instPickedChanged();
}

} // namespace zolva
