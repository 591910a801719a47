#include "files/WalkCrew.h"

#include "diagnostics/AlternateStack.h"
#include "files/WalkSystem.h"

#include <algorithm>
#include <system_error>
#include <utility>

namespace zolva {

namespace {

constexpr unsigned threadsPerCore = 4; // a cold disk answers several askers sooner than one
constexpr std::size_t foldersBeforeHelp = 32;
constexpr std::size_t descriptorsPerThread = 8;

/// Asked once: the answer is read from a file of the system, and small walks are many.
unsigned processors()
{
    static const unsigned count = std::max(1U, std::thread::hardware_concurrency());
    return count;
}

unsigned helpersFor(unsigned threads)
{
    const unsigned wanted = threads == 0 ? processors() * threadsPerCore : threads;
    return std::min(wanted, mostWalkThreads()) - 1;
}

/// Asked only by a walk that needs help, which most do not.
bool canAfford(std::size_t threads)
{
    return threads <= descriptorLimit() / descriptorsPerThread;
}

} // namespace

WalkCrew::WalkCrew(unsigned threads, std::function<void(WalkCrew&)> work)
    : m_work(std::move(work)), m_patience(threads == 0 ? foldersBeforeHelp : 0),
      m_toStart(helpersFor(threads))
{}

void WalkCrew::run(std::unique_ptr<WalkLane> first)
{
    {
        const std::lock_guard lock(m_mutex);
        m_waiting.push_back(&m_order.begin(std::move(first)));
        m_unfinished = 1;
    }
    m_work(*this);
    // Nobody starts a helper after the last lane is finished.
    for (std::thread& helper : m_helpers) {
        helper.join();
    }
}

WalkLane* WalkCrew::take()
{
    std::unique_lock lock(m_mutex);
    WalkLane* lane = nullptr;
    for (;;) {
        ++m_idle;
        updateHunger();
        m_changed.wait(
            lock, [this] { return !m_chunks.empty() || !m_waiting.empty() || m_unfinished == 0; });
        --m_idle;
        if (m_chunks.empty()) {
            break;
        }
        WalkChunk* chunk = m_chunks.front();
        m_chunks.pop_front();
        lock.unlock();
        chunk->measure();
        lock.lock();
        m_changed.notify_all();
    }
    if (!m_waiting.empty()) {
        lane = m_waiting.front();
        m_waiting.pop_front();
    }
    updateHunger();
    return lane;
}

void WalkCrew::finish(WalkLane& lane)
{
    m_order.finish(lane);
    const std::lock_guard lock(m_mutex);
    if (--m_unfinished == 0) {
        m_changed.notify_all();
    }
}

bool WalkCrew::share(WalkLane& lane, std::size_t foldersSince)
{
    const bool hungry = m_hungry.load(std::memory_order_relaxed);
    const bool helper =
        !hungry && foldersSince >= m_patience && m_toStart.load(std::memory_order_relaxed) > 0;
    if (!hungry && !helper) {
        return false;
    }
    std::unique_ptr<WalkLane> half = lane.giveHalf();
    if (!half) {
        return false;
    }
    WalkLane& given = m_order.insertBehind(lane, std::move(half));
    {
        const std::lock_guard lock(m_mutex);
        m_waiting.push_back(&given);
        ++m_unfinished;
        updateHunger();
        if (helper && m_idle < m_waiting.size()) {
            startHelper();
        }
    }
    m_changed.notify_one();
    return true;
}

void WalkCrew::offer(WalkChunk& chunk)
{
    {
        const std::lock_guard lock(m_mutex);
        m_chunks.push_back(&chunk);
        updateHunger();
        if (m_idle < m_chunks.size()) {
            startHelper();
        }
    }
    m_changed.notify_one();
}

void WalkCrew::await(WalkChunk& chunk)
{
    std::unique_lock lock(m_mutex);
    const auto found = std::find(m_chunks.begin(), m_chunks.end(), &chunk);
    if (found != m_chunks.end()) {
        m_chunks.erase(found);
        updateHunger();
        lock.unlock();
        chunk.measure();
        return;
    }
    m_changed.wait(lock, [&chunk] { return chunk.measured.load(std::memory_order_acquire); });
}

void WalkCrew::startHelper()
{
    if (m_toStart.load(std::memory_order_relaxed) == 0) {
        return;
    }
    const std::size_t threads = m_helpers.size() + 1;
    if (!canAfford(threads + 1)) {
        m_toStart.store(0, std::memory_order_relaxed);
        return;
    }
    try {
        m_helpers.emplace_back([this] {
            useAlternateSignalStack();
            m_work(*this);
        });
        m_toStart.fetch_sub(1, std::memory_order_relaxed);
    } catch (const std::system_error&) {
        // The system has no more threads: those there are do it.
        m_toStart.store(0, std::memory_order_relaxed);
    }
}

void WalkCrew::updateHunger()
{
    m_hungry.store(m_idle > m_waiting.size() + m_chunks.size(), std::memory_order_relaxed);
}

} // namespace zolva
