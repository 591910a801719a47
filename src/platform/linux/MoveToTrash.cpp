#include "platform/FileIdentity.h"
#include "platform/MoveNoReplace.h"
#include "platform/OpenFolder.h"
#include "platform/SystemTrash.h"
#include "platform/linux/Ancestry.h"
#include "platform/linux/TrashFolders.h"
#include "platform/linux/TrashNames.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <utility>

namespace zolva {

namespace {

struct Item
{
    FileDescriptor folder;
    EntryPath path;
    FileIdentity identity;
};

tl::unexpected<TrashFailure> failure(int error, const std::string& about = {})
{
    return tl::unexpected(trashFailure(error, about));
}

tl::expected<Item, TrashFailure> openItem(const std::string& path)
{
    EntryPath entry = entryPath(path);
    if (entry.name.empty() || (entry.folder + "/").find("/../") != std::string::npos) {
        return failure(EINVAL);
    }
    FileDescriptor folder = openFolder(entry.folder);
    if (!folder.isOpen()) {
        return failure(errno);
    }
    const auto identity = identityAt(folder.get(), entry.name);
    if (!identity) {
        return failure(errno);
    }
    return Item{std::move(folder), std::move(entry), *identity};
}

/// Every entry on the way to the user's own Trash as its path is written, links as links: without
/// any of them it is found no more.
bool isOnTheWay(const std::string& trash, const FileIdentity& item)
{
    for (std::size_t slash = trash.find('/', 1);; slash = trash.find('/', slash + 1)) {
        if (identityAt(AT_FDCWD, trash.substr(0, slash)) == item) {
            return true;
        }
        if (slash == std::string::npos) {
            break;
        }
    }
    // And those without links above the last of them, which may itself be one.
    const FileDescriptor above = openFolder(entryPath(trash).folder);
    const auto holders = above.isOpen() ? ancestryOf(above.get()) : std::nullopt;
    return holders && holders->holds(item);
}

/// Whether the path leads to the Trash, whose `files` folder is known, by no link: then all that
/// stands on the way is above that folder.
bool leadsStraight(const std::string& trash, const Ancestry& files)
{
    const auto place = files.isWhole ? placeWithoutLinks(trash) : std::nullopt;
    return place && place->mount != 0 && files.places.size() > 1 && files.places[1] == *place;
}

/// The Trash itself, what lies in it and what contains it stay where they are.
std::optional<TrashFailure> oddPlace(const Item& item, const TrashFolders& trash,
                                     const std::string& ownTrash)
{
    const auto aboveTrash = ancestryOf(trash.files.get());
    if (!aboveTrash) {
        return trashFailure(errno, trash.path);
    }
    const auto above = ancestryOf(item.folder.get(), &*aboveTrash);
    if (!above) {
        return trashFailure(errno);
    }
    // Also a volume whose things go to the home folder may have a Trash of its own.
    const auto others = above->top ? volumeTrashes(above->top->get()) : std::vector<FileIdentity>();
    const bool lies = above->holds(trash.identity) ||
                      std::any_of(others.begin(), others.end(),
                                  [&](const FileIdentity& other) { return above->holds(other); });
    if (lies) {
        return TrashFailure{0, "It is in the Trash already"};
    }
    if (aboveTrash->holds(item.identity) ||
        std::find(others.begin(), others.end(), item.identity) != others.end() ||
        (!leadsStraight(ownTrash, *aboveTrash) && isOnTheWay(ownTrash, item.identity))) {
        return TrashFailure{0, "It is the Trash, or contains it"};
    }
    return std::nullopt;
}

void syncFolders(const Item& item, const TrashFolders& trash)
{
    // The move is done; that it outlives a power cut can only be tried.
    for (const int folder : {trash.files.get(), trash.info.get(), item.folder.get()}) {
        static_cast<void>(::fsync(folder));
    }
}

enum class Arrival
{
    Arrived,
    NotThere,
    Doubtful ///< in both places by a second link, or not to be seen
};

/// After the system said that it was not moved: what became of it.
Arrival arrival(const Item& item, const TrashFolders& trash, const std::string& name)
{
    const auto there = identityAt(trash.files.get(), name);
    if (there != item.identity) {
        return there || errno == ENOENT ? Arrival::NotThere : Arrival::Doubtful;
    }
    const auto here = identityAt(item.folder.get(), item.path.name);
    return here ? Arrival::Doubtful : Arrival::Arrived;
}

std::optional<std::string> landedPath(const TrashFolders& trash, const std::string& name)
{
    return trash.path + "/files/" + name;
}

/// Somebody put something else in the item's place at the last moment: it goes back.
tl::expected<MovedToTrash, TrashFailure> undoStranger(const Item& item, const TrashFolders& trash,
                                                      const std::string& name)
{
    const int error = moveNoReplace(trash.files.get(), name, item.folder.get(), item.path.name);
    if (error != 0) {
        return tl::unexpected(
            TrashFailure{error, "It was exchanged meanwhile; what stood there is now " +
                                    *landedPath(trash, name)});
    }
    ::unlinkat(trash.info.get(), (name + std::string(trashInfoSuffix)).c_str(), 0);
    return tl::unexpected(TrashFailure{EBUSY, "It was exchanged meanwhile"});
}

enum class Verdict
{
    Moved,
    NameTaken
};

/// One name. The info file comes first, so that nothing ever lies in the Trash without one.
tl::expected<Verdict, TrashFailure> moveUnderName(const Item& item, const TrashFolders& trash,
                                                  const std::string& name,
                                                  const std::string& origin)
{
    const std::string info = name + std::string(trashInfoSuffix);
    if (const int error = recordTrashOrigin(trash, name, origin)) {
        return error == EEXIST ? tl::expected<Verdict, TrashFailure>(Verdict::NameTaken)
                               : failure(error, trash.path + "/info");
    }
    const int error = moveNoReplace(item.folder.get(), item.path.name, trash.files.get(), name);
    if (error == 0) {
        return Verdict::Moved;
    }
    const Arrival found = error == EEXIST ? Arrival::NotThere : arrival(item, trash, name);
    if (found == Arrival::Arrived) {
        return Verdict::Moved;
    }
    // A record too many does less harm than a thing in the Trash without one.
    if (found == Arrival::NotThere) {
        ::unlinkat(trash.info.get(), info.c_str(), 0);
    }
    if (error == EEXIST) {
        return Verdict::NameTaken;
    }
    return failure(error);
}

tl::expected<MovedToTrash, TrashFailure> moveInto(const Item& item, const TrashFolders& trash)
{
    const long limit = ::fpathconf(trash.info.get(), _PC_NAME_MAX);
    const std::size_t longest =
        limit > 0 ? static_cast<std::size_t>(std::min(limit, 255L)) : std::size_t{255};
    const bool isTop = trash.origin.empty() || trash.origin.ends_with('/');
    const std::string origin = trash.origin + (isTop ? "" : "/") + item.path.name;
    for (int attempt = 0; attempt < mostTrashNames; ++attempt) {
        const std::string name = trashName(item.path.name, attempt, longest);
        const auto verdict = moveUnderName(item, trash, name, origin);
        if (!verdict) {
            return tl::unexpected(verdict.error());
        }
        if (*verdict == Verdict::NameTaken) {
            continue;
        }
        const auto arrived = identityAt(trash.files.get(), name);
        if (arrived && *arrived != item.identity) {
            return undoStranger(item, trash, name);
        }
        syncFolders(item, trash);
        // What could not be looked at again is never deleted by this name.
        return MovedToTrash{arrived ? landedPath(trash, name) : std::nullopt, arrived};
    }
    return failure(EEXIST, trash.path);
}

tl::expected<MovedToTrash, TrashFailure> moveChecked(const Item& item, const TrashFolders& trash,
                                                     const std::string& ownTrash)
{
    if (auto reason = oddPlace(item, trash, ownTrash)) {
        return tl::unexpected(std::move(*reason));
    }
    return moveInto(item, trash);
}

} // namespace

tl::expected<MovedToTrash, TrashFailure> moveToTrash(const std::string& home,
                                                     const std::string& path)
{
    const auto item = openItem(path);
    if (!item) {
        return tl::unexpected(item.error());
    }
    const auto chosen = chooseTrash(home, item->folder.get(), item->path.folder);
    if (!chosen) {
        return tl::unexpected(chosen.error());
    }
    const bool isOwn = chosen->origin.starts_with('/');
    const std::string ownTrash = homeTrashPath(home);
    auto moved = moveChecked(*item, *chosen, ownTrash);
    if (moved || moved.error().code != EXDEV || !isOwn) {
        return moved;
    }
    // One device may be mounted twice, and nothing is renamed from one mount to the other.
    const auto volume = openVolumeTrash(item->folder.get());
    if (!volume) {
        return tl::unexpected(volume.error());
    }
    return moveChecked(*item, *volume, ownTrash);
}

} // namespace zolva
