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

std::optional<std::vector<std::string>> textsFromStored(const json& stored)
{
    if (!stored.is_array()) {
        return std::nullopt;
    }
    std::vector<std::string> all;
    for (const json& element : stored) {
        if (!element.is_string()) {
            return std::nullopt;
        }
        all.push_back(textFromStored(element.get_ref<const std::string&>()));
    }
    return all;
}

void putStored(json& values, const std::string& key, const PrefValue& value)
{
    struct Put
    {
        json& place;

        void operator()(bool flag) const { place = flag; }
        void operator()(std::int64_t whole) const { place = whole; }
        void operator()(double number) const { place = number; }
        void operator()(const std::string& text) const { place = storedText(text); }
        void operator()(const std::vector<std::string>& texts) const
        {
            place = json::array();
            for (const std::string& text : texts) {
                place.push_back(storedText(text));
            }
        }
        void operator()(const TextsChange& change) const
        {
            operator()(
                changed(textsFromStored(place).value_or(std::vector<std::string>{}), change));
        }
    };
    std::visit(Put{values[key]}, value);
}

} // namespace zolva
