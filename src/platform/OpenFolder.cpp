#include "platform/OpenFolder.h"

#include "platform/FileIdentity.h"

#include <fcntl.h>

#include <cerrno>
#include <climits>

namespace zolva {

namespace {

#ifdef O_PATH
constexpr int searchOnly = O_PATH | O_DIRECTORY | O_CLOEXEC;
#else
constexpr int searchOnly = O_SEARCH | O_CLOEXEC;
#endif

FileDescriptor openBelow(int folder, const std::string& path)
{
    int fd = ::openat(folder, path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0 && errno == EACCES) {
        fd = ::openat(folder, path.c_str(), searchOnly);
    }
    return FileDescriptor(fd);
}

void dropTrailing(std::string& path)
{
    while (path.size() > 1) {
        if (path.back() == '/') {
            path.pop_back();
        } else if (path.ends_with("/.")) {
            path.resize(path.size() - 1);
        } else {
            return;
        }
    }
}

} // namespace

FileDescriptor openFolder(const std::string& path)
{
    if (path.find('\0') != std::string::npos) {
        errno = EINVAL;
        return FileDescriptor();
    }
    // The system takes no path of PATH_MAX bytes or more in one call.
    constexpr std::size_t longest = PATH_MAX - 1;
    std::size_t begin = 0;
    FileDescriptor folder;
    while (path.size() - begin > longest) {
        const std::size_t slash = path.rfind('/', begin + longest);
        if (slash == std::string::npos || slash <= begin) {
            errno = ENAMETOOLONG;
            return FileDescriptor();
        }
        folder =
            openBelow(folder.isOpen() ? folder.get() : AT_FDCWD, path.substr(begin, slash - begin));
        if (!folder.isOpen()) {
            return folder;
        }
        begin = path.find_first_not_of('/', slash);
        if (begin == std::string::npos) {
            return folder;
        }
    }
    return openBelow(folder.isOpen() ? folder.get() : AT_FDCWD, path.substr(begin));
}

EntryPath entryPath(const std::string& path)
{
    if (!path.starts_with('/') || path.find('\0') != std::string::npos) {
        return {};
    }
    std::string whole = path;
    dropTrailing(whole);
    const std::size_t slash = whole.rfind('/');
    EntryPath entry{whole.substr(0, slash), whole.substr(slash + 1)};
    dropTrailing(entry.folder);
    if (entry.folder.empty()) {
        entry.folder = "/";
    }
    if (entry.name == ".." || entry.name == ".") {
        entry.name.clear();
    }
    return entry;
}

Presence presenceAt(const std::string& path)
{
    const EntryPath entry = entryPath(path);
    if (entry.name.empty()) {
        return Presence::Unknown;
    }
    const auto verdict = [] {
        return errno == ENOENT || errno == ENOTDIR ? Presence::Absent : Presence::Unknown;
    };
    if (path.size() < PATH_MAX) {
        const std::string whole = entry.folder + "/" + entry.name;
        return identityAt(AT_FDCWD, whole) ? Presence::Present : verdict();
    }
    const FileDescriptor folder = openFolder(entry.folder);
    if (!folder.isOpen()) {
        return verdict();
    }
    return identityAt(folder.get(), entry.name) ? Presence::Present : verdict();
}

bool somethingAt(const std::string& path)
{
    return presenceAt(path) != Presence::Absent;
}

} // namespace zolva
