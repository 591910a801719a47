#include "platform/Expunge.h"

#include "platform/MoveNoReplace.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <random>

namespace zolva {

namespace {

constexpr int mostNames = 16;

std::string ownName()
{
    static thread_local std::mt19937_64 source{(std::uint64_t{std::random_device{}()} << 32U) |
                                               std::random_device{}()};
    std::array<char, 32> text{};
    std::snprintf(text.data(), text.size(), "zolva-%016llx",
                  static_cast<unsigned long long>(source()));
    return text.data();
}

} // namespace

FileDescriptor openOwnFolder(int parent, const char* name)
{
    if (::mkdirat(parent, name, 0700) != 0 && errno != EEXIST) {
        return FileDescriptor();
    }
    FileDescriptor folder(::openat(parent, name, O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
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

tl::expected<std::string, int> expunge(int folder, const std::string& name,
                                       const FileIdentity& expected, int expunged)
{
    for (int attempt = 0; attempt < mostNames; ++attempt) {
        std::string own = ownName();
        const int error = moveNoReplace(folder, name, expunged, own);
        if (error == EEXIST) {
            continue;
        }
        const auto arrived = identityAt(expunged, own);
        const int unseen = arrived ? 0 : errno;
        // Also where the system said that it was not moved.
        if (arrived == expected) {
            return own;
        }
        if (error != 0) {
            return tl::unexpected(error);
        }
        // Exchanged at the last moment, or not to be seen: back it goes.
        static_cast<void>(moveNoReplace(expunged, own, folder, name));
        return tl::unexpected(arrived ? ENOENT : unseen);
    }
    return tl::unexpected(EEXIST);
}

} // namespace zolva
