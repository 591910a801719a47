#pragma once

#include "files/TreeWalker.h"
#include "files/WalkChunk.h"
#include "files/WalkCrew.h"
#include "files/WalkDescriptors.h"
#include "files/WalkLane.h"
#include "files/WalkRoots.h"
#include "files/WalkSystem.h"

#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <mutex>
#include <vector>

namespace zolva {

/// Adds up what the threads of a walk find, and tells it now and then. Any thread.
class WalkMeter
{
public:
    WalkMeter(const WalkProgressTold& tell, std::chrono::milliseconds spacing);

    [[nodiscard]] bool wanted() const { return static_cast<bool>(m_tell); }
    void add(std::int64_t files, std::int64_t bytes);
    /// Tells the sums whenever the last time was.
    void tellNow();

private:
    const WalkProgressTold& m_tell;
    const std::chrono::milliseconds m_spacing;
    std::atomic<std::int64_t> m_files = 0;
    std::atomic<std::int64_t> m_bytes = 0;
    std::mutex m_telling;
    std::chrono::steady_clock::time_point m_last; ///< guarded by `m_telling`
};

/// What the threads of a walk have in common.
struct WalkShared
{
    WalkRoots& roots;
    WalkDescriptors& descriptors;
    WalkMeter& meter;
    bool keepLargest;
    bool linksOnTop;
    const std::atomic<bool>* stop;
    std::vector<WalkRoot*> starts;

    [[nodiscard]] bool isStopped() const { return stop != nullptr && stop->load(); }
};

/// One thread's part in a walk.
class WalkWorker
{
public:
    explicit WalkWorker(WalkShared& shared) : m_shared(shared) {}
    ~WalkWorker();
    WalkWorker(const WalkWorker&) = delete;
    WalkWorker& operator=(const WalkWorker&) = delete;

    void work(WalkCrew& crew);

private:
    struct Sums
    {
        std::int64_t files = 0;
        std::int64_t bytes = 0;
        std::int64_t unreadable = 0;
    };

    bool doNext(WalkLane& lane);
    void startRoot(WalkLane& lane, WalkRoot& root);
    void enter(WalkLane& lane, const WalkFolderRef& parent, const char* name, bool mayBeRoot);
    void list(WalkLane& lane, const WalkFolderRef& folder, int descriptor);
    bool readEntries(WalkLane& lane, const WalkFolderRef& folder, int descriptor);
    void prepare(WalkChunk& chunk, WalkLane& lane, const WalkFolder& folder, int descriptor);
    void putTogether(WalkLane& lane, const WalkFolderRef& folder, WalkChunk& chunk);
    void keepCandidate(WalkLane& lane, const WalkFolderRef& folder, const char* name,
                       std::int64_t size);
    [[nodiscard]] Sums& sumsOf(WalkRoot& root);
    void settleSums();

    WalkShared& m_shared;
    WalkCrew* m_crew = nullptr;
    WalkRoot* m_root = nullptr; ///< whose sums `m_sums` are
    Sums m_sums;
    // Of the folder being listed:
    WalkChunk m_chunk;
    std::deque<std::unique_ptr<WalkChunk>> m_given; ///< to others, in order, not yet put together
    WalkListing m_listing;
    std::uint32_t m_folders = 0;
    bool m_hidden = false;       ///< something listed could not be looked at
    bool m_behindFolder = false; ///< a candidate was found behind the first folder
    LargestSizes m_sizes;        ///< known to stand before it then
};

} // namespace zolva
