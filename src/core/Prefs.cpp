#include "core/Prefs.h"

#include <algorithm>
#include <array>
#include <utility>

namespace zolva {

namespace {

constexpr auto themeModeKey = "zolva.themeMode";
constexpr auto pollKey = "zolva.pollInterval";
constexpr auto thresholdKey = "zolva.diskThreshold";
constexpr auto touchidKey = "zolva.requireTouchID";
constexpr auto keepInTrashKey = "zolva.keepInTrash";
constexpr auto whitelistKey = "zolva.whitelist";
constexpr auto seenAccessIntroKey = "zolva.seenAccessIntro";
constexpr auto lastUpdateCheckKey = "zolva.lastUpdateCheck";

constexpr std::array<std::pair<ThemeMode, std::string_view>, 3> themeModes = {
    {{ThemeMode::System, "system"}, {ThemeMode::Light, "light"}, {ThemeMode::Dark, "dark"}}};

std::vector<std::string> withoutEmpty(std::vector<std::string> list)
{
    std::erase_if(list, [](const std::string& text) { return text.empty(); });
    return list;
}

using Values = std::vector<std::pair<std::string, PrefValue>>;

Values valuesOf(const Settings& settings, TextsChange list)
{
    list.added = withoutEmpty(std::move(list.added));
    list.removed.emplace_back(); // an empty text is lost at every write
    return {{themeModeKey, std::string(themeModeText(settings.themeMode))},
            {pollKey, clampedPoll(settings.poll)},
            {thresholdKey, clampedThreshold(settings.threshold)},
            {touchidKey, settings.touchid},
            {keepInTrashKey, settings.keepInTrash},
            {whitelistKey, std::move(list)}};
}

} // namespace

std::string_view themeModeText(ThemeMode mode)
{
    const auto* const found = std::find_if(themeModes.begin(), themeModes.end(),
                                           [&](const auto& row) { return row.first == mode; });
    return found == themeModes.end() ? themeModes.front().second : found->second;
}

ThemeMode themeModeFrom(std::string_view text)
{
    const auto* const found = std::find_if(themeModes.begin(), themeModes.end(),
                                           [&](const auto& row) { return row.second == text; });
    return found == themeModes.end() ? ThemeMode::System : found->first;
}

std::int64_t clampedPoll(std::int64_t seconds)
{
    return std::clamp<std::int64_t>(seconds, 1, 60);
}

std::int64_t clampedThreshold(std::int64_t percent)
{
    return std::clamp<std::int64_t>(percent, 1, 100);
}

ThemeMode Prefs::themeMode()
{
    return themeModeFrom(m_d.text(themeModeKey).value_or("system"));
}

// A stored 0 or false is a value, and no reason for the default.

std::int64_t Prefs::poll()
{
    return m_d.has(pollKey) ? clampedPoll(m_d.wholeNumber(pollKey)) : Settings{}.poll;
}

std::int64_t Prefs::threshold()
{
    return m_d.has(thresholdKey) ? clampedThreshold(m_d.wholeNumber(thresholdKey))
                                 : Settings{}.threshold;
}

bool Prefs::touchid()
{
    return m_d.has(touchidKey) ? m_d.boolean(touchidKey) : Settings{}.touchid;
}

bool Prefs::keepInTrash()
{
    return m_d.has(keepInTrashKey) ? m_d.boolean(keepInTrashKey) : Settings{}.keepInTrash;
}

std::vector<std::string> Prefs::whitelist()
{
    return withoutEmpty(m_d.texts(whitelistKey).value_or(std::vector<std::string>{}));
}

PrefsTrouble Prefs::trouble()
{
    PrefsTrouble trouble = m_d.trouble();
    if (!trouble.damaged.empty() && m_d.has(whitelistKey)) {
        trouble.damaged.clear();
    }
    return trouble;
}

Settings Prefs::load()
{
    return {themeMode(), poll(), threshold(), touchid(), keepInTrash(), whitelist()};
}

void Prefs::save(const Settings& settings, const std::vector<std::string>& takenOut)
{
    m_d.write(valuesOf(settings, {settings.whitelist, takenOut}));
}

void Prefs::saveChanges(const Settings& before, const Settings& now)
{
    const Values old = valuesOf(before, {});
    Values values = valuesOf(now, changeBetween(before.whitelist, now.whitelist));
    std::erase_if(values, [&old](const auto& value) {
        return std::find(old.begin(), old.end(), value) != old.end();
    });
    m_d.write(values);
}

void Prefs::writeWhitelist(const std::vector<std::string>& list)
{
    m_d.write({{whitelistKey, withoutEmpty(list)}});
}

bool Prefs::seenAccessIntro()
{
    return m_d.boolean(seenAccessIntroKey);
}

void Prefs::writeSeenAccessIntro(bool seen)
{
    m_d.write({{seenAccessIntroKey, seen}});
}

double Prefs::lastUpdateCheck()
{
    return m_d.number(lastUpdateCheckKey);
}

void Prefs::writeLastUpdateCheck(double seconds)
{
    m_d.write({{lastUpdateCheckKey, seconds}});
}

} // namespace zolva
