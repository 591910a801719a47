#include "platform/FileIdentity.h"

#include <fcntl.h>

namespace zolva {

namespace {

FileIdentity identityFrom(const struct stat& status)
{
    return {status.st_dev, status.st_ino, static_cast<mode_t>(status.st_mode & S_IFMT)};
}

} // namespace

std::optional<FileIdentity> identityAt(int folder, const std::string& name)
{
    struct stat status
    {};
    if (::fstatat(folder, name.c_str(), &status, AT_SYMLINK_NOFOLLOW) != 0) {
        return std::nullopt;
    }
    return identityFrom(status);
}

std::optional<FileIdentity> identityOf(int fd)
{
    struct stat status
    {};
    if (::fstat(fd, &status) != 0) {
        return std::nullopt;
    }
    return identityFrom(status);
}

} // namespace zolva
