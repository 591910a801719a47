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

void purgeOne(const PinnedTrash& trash, const std::string& resolvedTrash, const std::string& path,
              Purge& purge)
{
    const Containment found = containment(resolvedTrash, path);
    if (!found.isInside) {
        log::purgeRefused(found.told, "outside " + resolvedTrash);
        purge.problems.push_back(lastComponent(path) + " was not in the Trash");
        return;
    }
    const auto deleted = deleteFromTrash(trash, found.relative);
    if (deleted) {
        log::purged(path);
        ++purge.purged;
    } else if (deleted.error().code == ENOENT || presenceAt(path) == Presence::Absent) {
        log::alreadyGone(path);
    } else {
        log::failed(path, deleted.error().text);
        purge.problems.push_back(deleted.error().text);
    }
}

} // namespace

Purge purgeFromTrash(const std::vector<std::string>& landed)
{
    Purge purge;
    if (landed.empty()) {
        return purge;
    }
    const auto trash = pinHomeTrash(homeFolder());
    if (!trash) {
        log::trashNotFound();
        purge.problems.emplace_back("Couldn't locate the Trash folder");
        return purge;
    }
    const std::string resolvedTrash = resolvedPath(trash->path);
    for (const std::string& path : landed) {
        purgeOne(*trash, resolvedTrash, path, purge);
    }
    return purge;
}

} // namespace zolva
