#pragma once

#include "core/IsoDate.h"

#include <nlohmann/json_fwd.hpp>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

/// Strict reading of JSON: only the type that was asked for is taken, and the first key that fails
/// is kept as a text with its whole path. No exception leaves these calls.
namespace zolva {

/// The parsed text; nothing where it is no JSON (RFC 8259), holds a NUL, or is nested deeper than
/// any record is. `failure` then says why.
[[nodiscard]] std::optional<nlohmann::json> parseJson(std::string_view text, std::string& failure);

/// One JSON object, read key by key. After a failure every call goes on with an empty value, and
/// `failure` keeps the first one; whoever reads tests it once, at the end. Must not outlive the
/// parsed document and the text for the failure.
class JsonReader
{
public:
    template <typename Read>
    using Values = std::vector<std::invoke_result_t<Read, const JsonReader&>>;

    /// The document itself, which must be an object.
    JsonReader(const nlohmann::json& document, std::string& failure);

    [[nodiscard]] std::string text(const char* key) const;
    [[nodiscard]] std::int64_t whole(const char* key) const;
    [[nodiscard]] double number(const char* key) const;
    [[nodiscard]] bool flag(const char* key) const;
    [[nodiscard]] DateTime date(const char* key) const;
    [[nodiscard]] std::vector<double> numbers(const char* key) const;
    [[nodiscard]] JsonReader object(const char* key) const;

    /// Absent where the key is missing or null; any other type than the one asked for fails.
    [[nodiscard]] std::optional<std::string> optionalText(const char* key) const;
    [[nodiscard]] std::optional<std::int64_t> optionalWhole(const char* key) const;

    /// Every element of a list of objects, by `read(const JsonReader&)`.
    template <typename Read>
    [[nodiscard]] Values<Read> list(const char* key, Read read) const
    {
        return readAll(objects(required(key), key), read);
    }

    template <typename Read>
    [[nodiscard]] std::optional<Values<Read>> optionalList(const char* key, Read read) const
    {
        const nlohmann::json* value = present(key);
        if (value == nullptr) {
            return std::nullopt;
        }
        return readAll(objects(value, key), read);
    }

private:
    JsonReader(const nlohmann::json* object, std::string path, std::string& failure);

    template <typename Read>
    static Values<Read> readAll(const std::vector<JsonReader>& elements, Read read)
    {
        Values<Read> values;
        values.reserve(elements.size());
        for (const JsonReader& element : elements) {
            values.push_back(read(element));
        }
        return values;
    }

    [[nodiscard]] const nlohmann::json* present(const char* key) const;
    [[nodiscard]] const nlohmann::json* required(const char* key) const;
    [[nodiscard]] std::vector<JsonReader> objects(const nlohmann::json* value,
                                                  const char* key) const;
    [[nodiscard]] std::string pathOf(const char* key) const;
    void fail(const std::string& path, const std::string& why) const;

    const nlohmann::json* m_object; ///< null once something above failed
    std::string m_path;             ///< empty for the document itself
    std::string* m_failure;
};

} // namespace zolva
