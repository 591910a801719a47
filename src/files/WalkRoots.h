#pragma once

#include "files/LargestFiles.h"
#include "files/TreeWalker.h"
#include "files/WalkSystem.h"

#include <atomic>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace zolva {

/// A folder that was asked for, under however many names. Its sums leave out the roots within.
struct WalkRoot
{
    std::string text; ///< the first of its names, by which it is opened
    FolderId id;
    bool reached = false;            ///< started or met; guarded by the mutex of WalkRoots
    WalkRoot* outer = nullptr;       ///< the root it was met in
    const WalkFolder* top = nullptr; ///< its own folder
    std::atomic<std::int64_t> files = 0;
    std::atomic<std::int64_t> bytes = 0;
    std::atomic<std::int64_t> unreadable = 0;
    LargestFiles largest; ///< written by the thread of the foremost lane
    /// What a file must exceed to be kept, as far as the walk is complete from its beginning.
    std::atomic<std::int64_t> bound = -1;
};

/// The roots of one call: which are started, which are met within others, and what comes out.
class WalkRoots
{
public:
    explicit WalkRoots(const std::vector<std::string>& texts);

    /// The outermost of those not reached yet, by their texts; none when all are. Those that should
    /// lie within them are recognised on the way.
    [[nodiscard]] std::vector<WalkRoot*> start();

    /// Whether a folder of this inode is worth a call of `meet`. Any thread during a round.
    [[nodiscard]] bool mayBeAwaited(std::uint64_t inode) const
    {
        return !m_awaited.empty() && m_awaited.contains(inode);
    }
    /// The root that this folder is, if it is awaited and was not met before. Any thread.
    [[nodiscard]] WalkRoot* meet(const FolderId& id, WalkRoot* outer);

    /// One walk a text.
    [[nodiscard]] std::vector<Walk> results(bool keepLargest) const;

private:
    struct Asked
    {
        std::string text;
        std::optional<std::int64_t> file; ///< no folder: its size
        WalkRoot* root = nullptr;         ///< neither: nothing is there
    };

    std::vector<Asked> m_asked;
    std::vector<std::unique_ptr<WalkRoot>> m_roots;
    std::unordered_multimap<std::uint64_t, WalkRoot*> m_awaited; ///< by inode
    std::mutex m_mutex;
};

} // namespace zolva
