#include "platform/Expunge.h"

#include <fcntl.h>

#include <cerrno>

namespace zolva {

namespace {

/// The name that desktops give it too; nothing lists it.
constexpr const char* folderName = "expunged";

bool isStill(int whole, const char* name, const FileDescriptor& part)
{
    const auto held = identityOf(part.get());
    return held && identityAt(whole, name) == held;
}

/// Whether the folder is the Trash of these parts. Where they were moved away meanwhile, a folder
/// of that name beside them is somebody's own.
bool isTheirTrash(int whole, const PinnedTrash& trash)
{
    return isStill(whole, "files", trash.files) &&
           (!trash.info.isOpen() || isStill(whole, "info", trash.info));
}

} // namespace

FileDescriptor openExpunged(const PinnedTrash& trash)
{
    const FileDescriptor whole(::openat(trash.files.get(), "..", O_PATH | O_DIRECTORY | O_CLOEXEC));
    if (!whole.isOpen()) {
        return FileDescriptor();
    }
    errno = ESTALE;
    if (!isTheirTrash(whole.get(), trash)) {
        return FileDescriptor();
    }
    return openOwnFolder(whole.get(), folderName);
}

} // namespace zolva
