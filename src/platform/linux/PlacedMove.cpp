#include "platform/linux/PlacedMove.h"

#include "platform/FileDescriptor.h"
#include "platform/FileIdentity.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <optional>

namespace zolva {

namespace {

/// Something empty of the kind that a rename of the source may replace, where nothing stood before;
/// nothing, with errno, if it cannot be had.
std::optional<FileIdentity> placeholder(int folder, const std::string& name, bool isFolder)
{
    FileDescriptor made;
    if (isFolder) {
        if (::mkdirat(folder, name.c_str(), 0700) != 0) {
            return std::nullopt;
        }
        made = FileDescriptor(
            ::openat(folder, name.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    } else {
        made = FileDescriptor(::openat(folder, name.c_str(),
                                       O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
    }
    return made.isOpen() ? identityOf(made.get()) : std::nullopt;
}

} // namespace

int placedMove(int fromFolder, const std::string& from, int toFolder, const std::string& to)
{
    const auto source = identityAt(fromFolder, from);
    if (!source) {
        return errno;
    }
    const auto own = placeholder(toFolder, to, source->isFolder());
    if (!own) {
        return errno;
    }
    int error = EEXIST;
    if (identityAt(toFolder, to) == own) {
        // A folder replaces no file, a file no folder, and nothing a folder that holds anything.
        if (::renameat(fromFolder, from.c_str(), toFolder, to.c_str()) == 0) {
            return 0;
        }
        error = errno;
    }
    if (identityAt(toFolder, to) == own) {
        ::unlinkat(toFolder, to.c_str(), source->isFolder() ? AT_REMOVEDIR : 0);
    }
    return error;
}

} // namespace zolva
