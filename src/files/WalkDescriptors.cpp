#include "files/WalkDescriptors.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <string>
#include <vector>

namespace zolva {

namespace {

/// A new descriptor of `folder`, reached from `open` (below it, or by the root's text if none) or
/// -1 with errno. Links on the way down need no care: what counts is where it ends.
int reach(const WalkFolder* open, const WalkFolder& folder, const FolderId& id)
{
    std::vector<const WalkFolder*> way;
    const WalkFolder* top = &folder;
    for (; top != open && top->parent; top = top->parent.get()) {
        way.push_back(top);
    }
    const bool fromText = open == nullptr;
    int at = fromText ? openStep(top->name) : open->kept.descriptor;
    bool own = fromText;
    while (at >= 0 && !way.empty()) {
        std::string step;
        while (!way.empty() && step.size() + 1 + way.back()->name.size() < longestPath()) {
            step += step.empty() ? "" : "/";
            step += way.back()->name;
            way.pop_back();
        }
        const int next = openStep(at, step.c_str(), LastLink::Refuse);
        const int error = errno;
        if (own) {
            ::close(at);
        }
        errno = error;
        at = next;
        own = true;
    }
    NodeStatus status;
    if (at >= 0 && (!statusOf(at, status) || status.id != id)) {
        ::close(at);
        errno = ENOENT;
        return -1;
    }
    return at;
}

} // namespace

/// What `open` gives, tried again without the idle ones where there are too many descriptors.
template <typename Open>
int WalkDescriptors::withRoom(const Open& open)
{
    int descriptor = open();
    if (descriptor < 0 && (errno == EMFILE || errno == ENFILE)) {
        // The rest of the program has taken more than its share.
        closeIdle();
        descriptor = open();
    }
    return descriptor;
}

WalkDescriptors::~WalkDescriptors()
{
    closeIdle();
}

std::size_t WalkDescriptors::suitableCapacity()
{
    // The rest is for the other threads of the program, and other walks among them.
    return std::clamp<std::size_t>(descriptorLimit() / 4, 8, 512);
}

int WalkDescriptors::openRoot(const std::string& text, bool& spareTimes)
{
    return withRoom([&] { return openFolder(text, spareTimes); });
}

void WalkDescriptors::keep(WalkFolder& folder, int descriptor, std::uint32_t unopened)
{
    const std::lock_guard lock(m_mutex);
    folder.kept.descriptor = descriptor;
    folder.kept.unopened = unopened;
    ++m_open;
    link(folder);
    closeBeyond(m_capacity);
}

int WalkDescriptors::openChild(WalkFolder& parent, const char* name, bool& spareTimes)
{
    const int at = acquire(parent);
    if (at < 0) {
        const int error = errno;
        giveUp(parent);
        errno = error;
        return -1;
    }
    const int child = withRoom([&] { return openFolder(at, name, LastLink::Refuse, spareTimes); });
    const int error = errno;
    {
        const std::lock_guard lock(m_mutex);
        --parent.kept.unopened;
        unpin(parent);
    }
    errno = error;
    return child;
}

int WalkDescriptors::acquire(WalkFolder& folder)
{
    WalkFolder* open = &folder;
    FolderId id;
    {
        const std::lock_guard lock(m_mutex);
        id = folder.kept.id;
        while (open != nullptr && open->kept.descriptor < 0) {
            open = open->parent.get();
        }
        if (open != nullptr) {
            pin(*open);
        }
        if (open == &folder) {
            return folder.kept.descriptor;
        }
    }
    const int fresh = withRoom([&] { return reach(open, folder, id); });
    const int error = errno;
    const std::lock_guard lock(m_mutex);
    if (open != nullptr) {
        unpin(*open);
    }
    if (fresh < 0) {
        errno = error;
        return -1;
    }
    if (folder.kept.descriptor >= 0) { // another thread was faster
        ::close(fresh);
    } else {
        folder.kept.descriptor = fresh;
        ++m_open;
        link(folder);
    }
    pin(folder);
    closeBeyond(m_capacity);
    return folder.kept.descriptor;
}

void WalkDescriptors::giveUp(WalkFolder& folder)
{
    const std::lock_guard lock(m_mutex);
    --folder.kept.unopened;
    if (folder.kept.descriptor >= 0 && folder.kept.users == 0) {
        pin(folder);
        unpin(folder);
    }
}

void WalkDescriptors::pin(WalkFolder& folder)
{
    if (folder.kept.users++ == 0) {
        const WalkFolderRef share = unlink(folder); // never the last: the caller has one
    }
}

void WalkDescriptors::unpin(WalkFolder& folder)
{
    if (--folder.kept.users > 0) {
        return;
    }
    if (folder.kept.unopened > 0) {
        link(folder);
        closeBeyond(m_capacity);
        return;
    }
    ::close(folder.kept.descriptor);
    folder.kept.descriptor = -1;
    --m_open;
}

void WalkDescriptors::link(WalkFolder& folder)
{
    folder.shares.fetch_add(1, std::memory_order_relaxed);
    folder.kept.older = m_newest;
    folder.kept.newer = nullptr;
    (m_newest != nullptr ? m_newest->kept.newer : m_oldest) = &folder;
    m_newest = &folder;
}

/// Hands over the list's share.
WalkFolderRef WalkDescriptors::unlink(WalkFolder& folder)
{
    WalkFolder* const older = folder.kept.older;
    WalkFolder* const newer = folder.kept.newer;
    (older != nullptr ? older->kept.newer : m_oldest) = newer;
    (newer != nullptr ? newer->kept.older : m_newest) = older;
    return WalkFolderRef(&folder);
}

void WalkDescriptors::closeBeyond(std::size_t capacity)
{
    while (m_open > capacity && m_oldest != nullptr) {
        const WalkFolderRef folder = unlink(*m_oldest);
        NodeStatus status;
        if (statusOf(folder->kept.descriptor, status)) {
            folder->kept.id = status.id;
        }
        ::close(folder->kept.descriptor);
        folder->kept.descriptor = -1;
        --m_open;
    }
}

void WalkDescriptors::closeIdle()
{
    const std::lock_guard lock(m_mutex);
    closeBeyond(0);
}

} // namespace zolva
