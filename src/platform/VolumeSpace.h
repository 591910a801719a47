#pragma once

#include <cstdint>
#include <string>

namespace zolva {

/// Bytes of a volume that anyone may use, and bytes in all; 0 where unknown.
struct VolumeSpace
{
    std::int64_t available = 0;
    std::int64_t total = 0;
};

/// Of the volume that holds the path. Any thread.
[[nodiscard]] VolumeSpace volumeSpace(const std::string& path);

} // namespace zolva
