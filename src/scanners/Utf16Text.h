#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace zolva {

/// The text in UTF-8 of bytes that begin with the byte order mark of UTF-16, without the mark;
/// nothing where they do not, or where something among them is no character. Pure.
[[nodiscard]] std::optional<std::string> textOfMarkedUtf16(std::string_view bytes);

} // namespace zolva
