#pragma once

#include <cstddef>
#include <string>
#include <string_view>

/// The names tried for a thing in the Trash. Names are bytes.
namespace zolva {

inline constexpr std::string_view trashInfoSuffix = ".trashinfo";
inline constexpr int countedTrashNames = 100;
inline constexpr int mostTrashNames = 200;

/// The name for the try of that number, from 0: as it stands, then with a counter before the
/// extension, from `countedTrashNames` on with a random one; shortened at a letter's border so that
/// with `trashInfoSuffix` it has at most `longest` bytes.
[[nodiscard]] std::string trashName(std::string_view name, int attempt, std::size_t longest);

} // namespace zolva
