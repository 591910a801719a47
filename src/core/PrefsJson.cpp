#include "core/PrefsJson.h"

#include "files/DisplayPath.h"

#include <nlohmann/json.hpp>

namespace zolva {

using nlohmann::json;

namespace {

/// Nothing of ours is deeper than a list in an object; keys of others get some room. What is
/// copied and written again must not be as deep as the stack.
constexpr int deepest = 32;

int hexDigit(char digit)
{
    if (digit >= '0' && digit <= '9') {
        return digit - '0';
    }
    if (digit >= 'A' && digit <= 'F') {
        return digit - 'A' + 10;
    }
    if (digit >= 'a' && digit <= 'f') {
        return digit - 'a' + 10;
    }
    return -1;
}

} // namespace

std::optional<json> parsedPrefs(std::string_view bytes)
{
    bool tooDeep = false;
    const auto watchDepth = [&tooDeep](int depth, json::parse_event_t, json&) {
        tooDeep = tooDeep || depth > deepest;
        return !tooDeep;
    };
    json parsed = json::parse(bytes.begin(), bytes.end(), watchDepth, false);
    if (tooDeep || !parsed.is_object()) {
        return std::nullopt;
    }
    return parsed;
}

std::string prefsBytes(const json& values)
{
    return values.dump(2, ' ', false, json::error_handler_t::replace) + "\n";
}

std::string storedText(const std::string& bytes)
{
    const std::optional<std::string> encoded = rawPath(bytes);
    return encoded ? std::string(1, '\0') + *encoded : bytes;
}

std::string textFromStored(const std::string& stored)
{
    if (!stored.starts_with('\0')) {
        return stored;
    }
    std::string bytes;
    for (std::size_t i = 1; i < stored.size(); ++i) {
        const int high = i + 2 < stored.size() ? hexDigit(stored[i + 1]) : -1;
        const int low = i + 2 < stored.size() ? hexDigit(stored[i + 2]) : -1;
        if (stored[i] == '%' && high >= 0 && low >= 0) {
            bytes += static_cast<char>(high * 16 + low);
            i += 2;
        } else {
            bytes += stored[i];
        }
    }
    return bytes;
}

json storedValue(const PrefValue& value)
{
    if (const auto* text = std::get_if<std::string>(&value)) {
        return storedText(*text);
    }
    if (const auto* texts = std::get_if<std::vector<std::string>>(&value)) {
        json list = json::array();
        for (const std::string& text : *texts) {
            list.push_back(storedText(text));
        }
        return list;
    }
    if (const auto* flag = std::get_if<bool>(&value)) {
        return *flag;
    }
    if (const auto* whole = std::get_if<std::int64_t>(&value)) {
        return *whole;
    }
    return std::get<double>(value);
}

} // namespace zolva
