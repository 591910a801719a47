#include "removal/disk/AdminMoveToTrash.h"

#include "files/HomeFolder.h"
#include "files/PathGuards.h"
#include "files/PathText.h"
#include "platform/OpenFolder.h"

namespace zolva {

namespace {

/// What cannot be looked at counts as taken, so the search must end somewhere.
constexpr int mostNames = 200;

} // namespace

bool adminMoveToTrash(const std::string& path, const ToolRunner& run)
{
    if (pathRefusal(path)) {
        return false;
    }
    const std::string home = homeFolder();
    const std::string source = standardizedPath(expandTilde(path));
    const std::string name = entryPath(source).name;
    if (name.empty() || presenceAt(source) == Presence::Absent) {
        return false;
    }
    for (int attempt = 0; attempt < mostNames; ++attempt) {
        const std::string free = adminMoveName(name, attempt);
        if (!isTrashNameTaken(home, free)) {
            return adminMove(home, source, free, run);
        }
    }
    return false;
}

} // namespace zolva
