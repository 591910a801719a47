#pragma once

#include "ctl/Commands.h"
#include "files/Age.h"

#include <nlohmann/json.hpp>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The conventions that all documents share. Keys stand in the order in which they are put.
namespace zolva::ctl {

using Json = nlohmann::ordered_json;

/// Puts the path under `key` as readable text, and under "raw" too where that is not all of it.
void putPath(Json& object, const char* key, std::string_view path);

/// The texts, readable.
[[nodiscard]] Json textsJson(const std::vector<std::string>& texts);

/// Where any of the texts, which stand beside it, is not UTF-8: a list under "raw" with its full
/// form, and null for those that are.
void putRaw(Json& object, const std::vector<std::string>& texts);

/// RFC 3339 in UTC, whole seconds; null for no date.
[[nodiscard]] Json dateJson(std::optional<TimePoint> date);

/// The text, or null.
[[nodiscard]] Json textJson(const std::optional<std::string>& text);

/// One document in one line.
[[nodiscard]] Answer document(const Json& json);

} // namespace zolva::ctl
