#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace zolva {

/// The full path of the running executable, links resolved; empty where the system does not tell.
/// Bytes. Any thread.
[[nodiscard]] std::string executablePath();

/// Where resources lie on this system, relative to the folder above the executable's folder, in the
/// order they are looked at.
[[nodiscard]] const std::vector<std::string_view>& resourceLayout();

} // namespace zolva
