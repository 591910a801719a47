#include "platform/OpenWithin.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>

namespace zolva {

FileDescriptor openWithin(int folder, const std::string& name)
{
    FileDescriptor inner(::openat(folder, name.c_str(),
                                  O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    if (!inner.isOpen()) {
        return inner;
    }
    struct stat outside
    {};
    struct stat inside
    {};
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
