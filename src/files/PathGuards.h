#pragma once

#include <optional>
#include <set>
#include <string>
#include <string_view>

/// The rule that no setting can change: which paths may be touched at all. Works on the text of
/// the path alone, whether or not it exists; links are judged by where they stand. Any thread.
namespace zolva {

/// Why the path may not be touched, as a text for the log and the user; nothing when it may.
[[nodiscard]] std::optional<std::string> pathRefusal(std::string_view path);

/// The folders that may never be removed themselves, built afresh at each call.
[[nodiscard]] std::set<std::string> protectedPaths();

} // namespace zolva
