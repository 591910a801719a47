#include "desktop/RevealedPlace.h"

#include "files/PathText.h"
#include "platform/OpenFolder.h"

namespace zolva {

namespace {

std::string folderOf(const std::string& path)
{
    const std::string above = parentPath(path);
    return above.empty() ? "/" : above;
}

bool isFolder(const std::string& path)
{
    return openFolder(path).isOpen();
}

} // namespace

RevealedPlace revealedPlace(const std::string& path)
{
    const std::string item = standardizedPath(expandTilde(path));
    std::string folder = folderOf(item);
    if (presenceAt(item) == Presence::Present) {
        return {item, folder};
    }
    // Nobody is to be shown into a folder that cannot be entered.
    while (folder != "/" && !isFolder(folder)) {
        folder = folderOf(folder);
    }
    return {folder, folder};
}

} // namespace zolva
