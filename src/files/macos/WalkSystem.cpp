#include "files/WalkSystem.h"

#include "files/Uninterrupted.h"
#include "platform/LongPath.h"

#include <fcntl.h>
#include <sys/attr.h>
#include <sys/param.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/vnode.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <cstring>
#include <string_view>

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

NodeKind kindOfListed(fsobj_type_t type)
{
    switch (type) {
    case VREG:
        return NodeKind::File;
    case VDIR:
        return NodeKind::Folder;
    case VLNK:
        return NodeKind::Link;
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

int noFollow(LastLink link)
{
    return link == LastLink::Follow ? 0 : O_NOFOLLOW;
}

/// Looking at a file must not fetch its content from a cloud, and listing a folder is no access.
/// The thread keeps this: none that walks does anything where it matters.
void quietThread()
{
    static thread_local const bool set = [] {
        const bool fetchless =
            ::setiopolicy_np(IOPOL_TYPE_VFS_MATERIALIZE_DATALESS_FILES, IOPOL_SCOPE_THREAD,
                             IOPOL_MATERIALIZE_DATALESS_FILES_OFF) == 0;
        return ::setiopolicy_np(IOPOL_TYPE_VFS_ATIME_UPDATES, IOPOL_SCOPE_THREAD,
                                IOPOL_ATIME_UPDATES_OFF) == 0 &&
               fetchless;
    }();
    static_cast<void>(set);
}

/// The data volume's folders stand at the root as well, and are met there.
bool isSecondEntranceToData(int parent, const char* name)
{
    std::array<char, MAXPATHLEN> path{};
    return std::string_view(name) == "Data" && ::fcntl(parent, F_GETPATH, path.data()) == 0 &&
           std::string_view(path.data()) == "/System/Volumes";
}

/// Takes the fields of one record, in their order; they stand at multiples of 4 bytes only.
class RecordFields
{
public:
    explicit RecordFields(const char* record) : m_at(record) {}

    template <typename Field>
    Field take()
    {
        Field field;
        std::memcpy(&field, m_at, sizeof(field));
        m_at += sizeof(field);
        return field;
    }
    [[nodiscard]] const char* at() const { return m_at; }

private:
    const char* m_at;
};

} // namespace

int openFolder(int parent, const char* name, LastLink link, bool&)
{
    quietThread();
    if (isSecondEntranceToData(parent, name)) {
        errno = ENOENT;
        return -1;
    }
    const int flags = folderFlags | noFollow(link);
    return uninterrupted([&] { return ::openat(parent, name, flags); });
}

int openFolder(const std::string& path, bool& spareTimes)
{
    const LongPath from(path);
    return from.reached() ? openFolder(from.at(), from.rest(), LastLink::Follow, spareTimes) : -1;
}

int openStep(int parent, const char* path, LastLink link)
{
    const int flags = O_SEARCH | O_DIRECTORY | O_CLOEXEC | noFollow(link);
    return uninterrupted([&] { return ::openat(parent, path, flags); });
}

int openStep(const std::string& path)
{
    const LongPath from(path);
    return from.reached() ? openStep(from.at(), from.rest(), LastLink::Follow) : -1;
}

bool statusOf(int folder, const char* name, NodeStatus& status)
{
    quietThread();
    struct stat found;
    const auto ask = [&] { return ::fstatat(folder, name, &found, AT_SYMLINK_NOFOLLOW); };
    if (uninterrupted(ask) != 0) {
        return false;
    }
    fillIn(found, status);
    return true;
}

bool leadsSomewhere(int folder, const char* link)
{
    struct stat found;
    return uninterrupted([&] { return ::fstatat(folder, link, &found, 0); }) == 0;
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
    quietThread();
    const LongPath from(path);
    struct stat found;
    const int flags = link == LastLink::Follow ? 0 : AT_SYMLINK_NOFOLLOW;
    const auto ask = [&] { return ::fstatat(from.at(), from.rest(), &found, flags); };
    if (!from.reached() || uninterrupted(ask) != 0) {
        return false;
    }
    fillIn(found, status);
    return true;
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
        return 256;
    }
    return static_cast<std::size_t>(limit.rlim_cur);
}

unsigned mostWalkThreads()
{
    return 8; // more stand in each other's way within the file system
}

// One call for many entries. The same call could tell ATTR_FILE_ALLOCSIZE, and so spare the one for
// each file; that wants room for a size in the entry.
bool FolderEntries::fill(int folder)
{
    if (!m_buffer) {
        m_buffer.reset(new char[bufferSize]);
    }
    struct attrlist wanted
    {};
    wanted.bitmapcount = ATTR_BIT_MAP_COUNT;
    wanted.commonattr = ATTR_CMN_RETURNED_ATTRS | ATTR_CMN_ERROR | ATTR_CMN_NAME |
                        ATTR_CMN_OBJTYPE | ATTR_CMN_FILEID;
    const int got = uninterrupted(
        [&] { return ::getattrlistbulk(folder, &wanted, m_buffer.get(), bufferSize, 0); });
    m_at = 0;
    m_filled = got > 0 ? static_cast<std::size_t>(got) : 0; // entries, and not bytes
    // A folder removed while it is read has come to its end.
    m_failed = got < 0 && errno != ENOENT;
    return got > 0;
}

/// Neither "." nor ".." is ever listed.
bool FolderEntries::next(Entry& entry)
{
    while (m_filled > 0) {
        --m_filled;
        RecordFields fields(m_buffer.get() + m_at);
        m_at += fields.take<std::uint32_t>();
        const auto returned = fields.take<attribute_set_t>();
        if ((returned.commonattr & ATTR_CMN_ERROR) != 0) {
            fields.take<std::uint32_t>();
        }
        if ((returned.commonattr & ATTR_CMN_NAME) == 0) {
            continue;
        }
        const char* const reference = fields.at();
        entry.name = reference + fields.take<attrreference_t>().attr_dataoffset;
        entry.kind = (returned.commonattr & ATTR_CMN_OBJTYPE) != 0
                         ? kindOfListed(fields.take<fsobj_type_t>())
                         : NodeKind::Unknown;
        entry.inode =
            (returned.commonattr & ATTR_CMN_FILEID) != 0 ? fields.take<std::uint64_t>() : 0;
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
