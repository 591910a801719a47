#include "files/WalkWorker.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstring>
#include <limits>
#include <memory>
#include <utility>

namespace zolva {

namespace {

constexpr std::chrono::milliseconds tellEvery{250};
constexpr std::int64_t filesBetweenTellings = 8192;

/// Whether something that was listed is simply no longer there, or no longer what it was.
bool vanished(int error)
{
    return error == ENOENT || error == ENOTDIR || error == ELOOP;
}

} // namespace

WalkMeter::WalkMeter(const std::function<void(const WalkProgress&)>& tell)
    : m_tell(tell), m_last(std::chrono::steady_clock::now())
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
    if (now - m_last >= tellEvery) {
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
    std::size_t folders = 0;
    while (WalkLane* lane = crew.take()) {
        while (!lane->frames.empty()) {
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
    const int descriptor = openFolder(root.text, folder->spareTimes);
    if (descriptor < 0) {
        root.unreadable.fetch_add(vanished(errno) ? 0 : 1, std::memory_order_relaxed);
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
        sumsOf(*parent->root).unreadable += vanished(errno) ? 0 : 1;
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
    readEntries(lane, folder, descriptor);
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

void WalkWorker::readEntries(WalkLane& lane, const WalkFolderRef& folder, int descriptor)
{
    WalkRoot& root = *folder->root;
    std::int64_t bound = std::numeric_limits<std::int64_t>::max();
    if (m_shared.keepLargest) {
        bound =
            std::max(lane.sizesBefore(root).bound(), root.bound.load(std::memory_order_relaxed));
    }
    Sums found;
    Sums told;
    bool hidden = false; // whether something listed could not be looked at
    const auto tell = [&] {
        m_shared.meter.add(found.files - told.files, found.bytes - told.bytes);
        told = found;
    };
    FolderReader::Entry entry;
    NodeStatus status;
    m_reader.start(descriptor);
    while (m_reader.next(entry)) {
        NodeKind kind = entry.kind;
        if (kind == NodeKind::File || kind == NodeKind::Unknown) {
            if (!statusOf(descriptor, entry.name, status)) {
                hidden = hidden || !vanished(errno);
                continue;
            }
            kind = status.kind;
        }
        if (kind == NodeKind::File) {
            ++found.files;
            found.bytes += status.allocated;
            if (status.allocated > bound) {
                bound = std::max(bound, keepCandidate(lane, folder, entry.name, status.allocated));
            }
            if (found.files % filesBetweenTellings == 0 && m_shared.meter.wanted()) {
                tell();
            }
        } else if (kind == NodeKind::Folder) {
            ++m_folders;
            addItem(entry.name, m_shared.roots.mayBeAwaited(entry.inode)
                                    ? WalkListing::folderThatMayBeRoot
                                    : WalkListing::folder);
        }
    }
    Sums& sums = sumsOf(root);
    sums.files += found.files;
    sums.bytes += found.bytes;
    sums.unreadable += m_reader.failed() || hidden ? 1 : 0;
    if (m_shared.meter.wanted()) {
        tell();
    }
}

/// Returns the bound that holds from here on. What is dropped for the innermost root needs no look
/// for those around it: the 20 files that stand before it stand before it there as well.
std::int64_t WalkWorker::keepCandidate(WalkLane& lane, const WalkFolderRef& folder,
                                       const char* name, std::int64_t size)
{
    LargestSizes& before = lane.sizesBefore(*folder->root);
    if (m_folders == 0) {
        lane.offer(folder, name, size);
        return before.bound();
    }
    // The folder in front of it comes first: it has to wait.
    if (!m_behindFolder) {
        m_behindFolder = true;
        m_sizes = before;
    }
    if (m_sizes.offer(size)) {
        addItem(name, size);
    }
    return m_sizes.bound();
}

void WalkWorker::addItem(const char* name, std::int64_t sizeOrMark)
{
    m_listing.items.push_back({sizeOrMark, m_listing.names.size()});
    m_listing.names.append(name, std::strlen(name) + 1);
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
