#pragma once

#include <cstddef>
#include <string_view>

/// What text is, read as UTF-8 (RFC 3629). Pure.
namespace zolva {

/// How many bytes the character at the start of the text takes, which must not be empty; 0 where it
/// is not UTF-8: overlong forms, surrogates and what is above U+10FFFF are not.
[[nodiscard]] std::size_t characterLength(std::string_view text);

/// Whether the character steers a terminal or reorders its line: control characters, line and
/// paragraph separators, embedded writing directions.
[[nodiscard]] bool steersTerminal(std::string_view character);

[[nodiscard]] bool isUtf8(std::string_view text);

/// Without leading and trailing white space and line ends (Unicode's, read as UTF-8). Bytes that
/// are not UTF-8 are no white space.
[[nodiscard]] std::string_view trimmedText(std::string_view text);

} // namespace zolva
