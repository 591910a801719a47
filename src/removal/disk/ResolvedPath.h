#pragma once

#include <string>

namespace zolva {

/// The path with every link on it resolved, the last one too, as far as there is anything; what is
/// not there, or cannot be looked at, stays as text. A link that leads back to itself stays. Any
/// thread.
[[nodiscard]] std::string resolvedPath(const std::string& path);

} // namespace zolva
