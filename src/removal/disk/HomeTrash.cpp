#include "removal/disk/HomeTrash.h"

#include "diagnostics/Log.h"
#include "files/HomeFolder.h"
#include "files/PathText.h"
#include "platform/SystemTrash.h"

#include <cerrno>

namespace zolva {

std::string trashFolder()
{
    return homeTrashFolder(homeFolder());
}

tl::expected<void, std::string> makeTrashFolder()
{
    const auto made = makeHomeTrash(homeFolder());
    if (!made) {
        return tl::unexpected(made.error().text);
    }
    return {};
}

tl::expected<std::vector<std::string>, std::string> listTrash()
{
    const auto trash = pinHomeTrash(homeFolder());
    if (!trash) {
        if (trash.error().code == ENOENT) {
            return std::vector<std::string>();
        }
        return tl::unexpected(trash.error().text);
    }
    auto names = trashNames(*trash);
    if (!names) {
        return tl::unexpected(names.error().text);
    }
    return *names;
}

tl::expected<void, std::string> deleteTrashEntry(const std::string& name)
{
    const std::string path = joinedPath(trashFolder(), name);
    const auto trash = pinHomeTrash(homeFolder());
    TrashFailure failure = trash ? TrashFailure() : trash.error();
    if (trash) {
        const bool isChild = name.find('/') == std::string::npos;
        const auto deleted =
            isChild ? deleteFromTrash(*trash, name) : tl::unexpected(trashFailure(EINVAL, name));
        if (deleted || deleted.error().code == ENOENT) {
            log::purged(path);
            return {};
        }
        failure = deleted.error();
    }
    log::failed(path, failure.text);
    return tl::unexpected(failure.text);
}

} // namespace zolva
