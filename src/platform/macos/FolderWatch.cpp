#include "platform/FolderWatch.h"

#include <fcntl.h>
#include <sys/event.h>
#include <unistd.h>

#include <ctime>
#include <utility>

namespace zolva {

FolderWatch::FolderWatch(const std::string& folder)
    : m_queue(::kqueue()), m_folder(::open(folder.c_str(), O_EVTONLY | O_CLOEXEC))
{
    if (m_queue < 0 || m_folder < 0) {
        if (m_queue >= 0) {
            ::close(std::exchange(m_queue, -1));
        }
        return;
    }
    struct kevent change;
    EV_SET(&change, static_cast<uintptr_t>(m_folder), EVFILT_VNODE, EV_ADD | EV_CLEAR,
           NOTE_WRITE | NOTE_DELETE | NOTE_RENAME, 0, nullptr);
    if (::kevent(m_queue, &change, 1, nullptr, 0, nullptr) != 0) {
        ::close(std::exchange(m_queue, -1));
    }
}

FolderWatch::~FolderWatch()
{
    if (m_folder >= 0) {
        ::close(m_folder);
    }
    if (m_queue >= 0) {
        ::close(m_queue);
    }
}

void FolderWatch::drain()
{
    const timespec atOnce{};
    struct kevent event;
    while (m_queue >= 0 && ::kevent(m_queue, nullptr, 0, &event, 1, &atOnce) > 0) {
    }
}

} // namespace zolva
