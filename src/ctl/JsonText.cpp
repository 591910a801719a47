#include "ctl/JsonText.h"

#include "files/DisplayPath.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstddef>
#include <cstdio>

namespace zolva::ctl {

void putPath(Json& object, const char* key, std::string_view path)
{
    object[key] = displayText(path);
    if (const std::optional<std::string> raw = rawPath(path)) {
        object["raw"] = *raw;
    }
}

Json textsJson(const std::vector<std::string>& texts)
{
    Json list = Json::array();
    for (const std::string& text : texts) {
        list.push_back(displayText(text));
    }
    return list;
}

void putRaw(Json& object, const std::vector<std::string>& texts)
{
    Json list = Json::array();
    for (const std::string& text : texts) {
        const std::optional<std::string> raw = rawPath(text);
        list.push_back(raw ? Json(*raw) : Json(nullptr));
    }
    if (std::any_of(list.begin(), list.end(), [](const Json& raw) { return !raw.is_null(); })) {
        object["raw"] = list;
    }
}

Json dateJson(std::optional<TimePoint> date)
{
    if (!date) {
        return nullptr;
    }
    const auto seconds = std::chrono::floor<std::chrono::seconds>(*date);
    const auto day = std::chrono::floor<std::chrono::days>(seconds);
    const std::chrono::year_month_day calendar(day);
    const std::chrono::hh_mm_ss time(seconds - day);
    std::array<char, 64> text{};
    const int length = std::snprintf(
        text.data(), text.size(), "%04d-%02u-%02uT%02d:%02d:%02dZ",
        static_cast<int>(calendar.year()), static_cast<unsigned>(calendar.month()),
        static_cast<unsigned>(calendar.day()), static_cast<int>(time.hours().count()),
        static_cast<int>(time.minutes().count()), static_cast<int>(time.seconds().count()));
    return std::string(text.data(), static_cast<std::size_t>(length));
}

Json textJson(const std::optional<std::string>& text)
{
    return text ? Json(displayText(*text)) : Json(nullptr);
}

Answer document(const Json& json)
{
    return {json.dump(-1, ' ', false, Json::error_handler_t::replace) + "\n", {}, Exit::Done};
}

} // namespace zolva::ctl
