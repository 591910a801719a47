#pragma once

#include <QString>

#include <cstdint>

/// The words of an uninstall, by how many applications. Pure.
namespace zolva {

inline constexpr auto authenticateAction = "Authenticate…";

[[nodiscard]] QString stillRunningText(std::int64_t apps);
[[nodiscard]] QString needsPasswordText(std::int64_t apps);
[[nodiscard]] QString uninstalledText(std::int64_t apps);
[[nodiscard]] QString stillStuckText(std::int64_t apps);

} // namespace zolva
