#include "removal/disk/PurgeFromTrash.h"

#include "diagnostics/Log.h"
#include "files/HomeFolder.h"
#include "files/PathText.h"
#include "platform/OpenFolder.h"
#include "platform/SystemTrash.h"
#include "removal/disk/ResolvedPath.h"

#include <cerrno>
#include <utility>

namespace zolva {

namespace {

struct Containment
{
    std::string told;     ///< where the path leads
    std::string relative; ///< the way from the Trash folder to what would be deleted
    bool isInside = false;
};

/// Both must lie inside: what the path leads to, and the entry itself, which is what is deleted.
Containment containment(const std::string& trash, const std::string& path)
{
    const EntryPath entry = entryPath(path);
    if (entry.name.empty()) {
        return {path, {}, false};
    }
    const std::string prefix = trash + "/";
    const std::string target = resolvedPath(path);
    const std::string own = joinedPath(resolvedPath(entry.folder), entry.name);
    if (!target.starts_with(prefix) || !own.starts_with(prefix)) {
        return {target.starts_with(prefix) ? own : target, {}, false};
    }
    return {target, own.substr(prefix.size()), true};
}

/// Whether what the path leads to by now is the folder that is held.
bool isHeld(const PinnedTrash& trash, const std::string& resolved)
{
    const FileDescriptor again = openFolder(resolved);
    const auto found = again.isOpen() ? identityOf(again.get()) : std::nullopt;
    return found && found == identityOf(trash.files.get());
}

void purgeOne(const PinnedTrash& trash, const std::string& resolvedTrash, const KnownItem& item,
              Purge& purge)
{
    const std::string& path = item.at;
    const Containment found = containment(resolvedTrash, path);
    if (!found.isInside) {
        log::purgeRefused(found.told, "outside " + resolvedTrash);
        purge.problems.push_back(lastComponent(path) + " was not in the Trash");
        return;
    }
    const auto deleted = deleteFromTrash(trash, found.relative, item.identity);
    if (deleted) {
        log::purged(path);
        ++purge.purged;
    } else if (deleted.error().code == ENOENT || deleted.error().code == ENOTDIR) {
        log::alreadyGone(path);
    } else {
        log::failed(path, deleted.error().text);
        purge.problems.push_back(deleted.error().text);
    }
}

} // namespace

Purge purgeFromTrash(const std::vector<KnownItem>& landed)
{
    Purge purge;
    if (landed.empty()) {
        return purge;
    }
    const auto trash = pinHomeTrash(homeFolder());
    const std::string resolvedTrash = trash ? resolvedPath(trash->path) : std::string();
    if (!trash || !isHeld(*trash, resolvedTrash)) {
        log::trashNotFound();
        purge.problems.emplace_back("Couldn't locate the Trash folder");
        return purge;
    }
    for (const KnownItem& item : landed) {
        purgeOne(*trash, resolvedTrash, item, purge);
    }
    if (purge.purged > 0) {
        // Nobody sees what an earlier death has left; a Trash that is never emptied keeps it.
        deleteLeftovers(*trash);
    }
    return purge;
}

} // namespace zolva
