#pragma once

#include <optional>
#include <string>
#include <string_view>

/// How paths are shown. Pure, but for reading the home folder. Any thread.
namespace zolva {

/// The path with the home folder as "~"; still bytes, so it can be expanded again.
[[nodiscard]] std::string tildePath(std::string_view path);

/// UTF-8 for showing: every byte that is not part of valid UTF-8 becomes one U+FFFD.
[[nodiscard]] std::string displayText(std::string_view bytes);

/// For a path that is not UTF-8: its bad bytes and "%" percent-encoded (RFC 3986), so that it can
/// be told apart and decoded; nothing where the path is UTF-8.
[[nodiscard]] std::optional<std::string> rawPath(std::string_view bytes);

/// For one line: `displayText` with U+FFFD for what begins another one, steers a terminal or turns
/// this one: control characters, line and paragraph separators, embedded writing directions.
[[nodiscard]] std::string displayLine(std::string_view bytes);

} // namespace zolva
