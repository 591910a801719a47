#include "platform/linux/MountTop.h"

#include "platform/FileIdentity.h"
#include "platform/linux/Ancestry.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <climits>
#include <utility>

namespace zolva {

namespace {

constexpr int searchOnly = O_PATH | O_DIRECTORY | O_CLOEXEC;
/// The system lets no path be longer, but folders may lie deeper.
constexpr int mostLevels = 100000;

std::optional<std::string> pathOf(int folder, const FileIdentity& identity)
{
    std::array<char, PATH_MAX> text{};
    const std::string link = "/proc/self/fd/" + std::to_string(folder);
    const ssize_t length = ::readlink(link.c_str(), text.data(), text.size());
    if (length <= 0 || static_cast<std::size_t>(length) == text.size()) {
        errno = length < 0 ? errno : ENAMETOOLONG;
        return std::nullopt;
    }
    std::string path(text.data(), static_cast<std::size_t>(length));
    const auto there = identityAt(AT_FDCWD, path);
    if (!there || *there != identity) {
        errno = ENOENT;
        return std::nullopt;
    }
    return path;
}

} // namespace

std::optional<MountTop> mountTop(int folder)
{
    FileDescriptor current(::openat(folder, ".", searchOnly));
    auto place = current.isOpen() ? placeOf(current.get()) : std::nullopt;
    auto path = place ? pathOf(current.get(), place->identity) : std::nullopt;
    if (!path) {
        return std::nullopt;
    }
    std::string below;
    for (int level = 0; level < mostLevels; ++level) {
        FileDescriptor above = folderAbove(current.get());
        const auto outside = above.isOpen() ? placeOf(above.get()) : std::nullopt;
        if (!outside) {
            return std::nullopt;
        }
        const bool isRoot = outside->identity == place->identity;
        if (isRoot || outside->identity.device != place->identity.device ||
            outside->mount != place->mount) {
            return MountTop{std::move(current), *path, below};
        }
        const std::size_t slash = path->rfind('/');
        if (!below.empty()) {
            below.insert(0, 1, '/');
        }
        below.insert(0, *path, slash + 1);
        path->resize(slash == 0 ? 1 : slash);
        current = std::move(above);
        place = outside;
    }
    errno = ELOOP;
    return std::nullopt;
}

} // namespace zolva
