#pragma once

#include "core/Exclusions.h"
#include "core/LiveData.h"
#include "core/Prefs.h"

#include <QObject>

#include <cstdint>
#include <string>

namespace zolva {

/// The settings as the screens show and change them. Every change of one, to whatever value,
/// writes all of them. A field keeps what it was given; only what is written is within its bounds.
/// Signals fire where the value differs. Main thread; store and live data outlive it.
class AppSettings final : public QObject
{
    Q_OBJECT

public:
    /// Reads and writes nothing yet.
    AppSettings(PrefsStore& store, LiveData& live, QObject* parent = nullptr);

    [[nodiscard]] ThemeMode themeMode() const { return m_themeMode; }
    [[nodiscard]] std::int64_t poll() const { return m_poll; }           ///< seconds
    [[nodiscard]] std::int64_t threshold() const { return m_threshold; } ///< percent
    [[nodiscard]] bool touchid() const { return m_touchid; }
    [[nodiscard]] bool keepInTrash() const { return m_keepInTrash; }
    /// Its list is saved with the rest.
    [[nodiscard]] Exclusions& exclusions() { return m_exclusions; }
    [[nodiscard]] const Exclusions& exclusions() const { return m_exclusions; }
    [[nodiscard]] Prefs& prefs() { return m_prefs; }
    [[nodiscard]] bool prefsLoaded() const { return m_prefsLoaded; }

    void setThemeMode(ThemeMode mode);
    /// Also for the live data, whose running stream takes it up.
    void setPoll(std::int64_t seconds);
    void setThreshold(std::int64_t percent);
    void setTouchid(bool on);
    void setKeepInTrash(bool on);

    /// "1 second", or how many seconds.
    [[nodiscard]] std::string pollText() const;

    /// Takes over what is stored. Writes nothing.
    void loadPrefs();
    /// Why what is stored could not be read yet; the defaults stand in for it then, and what never
    /// to touch is not known. Empty where it was read.
    [[nodiscard]] const std::string& unread() const { return m_unread; }
    /// Does nothing before they are loaded.
    void savePrefs();
    /// Takes into the list what another process has stored there meanwhile, and everything if
    /// nothing could be read before; whoever removes asks this first. What another process took out
    /// stays: leaving alone too much harms nobody. Writes nothing.
    void takeOthersExclusions();

Q_SIGNALS:
    void themeModeChanged();
    void pollChanged();
    void thresholdChanged();
    void touchidChanged();
    void keepInTrashChanged();

private:
    [[nodiscard]] Settings current() const;

    Prefs m_prefs;
    LiveData& m_live;
    ThemeMode m_themeMode = Settings{}.themeMode;
    std::int64_t m_poll = Settings{}.poll;
    std::int64_t m_threshold = Settings{}.threshold;
    bool m_touchid = Settings{}.touchid;
    bool m_keepInTrash = Settings{}.keepInTrash;
    Exclusions m_exclusions;
    Settings m_saved;     ///< as they were loaded, or given to be stored last
    std::string m_unread; ///< why nothing is known of what is stored
    bool m_prefsLoaded = false;
    bool m_isTaking = false; ///< the change that is told next is not to be saved
};

} // namespace zolva
