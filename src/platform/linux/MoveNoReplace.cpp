#include "platform/MoveNoReplace.h"

#include "platform/FileIdentity.h"

#include <fcntl.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace zolva {

namespace {

int linkedMove(int fromFolder, const std::string& from, int toFolder, const std::string& to)
{
    if (::linkat(fromFolder, from.c_str(), toFolder, to.c_str(), 0) != 0) {
        return errno;
    }
    if (::unlinkat(fromFolder, from.c_str(), 0) == 0) {
        return 0;
    }
    const int error = errno;
    ::unlinkat(toFolder, to.c_str(), 0);
    return error;
}

/// For folders, and where there are no hard links. What could be lost to somebody who is quicker
/// than this is an empty folder, or on the file systems without links a file.
int checkedMove(int fromFolder, const std::string& from, int toFolder, const std::string& to)
{
    if (identityAt(toFolder, to)) {
        return EEXIST;
    }
    if (errno != ENOENT) {
        return errno;
    }
    return ::renameat(fromFolder, from.c_str(), toFolder, to.c_str()) == 0 ? 0 : errno;
}

int moveWithoutFlag(int fromFolder, const std::string& from, int toFolder, const std::string& to)
{
    const auto source = identityAt(fromFolder, from);
    if (!source) {
        return errno;
    }
    if (!source->isFolder()) {
        const int error = linkedMove(fromFolder, from, toFolder, to);
        if (error != EPERM && error != EOPNOTSUPP && error != EMLINK) {
            return error;
        }
    }
    return checkedMove(fromFolder, from, toFolder, to);
}

} // namespace

int moveNoReplace(int fromFolder, const std::string& from, int toFolder, const std::string& to)
{
    if (::renameat2(fromFolder, from.c_str(), toFolder, to.c_str(), RENAME_NOREPLACE) == 0) {
        return 0;
    }
    // A folder into itself is EINVAL too, and stays so without the flag.
    if (errno == EINVAL || errno == ENOSYS) {
        return moveWithoutFlag(fromFolder, from, toFolder, to);
    }
    return errno;
}

} // namespace zolva
