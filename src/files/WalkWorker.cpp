#include "files/WalkWorker.h"

#include <unistd.h>

#include <cerrno>
#include <limits>
#include <memory>
#include <utility>

namespace zolva {

namespace {

// So many chunks of one folder at most are in other hands.
constexpr std::size_t mostGiven = 8;

} // namespace

WalkMeter::WalkMeter(const WalkProgressTold& tell, std::chrono::milliseconds spacing)
    : m_tell(tell), m_spacing(spacing), m_last(std::chrono::steady_clock::now())
{}

void WalkMeter::add(std::int64_t files, std::int64_t bytes)
{
    m_files.fetch_add(files, std::memory_order_relaxed);
    m_bytes.fetch_add(bytes, std::memory_order_relaxed);
    const std::unique_lock lock(m_telling, std::try_to_lock);
    if (!lock.owns_lock()) {
        return;
    }
    const auto now = std::chrono::steady_clock::now();
    if (now - m_last >= m_spacing) {
        m_last = now;
        m_tell({m_files.load(std::memory_order_relaxed), m_bytes.load(std::memory_order_relaxed)});
    }
}

void WalkMeter::tellNow()
{
    const std::lock_guard lock(m_telling);
    m_tell({m_files.load(std::memory_order_relaxed), m_bytes.load(std::memory_order_relaxed)});
}

WalkWorker::~WalkWorker()
{
    settleSums();
}

void WalkWorker::work(WalkCrew& crew)
{
    m_crew = &crew;
    std::size_t folders = 0;
    while (WalkLane* lane = crew.take()) {
        while (!lane->frames.empty()) {
            if (m_shared.isStopped()) {
                lane->frames.clear();
                break;
            }
            if (doNext(*lane) && crew.share(*lane, ++folders)) {
                folders = 0;
            }
        }
        crew.finish(*lane);
    }
}

/// True if a folder was walked.
bool WalkWorker::doNext(WalkLane& lane)
{
    WalkFrame& frame = lane.frames.back();
    const WalkListing::Item item = frame.listing->items[frame.next++];
    const WalkFolderRef folder = frame.folder;
    const std::shared_ptr<const WalkListing> listing = frame.listing;
    if (frame.next == frame.end) {
        lane.frames.pop_back();
    }
    if (!folder) {
        startRoot(lane, *m_shared.starts[item.name]);
        return true;
    }
    const char* name = listing->names.c_str() + item.name;
    if (item.size >= 0) {
        lane.offer(folder, name, item.size);
        return false;
    }
    enter(lane, folder, name, item.size == WalkListing::folderThatMayBeRoot);
    return true;
}

void WalkWorker::startRoot(WalkLane& lane, WalkRoot& root)
{
    const WalkFolderRef folder(new WalkFolder);
    folder->name = root.text;
    folder->root = &root;
    const int descriptor = m_shared.descriptors.openRoot(root.text, folder->spareTimes);
    if (descriptor < 0) {
        root.unreadable.fetch_add(hasVanished(errno) ? 0 : 1, std::memory_order_relaxed);
        return;
    }
    root.top = folder.get();
    list(lane, folder, descriptor);
}

void WalkWorker::enter(WalkLane& lane, const WalkFolderRef& parent, const char* name,
                       bool mayBeRoot)
{
    bool spareTimes = parent->spareTimes;
    const int descriptor = m_shared.descriptors.openChild(*parent, name, spareTimes);
    if (descriptor < 0) {
        sumsOf(*parent->root).unreadable += hasVanished(errno) ? 0 : 1;
        return;
    }
    const WalkFolderRef folder(new WalkFolder);
    folder->parent = parent;
    folder->name = name;
    folder->root = parent->root;
    folder->spareTimes = spareTimes;
    NodeStatus status;
    if (mayBeRoot && statusOf(descriptor, status)) {
        WalkRoot* root = m_shared.roots.meet(status.id, parent->root);
        if (root != nullptr) {
            root->top = folder.get();
            folder->root = root;
        }
    }
    list(lane, folder, descriptor);
}

void WalkWorker::list(WalkLane& lane, const WalkFolderRef& folder, int descriptor)
{
    m_listing.names.clear();
    m_listing.items.clear();
    m_folders = 0;
    m_behindFolder = false;
    m_hidden = false;
    const bool read = readEntries(lane, folder, descriptor);
    sumsOf(*folder->root).unreadable += !read || m_hidden ? 1 : 0;
    if (m_folders == 0) {
        ::close(descriptor);
        return;
    }
    // A copy has no room to spare, and the originals keep theirs for the next folder.
    auto listing = std::make_shared<const WalkListing>(m_listing);
    const std::size_t end = listing->items.size();
    m_shared.descriptors.keep(*folder, descriptor, m_folders);
    lane.frames.push_back({folder, std::move(listing), 0, end});
}

/// False if the folder could not be read to its end.
bool WalkWorker::readEntries(WalkLane& lane, const WalkFolderRef& folder, int descriptor)
{
    bool beginning = true;
    while (!m_shared.isStopped() && m_chunk.entries.fill(descriptor)) {
        prepare(m_chunk, lane, *folder, descriptor);
        if (!beginning && m_crew->wantsChunk()) {
            auto given = std::make_unique<WalkChunk>();
            given->entries = std::move(m_chunk.entries);
            m_chunk.entries = {};
            prepare(*given, lane, *folder, descriptor);
            m_given.push_back(std::move(given));
            m_crew->offer(*m_given.back());
        } else {
            m_chunk.measure();
            if (m_given.empty()) {
                putTogether(lane, folder, m_chunk);
            } else {
                // It has to wait for those before it.
                auto own = std::make_unique<WalkChunk>();
                own->listing = m_chunk.listing;
                own->files = m_chunk.files;
                own->bytes = m_chunk.bytes;
                own->hidden = m_chunk.hidden;
                own->measured = true;
                m_given.push_back(std::move(own));
            }
        }
        beginning = false;
        while (!m_given.empty() && (m_given.size() > mostGiven || m_given.front()->measured)) {
            m_crew->await(*m_given.front());
            putTogether(lane, folder, *m_given.front());
            m_given.pop_front();
        }
    }
    const bool failed = m_chunk.entries.failed();
    for (; !m_given.empty(); m_given.pop_front()) {
        m_crew->await(*m_given.front());
        putTogether(lane, folder, *m_given.front());
    }
    return !failed;
}

void WalkWorker::prepare(WalkChunk& chunk, WalkLane& lane, const WalkFolder& folder, int descriptor)
{
    WalkRoot& root = *folder.root;
    chunk.countsLinks = m_shared.linksOnTop && !folder.parent;
    chunk.folder = descriptor;
    chunk.roots = &m_shared.roots;
    chunk.floor = std::numeric_limits<std::int64_t>::max();
    if (m_shared.keepLargest) {
        chunk.floor = root.bound.load(std::memory_order_relaxed);
        chunk.sizes = m_behindFolder ? m_sizes : lane.sizesBefore(root);
    }
    chunk.listing.names.clear();
    chunk.listing.items.clear();
    chunk.files = 0;
    chunk.bytes = 0;
    chunk.hidden = false;
    chunk.measured.store(false, std::memory_order_relaxed);
}

/// Takes over what the next chunk of the folder holds.
void WalkWorker::putTogether(WalkLane& lane, const WalkFolderRef& folder, WalkChunk& chunk)
{
    for (const WalkListing::Item& item : chunk.listing.items) {
        const char* name = chunk.listing.names.c_str() + item.name;
        if (item.size >= 0) {
            keepCandidate(lane, folder, name, item.size);
        } else {
            ++m_folders;
            m_listing.add(name, item.size);
        }
    }
    m_hidden = m_hidden || chunk.hidden;
    Sums& sums = sumsOf(*folder->root);
    sums.files += chunk.files;
    sums.bytes += chunk.bytes;
    if (m_shared.meter.wanted()) {
        m_shared.meter.add(chunk.files, chunk.bytes);
    }
}

/// What was dropped for the innermost root needs no look for those around it: the 20 files that
/// stand before it stand before it there as well.
void WalkWorker::keepCandidate(WalkLane& lane, const WalkFolderRef& folder, const char* name,
                               std::int64_t size)
{
    if (m_folders == 0) {
        lane.offer(folder, name, size);
        return;
    }
    // The folder in front of it comes first: it has to wait.
    if (!m_behindFolder) {
        m_behindFolder = true;
        m_sizes = lane.sizesBefore(*folder->root);
    }
    if (m_sizes.offer(size)) {
        m_listing.add(name, size);
    }
}

WalkWorker::Sums& WalkWorker::sumsOf(WalkRoot& root)
{
    if (m_root != &root) {
        settleSums();
        m_root = &root;
    }
    return m_sums;
}

void WalkWorker::settleSums()
{
    if (m_root != nullptr) {
        m_root->files.fetch_add(m_sums.files, std::memory_order_relaxed);
        m_root->bytes.fetch_add(m_sums.bytes, std::memory_order_relaxed);
        m_root->unreadable.fetch_add(m_sums.unreadable, std::memory_order_relaxed);
    }
    m_root = nullptr;
    m_sums = {};
}

} // namespace zolva
