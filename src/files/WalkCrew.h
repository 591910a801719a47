#pragma once

#include "files/WalkChunk.h"
#include "files/WalkLane.h"

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <thread>
#include <vector>

namespace zolva {

/// The threads of one walk: the caller's, and helpers that are started only once there is something
/// to give them, and sleep while there is nothing.
class WalkCrew
{
public:
    /// `work` takes lanes until there are none; it runs once in every thread. 0 threads: as many as
    /// suit the machine, started only for a walk that lasts; else as many as can be used, at once.
    WalkCrew(unsigned threads, std::function<void(WalkCrew&)> work);

    /// Returns when all that came from this lane is done.
    void run(std::unique_ptr<WalkLane> first);

    /// For `work`: the next lane, or nothing when the walk is over. Waits, and measures chunks of
    /// others meanwhile.
    [[nodiscard]] WalkLane* take();
    void finish(WalkLane& lane);
    /// Gives half of the lane away if somebody is idle, or can be started after the folders the
    /// caller has walked since it last gave something; true if so.
    bool share(WalkLane& lane, std::size_t foldersSince);

    /// Whether a chunk would find somebody to measure it.
    [[nodiscard]] bool wantsChunk() const
    {
        return m_hungry.load(std::memory_order_relaxed) ||
               m_toStart.load(std::memory_order_relaxed) > 0;
    }
    void offer(WalkChunk& chunk);
    /// Returns when the chunk is measured, by the caller if nobody has begun.
    void await(WalkChunk& chunk);

private:
    void startHelper();
    void updateHunger();

    std::function<void(WalkCrew&)> m_work;
    const std::size_t m_patience;
    WalkOrder m_order;
    std::atomic<bool> m_hungry = false; ///< more threads wait than lanes
    std::atomic<unsigned> m_toStart;    ///< helpers that may still be started
    std::mutex m_mutex;                 ///< guards the rest
    std::condition_variable m_changed;
    std::deque<WalkLane*> m_waiting;
    std::deque<WalkChunk*> m_chunks;
    std::size_t m_unfinished = 0; ///< lanes, waiting or taken
    std::size_t m_idle = 0;
    std::vector<std::thread> m_helpers;
};

} // namespace zolva
