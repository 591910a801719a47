#pragma once

#include "core/PrefsStore.h"

#include <nlohmann/json_fwd.hpp>

#include <optional>
#include <string>
#include <string_view>

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

[[nodiscard]] nlohmann::json storedValue(const PrefValue& value);

} // namespace zolva
