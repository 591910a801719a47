#include "core/AppSettings.h"

#include <algorithm>
#include <utility>

namespace zolva {

AppSettings::AppSettings(PrefsStore& store, LiveData& live, QObject* parent)
    : QObject(parent), m_prefs(store), m_live(live)
{
    // The first who is told: whatever others change in answer is saved.
    connect(&m_exclusions, &Exclusions::whitelistChanged, this, [this] {
        if (!std::exchange(m_isTaking, false)) {
            savePrefs();
        }
    });
}

void AppSettings::setThemeMode(ThemeMode mode)
{
    const bool differs = std::exchange(m_themeMode, mode) != mode;
    savePrefs();
    if (differs) {
        Q_EMIT themeModeChanged();
    }
}

void AppSettings::setPoll(std::int64_t seconds)
{
    const bool differs = std::exchange(m_poll, seconds) != seconds;
    m_live.setPollInterval(LiveData::Seconds(seconds));
    savePrefs();
    if (differs) {
        Q_EMIT pollChanged();
    }
}

void AppSettings::setThreshold(std::int64_t percent)
{
    const bool differs = std::exchange(m_threshold, percent) != percent;
    savePrefs();
    if (differs) {
        Q_EMIT thresholdChanged();
    }
}

void AppSettings::setTouchid(bool on)
{
    const bool differs = std::exchange(m_touchid, on) != on;
    savePrefs();
    if (differs) {
        Q_EMIT touchidChanged();
    }
}

void AppSettings::setKeepInTrash(bool on)
{
    const bool differs = std::exchange(m_keepInTrash, on) != on;
    savePrefs();
    if (differs) {
        Q_EMIT keepInTrashChanged();
    }
}

std::string AppSettings::pollText() const
{
    return m_poll == 1 ? "1 second" : std::to_string(m_poll) + " seconds";
}

void AppSettings::loadPrefs()
{
    setThemeMode(m_prefs.themeMode());
    setPoll(m_prefs.poll());
    setThreshold(m_prefs.threshold());
    setTouchid(m_prefs.touchid());
    setKeepInTrash(m_prefs.keepInTrash());
    m_storedWhitelist = m_prefs.whitelist();
    m_exclusions.setWhitelist(m_storedWhitelist);
    m_prefsLoaded = true;
}

void AppSettings::savePrefs()
{
    if (!m_prefsLoaded) {
        return;
    }
    takeOthersExclusions();
    m_prefs.save(
        {m_themeMode, m_poll, m_threshold, m_touchid, m_keepInTrash, m_exclusions.whitelist()});
    m_storedWhitelist = m_prefs.whitelist();
}

void AppSettings::takeOthersExclusions()
{
    if (!m_prefsLoaded) {
        return;
    }
    std::vector<std::string> stored = m_prefs.whitelist();
    if (stored == m_storedWhitelist) {
        return;
    }
    const auto holds = [](const std::vector<std::string>& list, const std::string& entry) {
        return std::find(list.begin(), list.end(), entry) != list.end();
    };
    std::vector<std::string> list = m_exclusions.whitelist();
    for (const std::string& entry : stored) {
        if (!holds(m_storedWhitelist, entry) && !holds(list, entry)) {
            list.push_back(entry);
        }
    }
    m_storedWhitelist = std::move(stored);
    if (list != m_exclusions.whitelist()) {
        m_isTaking = true;
        m_exclusions.setWhitelist(std::move(list));
    }
}

} // namespace zolva
