#include "platform/SystemTrash.h"

#include "platform/FileIdentity.h"
#include "platform/OpenFolder.h"

#import <Foundation/Foundation.h>

#include <fcntl.h>
#include <sys/stat.h>

#include <cerrno>
#include <utility>

namespace zolva {

namespace {

TrashFailure failureFrom(NSError* error)
{
    const NSError* underlying = error.userInfo[NSUnderlyingErrorKey];
    const bool posix = [underlying.domain isEqualToString:NSPOSIXErrorDomain];
    return {posix ? static_cast<int>(underlying.code) : 0, error.localizedDescription.UTF8String};
}

} // namespace

tl::expected<MovedToTrash, TrashFailure> moveToTrash(const std::string& /*home*/,
                                                     const std::string& path)
{
    @autoreleasepool {
        const EntryPath entry = entryPath(path);
        if (entry.name.empty()) {
            return tl::unexpected(trashFailure(EINVAL));
        }
        const std::string whole = (entry.folder == "/" ? "" : entry.folder) + "/" + entry.name;
        const auto identity = identityAt(AT_FDCWD, whole);
        if (!identity) {
            return tl::unexpected(trashFailure(errno));
        }
        // Said here, so that a link to a folder is not taken for the folder.
        NSURL* url = [NSURL fileURLWithFileSystemRepresentation:whole.c_str()
                                                    isDirectory:identity->isFolder()
                                                  relativeToURL:nil];
        NSURL* landed = nil;
        NSError* error = nil;
        if (![NSFileManager.defaultManager trashItemAtURL:url
                                         resultingItemURL:&landed
                                                    error:&error]) {
            return tl::unexpected(failureFrom(error));
        }
        if (landed == nil) {
            return MovedToTrash{};
        }
        const std::string place = landed.fileSystemRepresentation;
        return MovedToTrash{place, identityAt(AT_FDCWD, place)};
    }
}

std::string homeTrashFolder(const std::string& home)
{
    return home + "/.Trash";
}

tl::expected<void, TrashFailure> makeHomeTrash(const std::string& home)
{
    const std::string path = homeTrashFolder(home);
    if (::mkdir(path.c_str(), 0700) != 0 && errno != EEXIST) {
        return tl::unexpected(trashFailure(errno, path));
    }
    return {};
}

tl::expected<PinnedTrash, TrashFailure> pinHomeTrash(const std::string& home)
{
    std::string path = homeTrashFolder(home);
    FileDescriptor files = openFolder(path);
    if (!files.isOpen()) {
        return tl::unexpected(trashFailure(errno, path));
    }
    return PinnedTrash{std::move(files), FileDescriptor(), std::move(path)};
}

tl::expected<std::string, TrashFailure> trashOrigin(const PinnedTrash& /*trash*/,
                                                    const std::string& name)
{
    // The system keeps it to itself.
    return tl::unexpected(trashFailure(ENOTSUP, name));
}

void forgetTrashOrigin(const PinnedTrash& /*trash*/, const std::string& /*name*/) {}
void forgetTrashOrigin(int /*files*/, const std::string& /*name*/) {}

} // namespace zolva
