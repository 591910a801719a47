#pragma once

#include "json/IsoDate.h"

#include <nlohmann/json_fwd.hpp>

#include <cstddef>
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
        return readAll(required(key), key, read);
    }

    template <typename Read>
    [[nodiscard]] std::optional<Values<Read>> optionalList(const char* key, Read read) const
    {
        const nlohmann::json* value = present(key);
        if (value == nullptr) {
            return std::nullopt;
        }
        return readAll(value, key, read);
    }

private:
    JsonReader(const nlohmann::json* object, std::string path, std::string& failure);

    /// Each element is judged when its turn comes, so that the failure kept is the foremost one.
    template <typename Read>
    Values<Read> readAll(const nlohmann::json* list, const char* key, Read read) const
    {
        Values<Read> values;
        const std::size_t count = sizeOf(list, key);
        values.reserve(count);
        for (std::size_t i = 0; i < count && m_failure->empty(); ++i) {
            values.push_back(read(element(*list, key, i)));
        }
        return values;
    }

    [[nodiscard]] const nlohmann::json* present(const char* key) const;
    [[nodiscard]] const nlohmann::json* required(const char* key) const;
    /// 0 where it is no list.
    [[nodiscard]] std::size_t sizeOf(const nlohmann::json* list, const char* key) const;
    [[nodiscard]] JsonReader element(const nlohmann::json& list, const char* key,
                                     std::size_t index) const;
    [[nodiscard]] std::string pathOf(const char* key) const;
    void fail(const std::string& path, const std::string& why) const;

    const nlohmann::json* m_object; ///< null once something above failed
    std::string m_path;             ///< empty for the document itself
    std::string* m_failure;
};

} // namespace zolva
