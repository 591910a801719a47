#include "platform/FolderWatch.h"

#include "platform/FileDescriptor.h"
#include "platform/OpenFolder.h"

#include <fcntl.h>
#include <sys/inotify.h>
#include <unistd.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>

namespace zolva {

namespace {

constexpr std::uint32_t itself = IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR;
constexpr std::uint32_t changes = IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO | itself;
/// After one of these the path may lead to another folder, or nowhere.
constexpr std::uint32_t departures = IN_DELETE_SELF | IN_MOVE_SELF | IN_UNMOUNT | IN_Q_OVERFLOW;

FileDescriptor newQueue()
{
    return FileDescriptor(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC));
}

bool watch(const FileDescriptor& queue, const std::string& folder, std::uint32_t events)
{
    return ::inotify_add_watch(queue.get(), folder.c_str(), events) >= 0;
}

/// Watches the folder, and the two above it for the case that it goes away. Whether it is there.
bool watchWithParents(const FileDescriptor& queue, const std::string& folder)
{
    const std::string parent = entryPath(folder).folder;
    const std::string above = entryPath(parent).folder;
    // From the top, so that nothing appears unseen below one that is watched already. What is in
    // them matters only as long as the next one is missing.
    watch(queue, above, changes);
    if (watch(queue, parent, changes)) {
        watch(queue, above, itself);
    }
    if (!watch(queue, folder, changes)) {
        return false;
    }
    watch(queue, parent, itself);
    return true;
}

bool haveDepartures(const char* events, std::size_t size)
{
    for (std::size_t at = 0; at < size;) {
        inotify_event event{};
        std::memcpy(&event, events + at, sizeof(event));
        if ((event.mask & departures) != 0) {
            return true;
        }
        at += sizeof(event) + event.len;
    }
    return false;
}

} // namespace

FolderWatch::FolderWatch(const std::string& folder) : m_path(folder)
{
    FileDescriptor queue = newQueue();
    if (queue.isOpen() && watchWithParents(queue, folder)) {
        m_isThere = true;
        m_queue = queue.release();
        // Nothing is news to who has not yet looked.
        drain();
    }
}

FolderWatch::~FolderWatch()
{
    if (m_queue >= 0) {
        ::close(m_queue);
    }
}

void FolderWatch::drain()
{
    // What else the events say does not matter: whoever is told lists the folder.
    alignas(inotify_event) std::array<char, 16384> events;
    bool wasTold = false;
    while (m_queue >= 0) {
        const ssize_t got = ::read(m_queue, events.data(), events.size());
        if (got <= 0) {
            break;
        }
        wasTold = true;
        if (haveDepartures(events.data(), static_cast<std::size_t>(got))) {
            m_isThere = false;
        }
    }
    if (wasTold && !m_isThere) {
        watchAnew();
    }
}

void FolderWatch::watchAnew()
{
    const FileDescriptor queue = newQueue();
    if (!queue.isOpen()) {
        return;
    }
    m_isThere = watchWithParents(queue, m_path);
    // Whoever waits on the descriptor goes on waiting, and nothing more comes from what was
    // watched before.
    ::dup3(queue.get(), m_queue, O_CLOEXEC);
}

} // namespace zolva
