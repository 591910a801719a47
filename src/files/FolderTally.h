#pragma once

#include "files/TreeWalker.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// The two measures of a thing on disk. Any thread.
namespace zolva {

/// Bytes on disk of the thing itself (a link is not followed); 0 if it cannot be asked.
[[nodiscard]] std::int64_t allocatedSize(const std::string& path);

/// The same, but nothing where nothing is there, or only a link that leads nowhere.
[[nodiscard]] std::optional<std::int64_t> sizeOfWhatStands(const std::string& path);

struct Tally
{
    std::int64_t count = 0; ///< regular files; 1 for what is no folder and for an empty folder
    std::int64_t bytes = 0; ///< allocated

    friend bool operator==(const Tally&, const Tally&) = default;
};

/// Count and bytes of a file or of a whole tree; (0, 0) only if nothing is there. A link is (1, its
/// own size), never its target's tree; a dangling link is nothing.
[[nodiscard]] Tally folderTally(const std::string& path);

/// The same for many paths at once, which may overlap; in the order given.
[[nodiscard]] std::vector<Tally> folderTallies(const std::vector<std::string>& paths,
                                               const WalkProgressTold& told = {});

} // namespace zolva
