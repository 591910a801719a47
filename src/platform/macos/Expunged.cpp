#include "platform/Expunge.h"

#include <fcntl.h>

namespace zolva {

namespace {

/// Beside the Trash as seen from the home folder: on its file system, and nothing lists it.
constexpr const char* folderName = "Library/Caches/zolva-expunged";

} // namespace

FileDescriptor openExpunged(const PinnedTrash& trash)
{
    const FileDescriptor home(
        ::openat(trash.files.get(), "..", O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    return home.isOpen() ? openOwnFolder(home.get(), folderName) : FileDescriptor();
}

} // namespace zolva
