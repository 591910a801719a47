#pragma once

#include <cstdint>

namespace zolva::ctl {

/// How much lies in the user's Trash; nothing where it cannot be read.
struct TrashReading
{
    std::int64_t bytes = 0;
    std::int64_t count = 0; ///< entries of the folder itself, hidden ones too
    bool isUnreadable = false;
};

/// Blocks on the disk.
[[nodiscard]] TrashReading readTrash();

} // namespace zolva::ctl
