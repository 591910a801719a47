#pragma once

#include <atomic>
#include <chrono>
#include <cstdint>
#include <functional>
#include <set>
#include <string>
#include <vector>

/// The one walker of trees. It counts regular files only, every entry as it stands (a hard link
/// each time), by allocated size, hidden files included. Links found on the way are never followed,
/// a root is opened even where it is a link. Other file systems are entered like folders. Folders
/// that cannot be read are passed over and counted. Any depth, any length of names. The results do
/// not depend on the number of threads. Any thread may call; nothing is shared between calls.
namespace zolva {

/// One of the largest files of a walk.
struct BigFileHit
{
    std::string name;
    std::string path; ///< the root's text as given, and the names below it
    std::int64_t size = 0;
};

/// What one walk found.
struct Walk
{
    std::int64_t bytes = 0;
    std::int64_t files = 0;
    std::int64_t unreadable = 0;     ///< folders that could not be read, the root included
    std::vector<BigFileHit> largest; ///< at most 20, not sorted, in the order the rule leaves them
};

/// Files and bytes so far, of the whole call.
struct WalkProgress
{
    std::int64_t files = 0;
    std::int64_t bytes = 0;
};

using WalkProgressTold = std::function<void(const WalkProgress&)>;

struct WalkOptions
{
    unsigned threads = 0;    ///< 0: as many as suit the machine
    bool keepLargest = true; ///< off: `largest` stays empty
    bool linksOnTop = false; ///< links directly in a root count as files of their own size,
                             ///< unless they lead nowhere
    const std::atomic<bool>* stop = nullptr; ///< once true, the walk ends early, with any sums
    /// Called from any thread, one at a time, now and then, and once more at the end.
    WalkProgressTold progress;
    std::chrono::milliseconds progressSpacing{250}; ///< told no more often, but for the end
};

/// One walk a root, in the order of the roots, which may repeat, nest and overlap: every tree is
/// read once. A root that is missing gives an empty walk, one that is no folder itself as one file.
[[nodiscard]] std::vector<Walk> walkTrees(const std::vector<std::string>& roots,
                                          const WalkOptions& options = {});

/// The walk of one root.
[[nodiscard]] Walk walk(const std::string& root, const WalkOptions& options = {});

/// Every entry below the root whose name is in `hits`, whatever its kind, in listing order, folders
/// entered where they are met. Neither hits nor entries named in `pruned` (which wins) are entered.
/// Adds to `found` full paths that begin with the root's text.
void findByName(const std::string& root, const std::set<std::string, std::less<>>& hits,
                const std::set<std::string, std::less<>>& pruned, std::vector<std::string>& found);

} // namespace zolva
