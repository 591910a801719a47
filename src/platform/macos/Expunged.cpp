#include "platform/Expunge.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>

namespace zolva {

namespace {

/// Beside the Trash as seen from the home folder: on its file system, and nothing lists it.
constexpr const char* folderName = "Library/Caches/zolva-expunged";

} // namespace

FileDescriptor openExpunged(const PinnedTrash& trash)
{
    const FileDescriptor home(
        ::openat(trash.files.get(), "..", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    if (!home.isOpen() || (::mkdirat(home.get(), folderName, 0700) != 0 && errno != EEXIST)) {
        return FileDescriptor();
    }
    FileDescriptor folder(
        ::openat(home.get(), folderName, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    struct stat status
    {};
    if (!folder.isOpen() || ::fstat(folder.get(), &status) != 0) {
        return FileDescriptor();
    }
    if (status.st_uid != ::geteuid() || (status.st_mode & (S_IWGRP | S_IWOTH)) != 0) {
        errno = EPERM;
        return FileDescriptor();
    }
    return folder;
}

} // namespace zolva
