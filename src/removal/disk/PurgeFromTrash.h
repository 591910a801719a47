#pragma once

#include "removal/disk/KnownItem.h"

#include <cstdint>
#include <string>
#include <vector>

namespace zolva {

struct Purge
{
    std::int64_t purged = 0;
    std::vector<std::string> problems; ///< texts for the user, in the order of the paths

    friend bool operator==(const Purge&, const Purge&) = default;
};

/// Deletes for good what landed in the user's own Trash. Each path is tested anew to lie there, by
/// itself and with its links resolved, and stays if it does not, wherever it came from. What is
/// already gone, or something else by now, is neither counted nor a problem. Blocks; any thread but
/// the main one.
[[nodiscard]] Purge purgeFromTrash(const std::vector<KnownItem>& landed);

} // namespace zolva
