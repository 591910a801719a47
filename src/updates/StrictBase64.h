#pragma once

#include <optional>
#include <string_view>
#include <vector>

namespace zolva {

/// The bytes that the base64 text stands for; nothing with any other character in it, white space
/// included, without its padding, or with bits that no byte takes. Pure.
[[nodiscard]] std::optional<std::vector<unsigned char>> strictBase64(std::string_view text);

} // namespace zolva
