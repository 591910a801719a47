#include "ctl/Commands.h"
#include "ctl/JsonText.h"
#include "ctl/StoredPrefs.h"
#include "ctl/Table.h"
#include "files/DisplayPath.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zolva::ctl {

namespace {

constexpr std::string_view introKey = "seenAccessIntro";

Answer wrongUsage(const std::string& note)
{
    return {{}, "prefs: " + note, Exit::WrongUsage};
}

std::optional<std::int64_t> wholeNumber(std::string_view text)
{
    std::int64_t number = 0;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), number);
    const bool whole = read.ec == std::errc() && read.ptr == text.data() + text.size();
    return whole ? std::optional(number) : std::nullopt;
}

std::optional<bool> truth(std::string_view text)
{
    if (text == "true" || text == "false") {
        return text == "true";
    }
    return std::nullopt;
}

template <typename T>
bool put(T& field, std::optional<T> value)
{
    field = value.value_or(field);
    return value.has_value();
}

/// The settings, and the one that is not among those that are written together.
struct Values
{
    Settings settings;
    bool seenAccessIntro = false;
};

struct Setting
{
    std::string_view key;
    const char* takes; ///< for whoever gave something else
    const char* about;
    bool (*set)(Values&, std::string_view);
    std::string (*shown)(const Values&);
    Json (*json)(const Values&);
};

std::string truthText(bool value)
{
    return value ? "true" : "false";
}

/// In the order of the document.
constexpr std::array settings = {
    Setting{
        "themeMode", "system, light or dark", "the window's theme",
        [](Values& values, std::string_view text) {
            values.settings.themeMode = themeModeFrom(text);
            return themeModeText(values.settings.themeMode) == text;
        },
        [](const Values& values) { return std::string(themeModeText(values.settings.themeMode)); },
        [](const Values& values) { return Json(themeModeText(values.settings.themeMode)); }},
    Setting{"pollInterval", "a whole number", "seconds between two readings, 1 to 60",
            [](Values& values, std::string_view text) {
                return put(values.settings.poll, wholeNumber(text));
            },
            [](const Values& values) { return std::to_string(values.settings.poll); },
            [](const Values& values) { return Json(values.settings.poll); }},
    Setting{"diskThreshold", "a whole number", "percent of CPU load that is told, 1 to 100",
            [](Values& values, std::string_view text) {
                return put(values.settings.threshold, wholeNumber(text));
            },
            [](const Values& values) { return std::to_string(values.settings.threshold); },
            [](const Values& values) { return Json(values.settings.threshold); }},
    Setting{"requireTouchID", "true or false", "kept and shown in Settings",
            [](Values& values, std::string_view text) {
                return put(values.settings.touchid, truth(text));
            },
            [](const Values& values) { return truthText(values.settings.touchid); },
            [](const Values& values) { return Json(values.settings.touchid); }},
    Setting{"keepInTrash", "true or false", "whether what is removed goes to the Trash",
            [](Values& values, std::string_view text) {
                return put(values.settings.keepInTrash, truth(text));
            },
            [](const Values& values) { return truthText(values.settings.keepInTrash); },
            [](const Values& values) { return Json(values.settings.keepInTrash); }},
    Setting{"whitelist", "", "see zolvactl exclusions", nullptr,
            [](const Values& values) {
                return counted(static_cast<std::int64_t>(values.settings.whitelist.size()), "path");
            },
            [](const Values& values) { return textsJson(values.settings.whitelist); }},
    Setting{introKey, "true or false", "whether the access intro was dismissed",
            [](Values& values, std::string_view text) {
                return put(values.seenAccessIntro, truth(text));
            },
            [](const Values& values) { return truthText(values.seenAccessIntro); },
            [](const Values& values) { return Json(values.seenAccessIntro); }},
};

Values valuesOf(Prefs& prefs)
{
    return {prefs.load(), prefs.seenAccessIntro()};
}

Answer shown(const Values& values, const Request& request)
{
    Json json = Json::object();
    Table table({{}, {}, {}});
    for (const Setting& setting : settings) {
        if (request.json) {
            json[std::string(setting.key)] = setting.json(values);
        } else {
            table.row({{std::string(setting.key)},
                       {setting.shown(values), Ink::Strong},
                       {setting.about, Ink::Faint}});
        }
    }
    if (!request.json) {
        return {table.text(request.look), {}, {}};
    }
    putRaw(json, values.settings.whitelist);
    return document(json);
}

/// What is wrong with the change; nothing if it was made.
std::optional<std::string> changed(Values& values, const std::string& key, const std::string& value)
{
    for (const Setting& setting : settings) {
        if (setting.key != key) {
            continue;
        }
        if (setting.set == nullptr) {
            return key + " is a list; see zolvactl exclusions";
        }
        if (!setting.set(values, value)) {
            return key + " takes " + setting.takes + ", not \"" + displayLine(value) + "\"";
        }
        return std::nullopt;
    }
    return "there is no key \"" + displayLine(key) + "\"";
}

} // namespace

Answer prefs(const Request& request)
{
    StoredPrefs stored;
    if (request.operands.empty()) {
        Answer answer = shown(valuesOf(stored.prefs()), request);
        if (!stored.prefs().trouble().unread.empty()) {
            answer.code = Exit::Failed;
        }
        return answer;
    }
    if (request.operands.front() != "set") {
        return wrongUsage("not expected: " + displayLine(request.operands.front()));
    }
    if (request.operands.size() != 3) {
        return wrongUsage("set takes a KEY and a VALUE");
    }
    const std::string& key = request.operands[1];
    Values values = valuesOf(stored.prefs());
    const Settings before = values.settings;
    if (const auto wrong = changed(values, key, request.operands[2])) {
        return wrongUsage(*wrong);
    }
    if (key == introKey) {
        stored.prefs().writeSeenAccessIntro(values.seenAccessIntro);
    } else {
        stored.prefs().saveChanges(before, values.settings);
    }
    return stored.written() ? shown(valuesOf(stored.prefs()), request)
                            : Answer{{}, {}, Exit::Failed};
}

} // namespace zolva::ctl
