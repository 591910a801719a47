#include "core/Resources.h"

#include "files/PathText.h"
#include "platform/ResourceLayout.h"

#include <string_view>

namespace zolva {

std::vector<std::string> resourceFoldersOf(const std::string& executable)
{
    if (executable.empty()) {
        return {};
    }
    const std::string prefix = parentPath(parentPath(executable));
    std::vector<std::string> folders;
    for (const std::string_view below : resourceLayout()) {
        folders.push_back(joinedPath(prefix, below));
    }
    return folders;
}

std::vector<std::string> resourceFolders()
{
    return resourceFoldersOf(executablePath());
}

} // namespace zolva
