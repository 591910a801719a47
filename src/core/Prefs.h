#pragma once

#include "core/PrefsStore.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zolva {

enum class ThemeMode
{
    System,
    Light,
    Dark
};

/// "system", "light" or "dark"; what is shown, and what is stored.
[[nodiscard]] std::string_view themeModeText(ThemeMode mode);
/// Any other text is `System`.
[[nodiscard]] ThemeMode themeModeFrom(std::string_view text);

/// The settings that are written together, with the values of a first start.
struct Settings
{
    ThemeMode themeMode = ThemeMode::System;
    std::int64_t poll = 1;       ///< seconds
    std::int64_t threshold = 80; ///< percent
    bool touchid = true;
    bool keepInTrash = true;
    std::vector<std::string> whitelist;

    friend bool operator==(const Settings&, const Settings&) = default;
};

/// The bounds of what is read and written. Pure.
[[nodiscard]] std::int64_t clampedPoll(std::int64_t seconds);
[[nodiscard]] std::int64_t clampedThreshold(std::int64_t percent);

/// The settings as this program knows them, over any store. What is read is within its bounds, and
/// so is what is written. Reading writes nothing. Main thread.
class Prefs
{
public:
    explicit Prefs(PrefsStore& store) : m_d(store) {}

    [[nodiscard]] ThemeMode themeMode();
    [[nodiscard]] std::int64_t poll();
    [[nodiscard]] std::int64_t threshold();
    [[nodiscard]] bool touchid();
    [[nodiscard]] bool keepInTrash();
    /// Without empty texts; empty as soon as one element is no text.
    [[nodiscard]] std::vector<std::string> whitelist();
    /// All of the above.
    [[nodiscard]] Settings load();

    /// Why `load` may not give what the user chose.
    /// Nothing is damaged any more once exclusions were stored again, be it none.
    [[nodiscard]] PrefsTrouble trouble();

    /// Every setting, clamped and without empty texts, whichever of them changed. What others have
    /// added to the list stays in it, unless it was taken out here.
    void save(const Settings& settings, const std::vector<std::string>& takenOut = {});
    /// Only what differs.
    void saveChanges(const Settings& before, const Settings& now);
    void writeWhitelist(const std::vector<std::string>& list);

    /// Whether the access intro was dismissed before.
    [[nodiscard]] bool seenAccessIntro();
    void writeSeenAccessIntro(bool seen = true);

    /// Time of the last automatic update check, in seconds since 1970; 0 for never.
    [[nodiscard]] double lastUpdateCheck();
    void writeLastUpdateCheck(double seconds);

private:
    PrefsStore& m_d;
};

} // namespace zolva
