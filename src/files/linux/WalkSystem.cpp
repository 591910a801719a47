#include "files/WalkSystem.h"

#include "files/Uninterrupted.h"
#include "platform/LongPath.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <climits>
#include <cstring>

namespace zolva {

namespace {

constexpr std::size_t bufferSize = std::size_t{32} * 1024;
constexpr std::int64_t blockSize = 512; // st_blocks counts these, whatever the file system's own

constexpr int folderFlags = O_RDONLY | O_DIRECTORY | O_NONBLOCK | O_CLOEXEC;

NodeKind kindOf(mode_t mode)
{
    switch (mode & S_IFMT) {
    case S_IFREG:
        return NodeKind::File;
    case S_IFDIR:
        return NodeKind::Folder;
    case S_IFLNK:
        return NodeKind::Link;
    default:
        return NodeKind::Other;
    }
}

NodeKind kindOfListed(unsigned char type)
{
    switch (type) {
    case DT_REG:
        return NodeKind::File;
    case DT_DIR:
        return NodeKind::Folder;
    case DT_LNK:
        return NodeKind::Link;
    case DT_UNKNOWN:
        return NodeKind::Unknown;
    default:
        return NodeKind::Other;
    }
}

void fillIn(const struct stat& from, NodeStatus& status)
{
    status.kind = kindOf(from.st_mode);
    status.allocated = static_cast<std::int64_t>(from.st_blocks) * blockSize;
    status.id = {static_cast<std::uint64_t>(from.st_dev), static_cast<std::uint64_t>(from.st_ino)};
}

int opened(int parent, const char* name, int flags)
{
    return uninterrupted([&] { return ::openat(parent, name, flags); });
}

bool statusAt(int folder, const char* name, int flags, NodeStatus& status)
{
    struct stat found;
    if (uninterrupted([&] { return ::fstatat(folder, name, &found, flags); }) != 0) {
        return false;
    }
    fillIn(found, status);
    return true;
}

int noFollow(LastLink link)
{
    return link == LastLink::Follow ? 0 : O_NOFOLLOW;
}

} // namespace

int openFolder(int parent, const char* name, LastLink link, bool& spareTimes)
{
    const int flags = folderFlags | noFollow(link);
    if (spareTimes) {
        const int folder = opened(parent, name, flags | O_NOATIME);
        if (folder >= 0 || errno != EPERM) {
            return folder;
        }
        spareTimes = false; // Only the owner of a folder may ask for it.
    }
    return opened(parent, name, flags);
}

int openFolder(const std::string& path, bool& spareTimes)
{
    const LongPath from(path);
    return from.reached() ? openFolder(from.at(), from.rest(), LastLink::Follow, spareTimes) : -1;
}

int openStep(int parent, const char* path, LastLink link)
{
    return opened(parent, path, O_PATH | O_DIRECTORY | O_CLOEXEC | noFollow(link));
}

int openStep(const std::string& path)
{
    const LongPath from(path);
    return from.reached() ? openStep(from.at(), from.rest(), LastLink::Follow) : -1;
}

bool statusOf(int folder, const char* name, NodeStatus& status)
{
    return statusAt(folder, name, AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT, status);
}

bool leadsSomewhere(int folder, const char* link)
{
    NodeStatus status;
    return statusAt(folder, link, 0, status);
}

bool statusOf(int descriptor, NodeStatus& status)
{
    struct stat found;
    if (uninterrupted([&] { return ::fstat(descriptor, &found); }) != 0) {
        return false;
    }
    fillIn(found, status);
    return true;
}

bool statusOf(const std::string& path, LastLink link, NodeStatus& status)
{
    const LongPath from(path);
    const int flags = link == LastLink::Follow ? 0 : AT_SYMLINK_NOFOLLOW;
    return from.reached() && statusAt(from.at(), from.rest(), flags, status);
}

std::size_t longestPath()
{
    return PATH_MAX;
}

std::size_t descriptorLimit()
{
    struct rlimit limit
    {};
    if (::getrlimit(RLIMIT_NOFILE, &limit) != 0 || limit.rlim_cur == RLIM_INFINITY) {
        return 1024;
    }
    return static_cast<std::size_t>(limit.rlim_cur);
}

unsigned mostWalkThreads()
{
    return 16;
}

bool FolderEntries::fill(int folder)
{
    if (!m_buffer) {
        m_buffer.reset(new char[bufferSize]);
    }
    const ssize_t got =
        uninterrupted([&] { return ::getdents64(folder, m_buffer.get(), bufferSize); });
    m_at = 0;
    m_filled = got > 0 ? static_cast<std::size_t>(got) : 0;
    // A folder removed while it is read has come to its end.
    m_failed = got < 0 && errno != ENOENT;
    return got > 0;
}

bool FolderEntries::next(Entry& entry)
{
    while (m_at < m_filled) {
        // The system aligns its records, and the buffer comes from new[].
        const auto* record =
            static_cast<const dirent64*>(static_cast<const void*>(m_buffer.get() + m_at));
        m_at += record->d_reclen;
        const char* name = static_cast<const char*>(record->d_name);
        if (name[0] == '.' && (name[1] == '\0' || (name[1] == '.' && name[2] == '\0'))) {
            continue;
        }
        entry.name = name;
        entry.kind = kindOfListed(record->d_type);
        entry.inode = record->d_ino;
        return true;
    }
    return false;
}

void FolderReader::start(int folder)
{
    m_folder = folder;
    m_entries = {};
}

bool FolderReader::next(Entry& entry)
{
    while (!m_entries.next(entry)) {
        if (!m_entries.fill(m_folder)) {
            return false;
        }
    }
    return true;
}

} // namespace zolva
