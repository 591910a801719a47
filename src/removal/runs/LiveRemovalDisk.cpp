#include "removal/runs/LiveRemovalDisk.h"

#include "files/HomeFolder.h"
#include "files/PathText.h"
#include "files/TreeWalker.h"
#include "platform/OpenFolder.h"
#include "platform/SystemTrash.h"
#include "removal/disk/AdminMoveToTrash.h"
#include "removal/disk/HomeTrash.h"
#include "removal/disk/PutBack.h"

#include <dirent.h>

#include <cerrno>
#include <memory>
#include <string_view>
#include <utility>

namespace zolva {

namespace {

struct CloseFolder
{
    void operator()(DIR* folder) const { ::closedir(folder); }
};

std::string onDisk(const std::string& path)
{
    return standardizedPath(expandTilde(path));
}

} // namespace

TrashAttempt LiveRemovalDisk::trashOnePath(const std::string& path)
{
    return zolva::trashOnePath(path);
}

Purge LiveRemovalDisk::purgeFromTrash(const std::vector<KnownItem>& landed)
{
    return zolva::purgeFromTrash(landed);
}

bool LiveRemovalDisk::adminMoveToTrash(const std::string& path)
{
    return zolva::adminMoveToTrash(path);
}

RemovalDisk::Move LiveRemovalDisk::moveToTrash(const std::string& path)
{
    auto moved = zolva::moveToTrash(homeFolder(), onDisk(path));
    if (!moved) {
        return {moved.error().text, std::nullopt};
    }
    return {std::nullopt, std::move(moved->landed), moved->identity};
}

std::optional<std::string> LiveRemovalDisk::putBack(const KnownItem& landed,
                                                    const std::string& destination)
{
    const auto done = putBackItem(landed.at, destination, landed.identity);
    return done ? std::nullopt : std::optional(done.error());
}

bool LiveRemovalDisk::exists(const std::string& path)
{
    return somethingAt(onDisk(path));
}

bool LiveRemovalDisk::isInTrash(const KnownItem& landed)
{
    const EntryPath entry = entryPath(landed.at);
    const FileDescriptor folder = openFolder(entry.folder);
    const auto found = folder.isOpen() ? identityAt(folder.get(), entry.name) : std::nullopt;
    return found ? !landed.identity || found == landed.identity : somethingAt(landed.at);
}

std::string LiveRemovalDisk::trashFolder()
{
    return zolva::trashFolder();
}

std::string LiveRemovalDisk::preparedTrashFolder()
{
    // One that cannot be made is not watched, and the meter says what it reads.
    static_cast<void>(makeTrashFolder());
    return zolva::trashFolder();
}

std::optional<std::int64_t> LiveRemovalDisk::trashCount()
{
    // The names are not kept: this runs on the main thread, at every change of a Trash that may
    // hold very many.
    const std::unique_ptr<DIR, CloseFolder> folder(::opendir(zolva::trashFolder().c_str()));
    if (!folder) {
        return errno == ENOENT ? std::optional<std::int64_t>(0) : std::nullopt;
    }
    std::int64_t count = 0;
    errno = 0;
    while (const dirent* entry = ::readdir(folder.get())) {
        const std::string_view name(entry->d_name);
        count += name == "." || name == ".." ? 0 : 1;
    }
    return errno == 0 ? std::optional(count) : std::nullopt;
}

std::optional<std::vector<KnownItem>> LiveRemovalDisk::listTrash()
{
    auto items = listTrashItems();
    return items ? std::optional(std::move(*items)) : std::nullopt;
}

std::int64_t LiveRemovalDisk::measureTrash(const std::atomic<bool>& stop)
{
    // The sum of the tallies of all entries, by one walk.
    WalkOptions options;
    options.keepLargest = false;
    options.linksOnTop = true;
    options.stop = &stop;
    return walk(zolva::trashFolder(), options).bytes;
}

tl::expected<Deletion, std::string> LiveRemovalDisk::deleteFromTrash(const KnownItem& entry)
{
    return deleteTrashEntry(entry.at, entry.identity);
}

void LiveRemovalDisk::deleteLeftovers()
{
    deleteTrashLeftovers();
}

} // namespace zolva
