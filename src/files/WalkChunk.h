#pragma once

#include "files/LargestFiles.h"
#include "files/WalkLane.h"
#include "files/WalkRoots.h"
#include "files/WalkSystem.h"

#include <atomic>
#include <cstdint>

namespace zolva {

/// One buffer of a folder's listing, and what is in it once measured. The pieces of a big folder
/// can be measured by several threads, as long as they are put together in their order.
struct WalkChunk
{
    FolderEntries entries;
    int folder = -1; ///< its descriptor, open until the chunk is measured
    const WalkRoots* roots = nullptr;
    bool countsLinks = false; ///< by their own size, where they lead somewhere
    std::int64_t floor = -1;  ///< only larger files can be among the largest
    LargestSizes sizes;       ///< known to stand before the chunk

    // What was found; the listing holds folders and files that may be among the largest.
    WalkListing listing;
    std::int64_t files = 0;
    std::int64_t bytes = 0;
    bool hidden = false; ///< something listed could not be looked at
    std::atomic<bool> measured = false;

    void measure();
};

/// Whether something that was listed is simply no longer there, or no longer what it was.
[[nodiscard]] bool hasVanished(int error);

} // namespace zolva
