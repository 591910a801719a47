#include "platform/OpenWithin.h"

#include "platform/linux/MountId.h"

#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

#include <cerrno>

namespace zolva {

namespace {

constexpr int flags = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC;

/// For systems that know or allow no openat2: what cannot be told to be the same mount is refused.
int openAndCompare(int folder, const std::string& name)
{
    FileDescriptor inner(::openat(folder, name.c_str(), flags));
    if (!inner.isOpen()) {
        return -1;
    }
    const auto outside = mountId(folder);
    if (!outside || outside != mountId(inner.get())) {
        inner.close();
        errno = EXDEV;
        return -1;
    }
    return inner.release();
}

/// Mounts of the same device cannot be told apart by fstat.
int openSameMount(int folder, const std::string& name)
{
    open_how how{};
    how.flags = static_cast<decltype(how.flags)>(flags);
    how.resolve = RESOLVE_NO_XDEV | RESOLVE_NO_SYMLINKS;
    const long fd = ::syscall(SYS_openat2, folder, name.c_str(), &how, sizeof how);
    if (fd < 0 && (errno == ENOSYS || errno == EPERM)) {
        return openAndCompare(folder, name);
    }
    return static_cast<int>(fd);
}

} // namespace

FileDescriptor openWithin(int folder, const std::string& name)
{
    FileDescriptor inner(openSameMount(folder, name));
    if (!inner.isOpen()) {
        return inner;
    }
    struct stat outside
    {};
    struct stat inside
    {};
    // A file system may have several devices without a mount between them.
    if (::fstat(folder, &outside) != 0 || ::fstat(inner.get(), &inside) != 0) {
        const int error = errno;
        inner.close();
        errno = error;
    } else if (outside.st_dev != inside.st_dev) {
        inner.close();
        errno = EXDEV;
    }
    return inner;
}

} // namespace zolva
