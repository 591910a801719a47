#include "platform/FolderWatch.h"

#include <sys/inotify.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <utility>

namespace zolva {

namespace {

constexpr std::uint32_t changes = IN_CREATE | IN_DELETE | IN_MOVED_FROM | IN_MOVED_TO |
                                  IN_DELETE_SELF | IN_MOVE_SELF | IN_ONLYDIR;

} // namespace

FolderWatch::FolderWatch(const std::string& folder)
    : m_queue(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC))
{
    if (m_queue >= 0 && ::inotify_add_watch(m_queue, folder.c_str(), changes) < 0) {
        ::close(std::exchange(m_queue, -1));
    }
}

FolderWatch::~FolderWatch()
{
    if (m_queue >= 0) {
        ::close(m_queue);
    }
}

void FolderWatch::drain() const
{
    // What each event says does not matter: whoever is told lists the folder.
    alignas(inotify_event) std::array<char, 16384> events;
    while (m_queue >= 0 && ::read(m_queue, events.data(), events.size()) > 0) {
    }
}

} // namespace zolva
