#include "core/AppModel.h"

#include "diagnostics/Log.h"

#include <utility>

namespace zolva {

void AppModel::go(const std::string& screen)
{
    if (m_screen != screen) {
        m_screen = screen;
        Q_EMIT screenChanged();
    }
    setSheet(std::nullopt);
    setLastCleanFreed(0);
    setLastPurgeFreed(0);
}

void AppModel::setSheet(std::optional<std::string> id)
{
    if (m_sheet != id) {
        m_sheet = std::move(id);
        Q_EMIT sheetChanged();
    }
}

void AppModel::setLastCleanFreed(std::int64_t bytes)
{
    if (std::exchange(m_lastCleanFreed, bytes) != bytes) {
        Q_EMIT lastCleanFreedChanged();
    }
}

void AppModel::setLastPurgeFreed(std::int64_t bytes)
{
    if (std::exchange(m_lastPurgeFreed, bytes) != bytes) {
        Q_EMIT lastPurgeFreedChanged();
    }
}

bool AppModel::isLightTheme() const
{
    switch (m_settings.themeMode()) {
    case ThemeMode::Light:
        return true;
    case ThemeMode::Dark:
        return false;
    case ThemeMode::System:
        break;
    }
    return !m_systemIsDark;
}

SortKey AppModel::sortOf(const std::string& screen) const
{
    const auto found = m_sort.find(screen);
    return found == m_sort.end() ? SortKey::SizeDesc : found->second;
}

void AppModel::setSort(const std::string& screen, SortKey key)
{
    m_sort[screen] = key;
    Q_EMIT sortChanged();
}

std::string AppModel::queryOf(const std::string& screen) const
{
    const auto found = m_query.find(screen);
    return found == m_query.end() ? std::string() : found->second;
}

void AppModel::setQuery(const std::string& screen, std::string text)
{
    m_query[screen] = std::move(text);
    Q_EMIT queryChanged();
}

void AppModel::dismissAccessIntro(bool openSettings)
{
    setShowAccessIntro(false);
    m_settings.prefs().writeSeenAccessIntro();
    if (openSettings) {
        openAccessSettings();
    }
    log::accessIntroDismissed(openSettings);
}

void AppModel::openAccessSettings() const
{
    if (m_doors.accessSettings) {
        m_doors.accessSettings();
    }
}

void AppModel::openPage(const std::string& url) const
{
    if (m_doors.page) {
        m_doors.page(url);
    }
}

void AppModel::reveal(const std::string& path) const
{
    if (m_doors.reveal) {
        m_doors.reveal(path);
    }
}

void AppModel::openToolLicense() const
{
    if (m_doors.toolLicense) {
        m_doors.toolLicense();
    }
}

void AppModel::setBlockedLocations(std::vector<diskAccess::Location> blocked)
{
    if (m_blockedLocations != blocked) {
        m_blockedLocations = std::move(blocked);
        Q_EMIT blockedLocationsChanged();
    }
}

void AppModel::setShowAccessIntro(bool shown)
{
    if (std::exchange(m_showAccessIntro, shown) != shown) {
        Q_EMIT showAccessIntroChanged();
    }
}

} // namespace zolva
