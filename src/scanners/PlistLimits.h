#pragma once

#include <cstddef>
#include <string_view>

/// What a property list may ask of the library that decodes it: libplist (2.2) frees nested values
/// by recursion, writes a value out as often as it is referred to, and decodes entities in
/// quadratic time, so a hostile file of a few kilobytes could end the program or fill the memory.
namespace zolva {

/// Bytes; an Info.plist has a few thousand.
inline constexpr std::size_t largestPlist = std::size_t{16} * 1024 * 1024;

[[nodiscard]] bool isBinaryPlist(std::string_view bytes);

/// Whether the bytes can be decoded with little memory, stack and time. Says nothing of whether
/// they are a property list. Pure.
[[nodiscard]] bool isAffordableXmlPlist(std::string_view bytes);
[[nodiscard]] bool isAffordableBinaryPlist(std::string_view bytes);

} // namespace zolva
