#include "json/JsonReader.h"

#include <nlohmann/json.hpp>

#include <cmath>
#include <limits>
#include <utility>

namespace zolva {

namespace {

using nlohmann::json;

/// Deeper than any record by far, and shallow enough for every recursion in the library.
constexpr int deepestNesting = 64;

/// Up to the first error of the text, this sees the very nesting that the parser will see.
bool nestingIsSane(std::string_view text)
{
    int depth = 0;
    bool quoted = false;
    for (std::size_t i = 0; i < text.size(); ++i) {
        const char c = text[i];
        if (quoted) {
            if (c == '\\') {
                ++i;
            } else if (c == '"') {
                quoted = false;
            }
        } else if (c == '"') {
            quoted = true;
        } else if (c == '[' || c == '{') {
            if (++depth > deepestNesting) {
                return false;
            }
        } else if (c == ']' || c == '}') {
            --depth;
        }
    }
    return true;
}

/// The value as a whole number; the library's own conversion would cut fractions, wrap what is too
/// large, and take true for 1.
std::optional<std::int64_t> wholeOf(const json& value)
{
    if (value.is_number_unsigned()) {
        const auto number = *value.get_ptr<const json::number_unsigned_t*>();
        if (number > static_cast<std::uint64_t>(std::numeric_limits<std::int64_t>::max())) {
            return std::nullopt;
        }
        return static_cast<std::int64_t>(number);
    }
    if (value.is_number_integer()) {
        return *value.get_ptr<const json::number_integer_t*>();
    }
    if (value.is_number_float()) {
        // "3.0" and "1e3" are whole numbers too, as long as a double holds them exactly.
        constexpr double exact = 9007199254740992.0;
        const double number = *value.get_ptr<const json::number_float_t*>();
        if (std::trunc(number) == number && std::fabs(number) <= exact) {
            return static_cast<std::int64_t>(number);
        }
    }
    return std::nullopt;
}

std::optional<double> numberOf(const json& value)
{
    if (value.is_number_unsigned()) {
        return static_cast<double>(*value.get_ptr<const json::number_unsigned_t*>());
    }
    if (value.is_number_integer()) {
        return static_cast<double>(*value.get_ptr<const json::number_integer_t*>());
    }
    if (value.is_number_float()) {
        return *value.get_ptr<const json::number_float_t*>();
    }
    return std::nullopt;
}

std::string elementPath(const std::string& list, std::size_t index)
{
    return list + "[" + std::to_string(index) + "]";
}

} // namespace

std::optional<json> parseJson(std::string_view text, std::string& failure)
{
    if (text.find('\0') != std::string_view::npos) {
        // The parser would take it for the end of the text.
        failure = "not valid JSON: it holds a NUL";
        return std::nullopt;
    }
    if (!nestingIsSane(text)) {
        failure = "not valid JSON: nested too deeply";
        return std::nullopt;
    }
    // Throwing would name the place, at many times the cost of the parse; bad lines come in floods.
    json document = json::parse(text, nullptr, false);
    if (document.is_discarded()) {
        failure = "not valid JSON, or a number is out of range";
        return std::nullopt;
    }
    return document;
}

JsonReader::JsonReader(const json& document, std::string& failure)
    : m_object(document.is_object() ? &document : nullptr), m_failure(&failure)
{
    if (m_object == nullptr && failure.empty()) {
        failure = "the document is not an object";
    }
}

JsonReader::JsonReader(const json* object, std::string path, std::string& failure)
    : m_object(object), m_path(std::move(path)), m_failure(&failure)
{}

std::string JsonReader::text(const char* key) const
{
    const json* value = required(key);
    if (value != nullptr && !value->is_string()) {
        fail(pathOf(key), "is not a text");
        return {};
    }
    return value ? *value->get_ptr<const std::string*>() : std::string();
}

std::int64_t JsonReader::whole(const char* key) const
{
    const json* value = required(key);
    if (value == nullptr) {
        return 0;
    }
    const std::optional<std::int64_t> number = wholeOf(*value);
    if (!number) {
        fail(pathOf(key), "is not a whole number of 64 bits");
    }
    return number.value_or(0);
}

double JsonReader::number(const char* key) const
{
    const json* value = required(key);
    if (value == nullptr) {
        return 0;
    }
    const std::optional<double> number = numberOf(*value);
    if (!number) {
        fail(pathOf(key), "is not a number");
    }
    return number.value_or(0);
}

bool JsonReader::flag(const char* key) const
{
    const json* value = required(key);
    if (value != nullptr && !value->is_boolean()) {
        fail(pathOf(key), "is neither true nor false");
        return false;
    }
    return value != nullptr && *value->get_ptr<const bool*>();
}

DateTime JsonReader::date(const char* key) const
{
    const bool sound = m_failure->empty();
    const std::string told = text(key);
    const std::optional<DateTime> date = parseIsoDate(told);
    if (!date && sound && m_failure->empty()) {
        *m_failure = "\"" + pathOf(key) + "\": Cannot parse date: " + told;
    }
    return date.value_or(DateTime());
}

std::vector<double> JsonReader::numbers(const char* key) const
{
    const json* value = required(key);
    if (value == nullptr) {
        return {};
    }
    if (!value->is_array()) {
        fail(pathOf(key), "is not a list");
        return {};
    }
    std::vector<double> all;
    all.reserve(value->size());
    for (const json& element : *value) {
        const std::optional<double> number = numberOf(element);
        if (!number) {
            fail(elementPath(pathOf(key), all.size()), "is not a number");
            return {};
        }
        all.push_back(*number);
    }
    return all;
}

JsonReader JsonReader::object(const char* key) const
{
    const json* value = required(key);
    if (value != nullptr && !value->is_object()) {
        fail(pathOf(key), "is not an object");
        value = nullptr;
    }
    return {value, pathOf(key), *m_failure};
}

std::optional<std::string> JsonReader::optionalText(const char* key) const
{
    return present(key) ? std::optional(text(key)) : std::nullopt;
}

std::optional<std::int64_t> JsonReader::optionalWhole(const char* key) const
{
    return present(key) ? std::optional(whole(key)) : std::nullopt;
}

std::size_t JsonReader::sizeOf(const json* list, const char* key) const
{
    if (list != nullptr && !list->is_array()) {
        fail(pathOf(key), "is not a list");
        return 0;
    }
    return list == nullptr ? 0 : list->size();
}

JsonReader JsonReader::element(const json& list, const char* key, std::size_t index) const
{
    const json* value = &list[index];
    std::string place = elementPath(pathOf(key), index);
    if (!value->is_object()) {
        fail(place, "is not an object");
        value = nullptr;
    }
    return {value, std::move(place), *m_failure};
}

/// Neither missing nor null.
const json* JsonReader::present(const char* key) const
{
    if (m_object == nullptr) {
        return nullptr;
    }
    const auto found = m_object->find(key);
    return found == m_object->end() || found->is_null() ? nullptr : &*found;
}

const json* JsonReader::required(const char* key) const
{
    const json* value = present(key);
    if (value == nullptr && m_object != nullptr) {
        fail(pathOf(key), m_object->contains(key) ? "is null" : "is missing");
    }
    return value;
}

std::string JsonReader::pathOf(const char* key) const
{
    return m_path.empty() ? std::string(key) : m_path + "." + key;
}

void JsonReader::fail(const std::string& path, const std::string& why) const
{
    if (m_failure->empty()) {
        *m_failure = "\"" + path + "\" " + why;
    }
}

} // namespace zolva
