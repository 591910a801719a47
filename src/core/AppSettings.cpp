#include "core/AppSettings.h"

#include <string>
#include <utility>
#include <vector>

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

Settings AppSettings::current() const
{
    return {m_themeMode, m_poll, m_threshold, m_touchid, m_keepInTrash, m_exclusions.whitelist()};
}

void AppSettings::loadPrefs()
{
    m_prefsLoaded = false;
    // Asked first: what can be read only from now on is taken over at the next look.
    m_unread = m_prefs.trouble().unread;
    m_saved = m_prefs.load();
    setThemeMode(m_saved.themeMode);
    setPoll(m_saved.poll);
    setThreshold(m_saved.threshold);
    setTouchid(m_saved.touchid);
    setKeepInTrash(m_saved.keepInTrash);
    m_exclusions.setWhitelist(m_saved.whitelist);
    m_prefsLoaded = true;
}

void AppSettings::savePrefs()
{
    if (!m_prefsLoaded) {
        return;
    }
    const Settings before = std::exchange(m_saved, current());
    if (m_unread.empty()) {
        m_prefs.save(m_saved, changeBetween(before.whitelist, m_saved.whitelist).removed);
    } else {
        // The others are only stood in for, and must not be written over what is stored.
        m_prefs.saveChanges(before, m_saved);
    }
    takeOthersExclusions();
}

void AppSettings::takeOthersExclusions()
{
    if (!m_prefsLoaded) {
        return;
    }
    if (!m_unread.empty()) {
        if (m_prefs.trouble().unread.empty()) {
            loadPrefs();
        }
        return;
    }
    std::vector<std::string> list = changed(m_exclusions.whitelist(), {m_prefs.whitelist(), {}});
    if (list != m_exclusions.whitelist()) {
        m_saved.whitelist = list;
        m_isTaking = true;
        m_exclusions.setWhitelist(std::move(list));
    }
}

} // namespace zolva
