#include "removal/disk/AdminMoveToTrash.h"

#include "files/HomeFolder.h"
#include "files/PathGuards.h"
#include "files/PathText.h"
#include "platform/NumberedName.h"
#include "platform/OpenFolder.h"

namespace zolva {

namespace {

/// What cannot be looked at counts as taken, so the search must end somewhere.
constexpr int mostNumbers = 100000;

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
    std::string free = name;
    for (int number = 2; isTrashNameTaken(home, free); ++number) {
        if (number > mostNumbers) {
            return false;
        }
        free = numberedName(name, number);
    }
    return adminMove(home, source, free, run);
}

} // namespace zolva
