#pragma once

#include "core/PrefsStore.h"

#include <nlohmann/json_fwd.hpp>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// Settings as JSON. Pure.
namespace zolva {

/// The object that the bytes hold; nothing if they are anything else than one JSON object, or one
/// nested too deeply to be ours.
[[nodiscard]] std::optional<nlohmann::json> parsedPrefs(std::string_view bytes);

/// The file's content for the object.
[[nodiscard]] std::string prefsBytes(const nlohmann::json& values);

/// A text that is not UTF-8 (a path need not be) has a form of its own, which no path can have: a
/// NUL, and the text with its bad bytes percent-encoded.
[[nodiscard]] std::string storedText(const std::string& bytes);
[[nodiscard]] std::string textFromStored(const std::string& stored);

/// The texts of a list; nothing if it is none, or as soon as one element is no text.
[[nodiscard]] std::optional<std::vector<std::string>> textsFromStored(const nlohmann::json& stored);

/// Puts the value in its place among those of the object.
void putStored(nlohmann::json& values, const std::string& key, const PrefValue& value);

} // namespace zolva
