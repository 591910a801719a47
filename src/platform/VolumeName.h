#pragma once

#include <string>

namespace zolva {

/// What the volume that holds the path is called, as bytes; empty where it has no name or the
/// system does not tell. Any thread.
[[nodiscard]] std::string volumeName(const std::string& path);

} // namespace zolva
