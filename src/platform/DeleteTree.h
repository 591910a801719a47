#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// The one way anything is deleted. It goes by descriptors only: no link is ever followed, also
/// none that is swapped in meanwhile; nothing on another file system or mount is touched; no mode
/// is changed. Any depth, any length of names, a bounded number of descriptors. Any thread; blocks.
namespace zolva {

struct DeleteProblem
{
    std::string path; ///< the name, and the names below it
    int error = 0;    ///< errno
};

struct DeleteReport
{
    std::int64_t removed = 0;            ///< entries, folders included
    std::int64_t failed = 0;             ///< entries that stayed for a reason of their own
    std::vector<DeleteProblem> problems; ///< at most the first 100

    /// Nothing stands there any more, by whomever it was removed.
    [[nodiscard]] bool isGone() const { return failed == 0; }
};

/// Deletes the entry `name` of the open folder with all below it; a link as a link. It goes on
/// after an error. What is already gone is no error.
[[nodiscard]] DeleteReport deleteTree(int folder, const std::string& name);

} // namespace zolva
