#include "platform/linux/TrashFolders.h"

#include "platform/Environment.h"
#include "platform/OpenFolder.h"
#include "platform/linux/MountTop.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <string_view>
#include <utility>

namespace zolva {

namespace {

constexpr mode_t forTheUserAlone = 0700;
constexpr int realFolder = O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC;

tl::unexpected<TrashFailure> failure(int error, const std::string& about)
{
    return tl::unexpected(trashFailure(error, about));
}

bool made(int folder, const std::string& name)
{
    return ::mkdirat(folder, name.c_str(), forTheUserAlone) == 0 || errno == EEXIST;
}

/// With all that is missing above it.
bool madeWithParents(const std::string& path)
{
    for (std::size_t slash = path.find('/', 1); slash != std::string::npos;
         slash = path.find('/', slash + 1)) {
        const std::string above = path.substr(0, slash);
        if (presenceAt(above) == Presence::Absent && !made(AT_FDCWD, above)) {
            return false;
        }
    }
    return made(AT_FDCWD, path);
}

FileDescriptor openInside(int folder, const std::string& name, MissingTrash missing)
{
    FileDescriptor inner(::openat(folder, name.c_str(), realFolder));
    if (!inner.isOpen() && errno == ENOENT && missing == MissingTrash::IsMade &&
        made(folder, name)) {
        inner = FileDescriptor(::openat(folder, name.c_str(), realFolder));
    }
    return inner;
}

/// The two folders within the open Trash.
tl::expected<TrashFolders, TrashFailure> openParts(int trash, std::string path,
                                                   MissingTrash missing)
{
    const auto identity = identityOf(trash);
    if (!identity) {
        return failure(errno, path);
    }
    FileDescriptor info = openInside(trash, "info", missing);
    // What only looks or deletes can do without.
    if (!info.isOpen() && missing == MissingTrash::IsMade) {
        return failure(errno, path + "/info");
    }
    FileDescriptor files = openInside(trash, "files", missing);
    if (!files.isOpen()) {
        return failure(errno, path + "/files");
    }
    return TrashFolders{std::move(files), std::move(info), std::move(path), {}, *identity};
}

/// Zero, or why the open folder is no place that only the user can have made.
int distrust(int folder)
{
    struct stat status
    {};
    if (::fstat(folder, &status) != 0) {
        return errno;
    }
    // A folder that hands its group on hands that bit on too, and lets nobody in by it.
    const bool alone =
        (status.st_mode & 07777U & ~static_cast<unsigned>(S_ISGID)) == forTheUserAlone;
    return status.st_uid == ::geteuid() && alone ? 0 : EPERM;
}

struct VolumePlace
{
    FileDescriptor folder; ///< in which the user's Trash stands
    std::string path;      ///< of that folder
    std::string name;
};

/// The folder at the top of a volume in which each user may have a Trash; not open where there is
/// none that is safe.
FileDescriptor sharedPlace(int top)
{
    FileDescriptor shared(::openat(top, ".Trash", realFolder));
    struct stat status
    {};
    if (shared.isOpen() &&
        (::fstat(shared.get(), &status) != 0 || (status.st_mode & S_ISVTX) == 0)) {
        shared.close();
    }
    return shared;
}

/// Where there is no shared place.
std::string ownName(const std::string& user)
{
    return ".Trash-" + user;
}

/// The places of a volume at which the user's Trash may be, the better first.
std::vector<VolumePlace> volumePlaces(const MountTop& top)
{
    const std::string user = std::to_string(::geteuid());
    const std::string path = top.path == "/" ? "" : top.path;
    std::vector<VolumePlace> places;
    FileDescriptor shared = sharedPlace(top.folder.get());
    if (shared.isOpen()) {
        places.push_back({std::move(shared), path + "/.Trash", user});
    }
    FileDescriptor self(::openat(top.folder.get(), ".", O_PATH | O_DIRECTORY | O_CLOEXEC));
    places.push_back({std::move(self), path, ownName(user)});
    return places;
}

tl::expected<TrashFolders, TrashFailure> openTrusted(const VolumePlace& place,
                                                     const std::string& path)
{
    const FileDescriptor trash = openInside(place.folder.get(), place.name, MissingTrash::IsMade);
    if (!trash.isOpen()) {
        return failure(errno, path);
    }
    if (const int error = distrust(trash.get())) {
        return failure(error, path);
    }
    auto folders = openParts(trash.get(), path, MissingTrash::IsMade);
    if (!folders) {
        return folders;
    }
    for (const auto& [part, name] :
         {std::pair(&folders->info, "/info"), std::pair(&folders->files, "/files")}) {
        if (const int error = distrust(part->get())) {
            return failure(error, path + name);
        }
    }
    return folders;
}

/// Of a Trash that cannot be used, what was made for it goes again; only ever empty folders.
void removeEmptyTrash(const VolumePlace& place)
{
    const FileDescriptor trash(
        ::openat(place.folder.get(), place.name.c_str(), O_PATH | realFolder));
    for (const char* part : {"info", "files"}) {
        ::unlinkat(trash.get(), part, AT_REMOVEDIR);
    }
    ::unlinkat(place.folder.get(), place.name.c_str(), AT_REMOVEDIR);
}

tl::expected<TrashFolders, TrashFailure> openPlace(const VolumePlace& place)
{
    const std::string path = place.path + "/" + place.name;
    if (!place.folder.isOpen()) {
        return failure(EIO, path);
    }
    const bool isNew = !identityAt(place.folder.get(), place.name) && errno == ENOENT;
    auto folders = openTrusted(place, path);
    if (!folders && isNew) {
        removeEmptyTrash(place);
    }
    return folders;
}

} // namespace

std::string homeTrashPath(const std::string& home)
{
    const char* data = environmentValue("XDG_DATA_HOME");
    std::string base = data != nullptr && *data == '/' ? data : home + "/.local/share";
    while (base.size() > 1 && base.back() == '/') {
        base.pop_back();
    }
    return base == "/" ? "/Trash" : base + "/Trash";
}

tl::expected<TrashFolders, TrashFailure> openHomeTrash(const std::string& home,
                                                       MissingTrash missing)
{
    const std::string path = homeTrashPath(home);
    FileDescriptor trash = openFolder(path);
    if (!trash.isOpen() && errno == ENOENT && missing == MissingTrash::IsMade) {
        if (!madeWithParents(path)) {
            return failure(errno, path);
        }
        trash = openFolder(path);
    }
    if (!trash.isOpen()) {
        return failure(errno, path);
    }
    return openParts(trash.get(), path, missing);
}

tl::expected<TrashFolders, TrashFailure> openVolumeTrash(int folder)
{
    const auto top = mountTop(folder);
    if (!top) {
        return failure(errno, "the top of the volume");
    }
    tl::expected<TrashFolders, TrashFailure> last = failure(ENOENT, top->path);
    for (const VolumePlace& place : volumePlaces(*top)) {
        last = openPlace(place);
        if (last) {
            last->origin = top->below;
            return last;
        }
    }
    return last;
}

std::vector<FileIdentity> volumeTrashes(int top)
{
    const std::string user = std::to_string(::geteuid());
    std::vector<FileIdentity> found;
    const auto add = [&found](int folder, const std::string& name) {
        if (const auto identity = identityAt(folder, name)) {
            found.push_back(*identity);
        }
    };
    const FileDescriptor shared = sharedPlace(top);
    if (shared.isOpen()) {
        add(shared.get(), user);
    }
    add(top, ownName(user));
    return found;
}

tl::expected<TrashFolders, TrashFailure> chooseTrash(const std::string& home, int folder,
                                                     const std::string& path)
{
    const auto place = identityOf(folder);
    if (!place) {
        return failure(errno, path);
    }
    auto own = openHomeTrash(home, MissingTrash::IsMade);
    // Without a Trash at home, the home folder tells on which file system it would be.
    const FileDescriptor homeOpen = own ? FileDescriptor() : openFolder(home);
    const auto homePlace = identityOf(own ? own->files.get() : homeOpen.get());
    if (!homePlace && own) {
        return failure(errno, own->path);
    }
    if (!homePlace) {
        return own;
    }
    if (homePlace->device != place->device) {
        return openVolumeTrash(folder);
    }
    if (own) {
        own->origin = path;
    }
    return own;
}

} // namespace zolva
