#include "platform/SystemTrash.h"

#include "platform/FileIdentity.h"
#include "platform/OpenFolder.h"
#include "platform/linux/TrashFolders.h"
#include "platform/linux/TrashInfo.h"
#include "platform/linux/TrashNames.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <utility>

namespace zolva {

namespace {

/// A path in an info file is encoded, three bytes for one at most.
constexpr std::size_t longestInfo = std::size_t{1} << 20U;

tl::unexpected<TrashFailure> failure(int error, const std::string& about)
{
    return tl::unexpected(trashFailure(error, about));
}

std::string infoName(const std::string& name)
{
    return name + std::string(trashInfoSuffix);
}

bool isOurs(int folder)
{
    struct stat status
    {};
    return ::fstat(folder, &status) == 0 && status.st_uid == ::geteuid();
}

tl::expected<std::string, int> wholeInfo(int folder, const std::string& name)
{
    const FileDescriptor file(
        ::openat(folder, name.c_str(), O_RDONLY | O_NOFOLLOW | O_NONBLOCK | O_CLOEXEC));
    if (!file.isOpen()) {
        return tl::unexpected(errno);
    }
    const auto identity = identityOf(file.get());
    if (!identity || !S_ISREG(identity->type)) {
        return tl::unexpected(identity ? EINVAL : errno);
    }
    std::string text;
    std::array<char, 4096> buffer{};
    while (text.size() <= longestInfo) {
        const ssize_t got = ::read(file.get(), buffer.data(), buffer.size());
        if (got == 0) {
            return text;
        }
        if (got > 0) {
            text.append(buffer.data(), static_cast<std::size_t>(got));
        } else if (errno != EINTR) {
            return tl::unexpected(errno);
        }
    }
    return tl::unexpected(EFBIG);
}

} // namespace

std::string homeTrashFolder(const std::string& home)
{
    return homeTrashPath(home) + "/files";
}

tl::expected<void, TrashFailure> makeHomeTrash(const std::string& home)
{
    const auto folders = openHomeTrash(home, MissingTrash::IsMade);
    if (!folders) {
        return tl::unexpected(folders.error());
    }
    return {};
}

tl::expected<PinnedTrash, TrashFailure> pinHomeTrash(const std::string& home)
{
    auto folders = openHomeTrash(home, MissingTrash::IsAnError);
    if (!folders) {
        return tl::unexpected(std::move(folders.error()));
    }
    return PinnedTrash{std::move(folders->files), std::move(folders->info), homeTrashFolder(home)};
}

tl::expected<std::string, TrashFailure> trashOrigin(const PinnedTrash& trash,
                                                    const std::string& name)
{
    if (name.find('/') != std::string::npos || name.find('\0') != std::string::npos) {
        return failure(EINVAL, name);
    }
    const auto text = wholeInfo(trash.info.get(), infoName(name));
    if (!text) {
        return failure(text.error(), infoName(name));
    }
    const auto info = parsedTrashInfo(*text);
    if (!info || !isBelievableOrigin(info->path)) {
        return tl::unexpected(TrashFailure{0, infoName(name) + ": names no place to put it back"});
    }
    return info->path;
}

void forgetTrashOrigin(const PinnedTrash& trash, const std::string& name)
{
    ::unlinkat(trash.info.get(), infoName(name).c_str(), 0);
}

void forgetTrashOrigin(int files, const std::string& name)
{
    // Not by its path, which may lead elsewhere by now. It is a Trash if it calls that folder so,
    // and the records are ours to forget only in one of our own.
    const FileDescriptor trash(::openat(files, "..", O_PATH | O_DIRECTORY | O_CLOEXEC));
    const auto held = identityOf(files);
    if (!trash.isOpen() || !held || identityAt(trash.get(), "files") != held ||
        !isOurs(trash.get())) {
        return;
    }
    const FileDescriptor info(
        ::openat(trash.get(), "info", O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC));
    if (info.isOpen() && isOurs(info.get())) {
        ::unlinkat(info.get(), infoName(name).c_str(), 0);
    }
}

} // namespace zolva
