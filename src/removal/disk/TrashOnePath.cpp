#include "removal/disk/TrashOnePath.h"

#include "diagnostics/Log.h"
#include "files/FolderTally.h"
#include "files/HomeFolder.h"
#include "files/PathGuards.h"
#include "files/PathText.h"
#include "platform/OpenFolder.h"
#include "platform/SystemTrash.h"

#include <utility>

namespace zolva {

namespace {

TrashAttempt alreadyAbsent(const std::string& path)
{
    log::alreadyGone(path);
    return {TrashAlreadyAbsent{}, std::nullopt};
}

} // namespace

TrashAttempt trashOnePath(const std::string& path)
{
    if (auto refusal = pathRefusal(path)) {
        log::refused(path, *refusal);
        return {TrashRefused{std::move(*refusal)}, std::nullopt};
    }
    // What the guard judged is the standardized path, so that is what is moved.
    const std::string target = standardizedPath(expandTilde(path));
    if (presenceAt(target) == Presence::Absent) {
        return alreadyAbsent(path);
    }
    const std::int64_t bytes = folderTally(target).bytes;
    const auto moved = moveToTrash(homeFolder(), target);
    if (moved) {
        log::trashed(path, bytes);
        return {TrashMoved{bytes}, moved->landed, moved->identity};
    }
    if (presenceAt(target) == Presence::Absent) {
        return alreadyAbsent(path);
    }
    log::failed(path, moved.error().text);
    return {TrashFailed{moved.error().text}, std::nullopt};
}

} // namespace zolva
