#include "files/WalkLane.h"

#include "files/WalkRoots.h"

#include <cstring>
#include <iterator>
#include <utility>

namespace zolva {

void WalkListing::add(const char* entry, std::int64_t sizeOrMark)
{
    items.push_back({sizeOrMark, names.size()});
    names.append(entry, std::strlen(entry) + 1);
}

void WalkLane::offer(const WalkFolderRef& folder, const char* name, std::int64_t size)
{
    for (WalkRoot* root = folder->root; root != nullptr; root = root->outer) {
        Notes& notes = m_notes[root];
        if (!notes.sizes.offer(size)) {
            continue;
        }
        notes.hits.push_back({size, folder, name});
        if (notes.hits.size() >= notes.limit) {
            thinOut(notes);
        }
    }
}

void WalkLane::thinOut(Notes& notes)
{
    if (m_foremost.load(std::memory_order_acquire)) {
        playBack();
        return;
    }
    // With 20 larger ones known it cannot stay, but its size still moves the others about.
    for (WalkHit& hit : notes.hits) {
        if (hit.size < notes.sizes.bound()) {
            hit.folder = {};
            hit.name = {};
        }
    }
    notes.limit = notes.hits.size() * 2;
}

void WalkLane::playBack()
{
    for (auto& [root, notes] : m_notes) {
        for (WalkHit& hit : notes.hits) {
            root->largest.offer(std::move(hit));
        }
        notes.hits.clear();
        root->bound.store(root->largest.bound(), std::memory_order_relaxed);
    }
}

std::unique_ptr<WalkLane> WalkLane::giveHalf()
{
    auto given = std::make_unique<WalkLane>();
    if (frames.size() > 1) {
        const auto middle = frames.begin() + static_cast<std::ptrdiff_t>(frames.size() / 2);
        given->frames.assign(std::make_move_iterator(frames.begin()),
                             std::make_move_iterator(middle));
        frames.erase(frames.begin(), middle);
    } else if (!frames.empty() && frames.back().end - frames.back().next > 1) {
        WalkFrame& only = frames.back();
        const std::size_t middle = only.next + (only.end - only.next + 1) / 2;
        given->frames.push_back({only.folder, only.listing, middle, only.end});
        only.end = middle;
    } else {
        return nullptr;
    }
    for (const WalkFrame& frame : given->frames) {
        WalkRoot* root = frame.folder ? frame.folder->root : nullptr;
        for (; root != nullptr; root = root->outer) {
            const auto known = m_notes.find(root);
            if (known != m_notes.end()) {
                given->m_notes.try_emplace(root).first->second.sizes = known->second.sizes;
            }
        }
    }
    return given;
}

WalkLane& WalkOrder::begin(std::unique_ptr<WalkLane> lane)
{
    const std::lock_guard lock(m_mutex);
    m_lanes.push_back(std::move(lane));
    WalkLane& only = *m_lanes.back();
    only.m_place = m_lanes.begin();
    only.m_foremost.store(true, std::memory_order_release);
    return only;
}

WalkLane& WalkOrder::insertBehind(const WalkLane& lane, std::unique_ptr<WalkLane> fresh)
{
    const std::lock_guard lock(m_mutex);
    const auto place = m_lanes.insert(std::next(lane.m_place), std::move(fresh));
    (*place)->m_place = place;
    return **place;
}

void WalkOrder::finish(WalkLane& lane)
{
    const std::lock_guard lock(m_mutex);
    lane.m_finished = true;
    while (!m_lanes.empty() && m_lanes.front()->m_finished) {
        m_lanes.front()->playBack();
        m_lanes.pop_front();
    }
    if (!m_lanes.empty()) {
        m_lanes.front()->m_foremost.store(true, std::memory_order_release);
    }
}

} // namespace zolva
