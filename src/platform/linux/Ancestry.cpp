#include "platform/linux/Ancestry.h"

#include <fcntl.h>
#include <linux/openat2.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/sysmacros.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace zolva {

namespace {

constexpr int searchOnly = O_PATH | O_DIRECTORY | O_CLOEXEC;
/// The system lets no path be longer, but folders may lie deeper.
constexpr std::size_t mostLevels = 100000;

/// Identity and mount by one call.
std::optional<Place> placeAt([[maybe_unused]] int folder, [[maybe_unused]] const char* path,
                             [[maybe_unused]] int flags)
{
#ifdef STATX_MNT_ID
    constexpr unsigned wanted = STATX_TYPE | STATX_INO | STATX_MNT_ID;
    struct statx status
    {};
    if (::statx(folder, path, flags, wanted, &status) == 0 &&
        (status.stx_mask & wanted) == wanted) {
        const FileIdentity identity{::makedev(status.stx_dev_major, status.stx_dev_minor),
                                    static_cast<ino_t>(status.stx_ino),
                                    static_cast<mode_t>(status.stx_mode & S_IFMT)};
        return Place{identity, status.stx_mnt_id};
    }
#endif
    return std::nullopt;
}

/// Where the system does not tell mounts apart, the top is known by what is above it.
bool isRoot(const Place& place, const std::optional<Place>& root)
{
    return root && place.mount != 0 && place == *root;
}

bool isOtherMount(const Place& one, const Place& other)
{
    return one.mount != other.mount || one.identity.device != other.identity.device;
}

/// Takes the rest from an ancestry in which the last place is found, if that tells the top too.
bool adopt(Ancestry& found, const Ancestry& known)
{
    const Place& last = found.places.back();
    const auto same = std::find(known.places.begin(), known.places.end(), last);
    if (last.mount == 0 || same == known.places.end()) {
        return false;
    }
    if (!found.top) {
        const auto index = static_cast<std::size_t>(same - known.places.begin());
        if (index >= known.onItsMount || !known.top) {
            return false;
        }
        found.top = known.top;
        found.onItsMount += known.onItsMount - index - 1;
    }
    found.places.insert(found.places.end(), same + 1, known.places.end());
    found.isWhole = known.isWhole;
    return true;
}

/// `last` is the open folder; not open for the one that the climb begins at. False, with errno, if
/// that cannot be had once more.
bool setTop(Ancestry& found, FileDescriptor last, int folder)
{
    if (found.top) {
        return true;
    }
    FileDescriptor top =
        last.isOpen() ? std::move(last) : FileDescriptor(::openat(folder, ".", searchOnly));
    if (!top.isOpen()) {
        return false;
    }
    found.top = std::make_shared<const FileDescriptor>(std::move(top));
    return true;
}

} // namespace

std::optional<Place> placeOf(int folder)
{
    if (auto place = placeAt(folder, "", AT_EMPTY_PATH)) {
        return place;
    }
    const auto identity = identityOf(folder);
    return identity ? std::optional(Place{*identity, 0}) : std::nullopt;
}

FileDescriptor folderAbove(int folder)
{
    return FileDescriptor(::openat(folder, "..", searchOnly));
}

std::optional<Place> placeWithoutLinks(const std::string& path)
{
    if ((path + "/").find("/../") != std::string::npos) {
        return std::nullopt;
    }
    open_how how{};
    how.flags = static_cast<decltype(how.flags)>(searchOnly | O_NOFOLLOW);
    how.resolve = RESOLVE_NO_SYMLINKS;
    const long fd = ::syscall(SYS_openat2, AT_FDCWD, path.c_str(), &how, sizeof how);
    const FileDescriptor folder(static_cast<int>(fd));
    return folder.isOpen() ? placeOf(folder.get()) : std::nullopt;
}

bool Ancestry::holds(const FileIdentity& one) const
{
    return std::any_of(places.begin(), places.end(),
                       [&](const Place& place) { return place.identity == one; });
}

std::optional<Ancestry> ancestryOf(int folder, const Ancestry* known)
{
    auto place = placeOf(folder);
    if (!place) {
        return std::nullopt;
    }
    const auto root = known == nullptr ? placeAt(AT_FDCWD, "/", 0) : std::nullopt;
    Ancestry found{{*place}, 1, nullptr, false};
    FileDescriptor current;
    while (found.places.size() < mostLevels) {
        if (known != nullptr && adopt(found, *known)) {
            return found;
        }
        if (isRoot(*place, root)) {
            found.isWhole = setTop(found, std::move(current), folder);
            return found.isWhole ? std::optional(std::move(found)) : std::nullopt;
        }
        FileDescriptor above = folderAbove(current.isOpen() ? current.get() : folder);
        if (!above.isOpen()) {
            // Whoever may not look further up holds no descriptor to anything there either.
            return errno == EACCES && found.places.size() > 1 ? std::optional(std::move(found))
                                                              : std::nullopt;
        }
        const auto outside = placeOf(above.get());
        if (!outside) {
            return std::nullopt;
        }
        const bool isEnd = *outside == *place;
        if ((isEnd || isOtherMount(*outside, *place)) &&
            !setTop(found, std::move(current), folder)) {
            return std::nullopt;
        }
        if (isEnd) {
            found.isWhole = true;
            return found;
        }
        found.places.push_back(*outside);
        found.onItsMount += found.top ? 0 : 1;
        current = std::move(above);
        place = outside;
    }
    errno = ELOOP;
    return std::nullopt;
}

} // namespace zolva
