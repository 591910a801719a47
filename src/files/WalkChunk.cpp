#include "files/WalkChunk.h"

#include <algorithm>
#include <cerrno>

namespace zolva {

void WalkChunk::measure()
{
    std::int64_t bound = std::max(floor, sizes.bound());
    FolderEntries::Entry entry;
    NodeStatus status;
    while (entries.next(entry)) {
        NodeKind kind = entry.kind;
        if (kind == NodeKind::File || kind == NodeKind::Unknown) {
            if (!statusOf(folder, entry.name, status)) {
                hidden = hidden || !hasVanished(errno);
                continue;
            }
            kind = status.kind;
        }
        if (kind == NodeKind::File) {
            ++files;
            bytes += status.allocated;
            if (status.allocated > bound) {
                sizes.offer(status.allocated);
                bound = std::max(bound, sizes.bound());
                listing.add(entry.name, status.allocated);
            }
        } else if (kind == NodeKind::Link && countsLinks) {
            if (leadsSomewhere(folder, entry.name) && statusOf(folder, entry.name, status)) {
                ++files;
                bytes += status.allocated;
            }
        } else if (kind == NodeKind::Folder) {
            listing.add(entry.name, roots->mayBeAwaited(entry.inode)
                                        ? WalkListing::folderThatMayBeRoot
                                        : WalkListing::folder);
        }
    }
    measured.store(true, std::memory_order_release);
}

bool hasVanished(int error)
{
    return error == ENOENT || error == ENOTDIR || error == ELOOP;
}

} // namespace zolva
