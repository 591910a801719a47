#include "removal/disk/HomeTrash.h"

#include "diagnostics/Log.h"
#include "files/HomeFolder.h"
#include "files/PathText.h"
#include "platform/SystemTrash.h"

#include <cerrno>
#include <utility>

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
    const auto items = listTrashItems();
    if (!items) {
        return tl::unexpected(items.error());
    }
    std::vector<std::string> names;
    for (const KnownItem& item : *items) {
        names.push_back(item.at);
    }
    return names;
}

tl::expected<std::vector<KnownItem>, std::string> listTrashItems()
{
    const auto trash = pinHomeTrash(homeFolder());
    if (!trash) {
        if (trash.error().code == ENOENT) {
            return std::vector<KnownItem>();
        }
        return tl::unexpected(trash.error().text);
    }
    auto names = trashNames(*trash);
    if (!names) {
        return tl::unexpected(names.error().text);
    }
    std::vector<KnownItem> items;
    for (std::string& name : *names) {
        const auto identity = identityAt(trash->files.get(), name);
        items.emplace_back(std::move(name), identity);
    }
    return items;
}

tl::expected<Deletion, std::string> deleteTrashEntry(const std::string& name,
                                                     const std::optional<FileIdentity>& expected)
{
    const std::string path = joinedPath(trashFolder(), name);
    const auto trash = pinHomeTrash(homeFolder());
    TrashFailure failure = trash ? TrashFailure() : trash.error();
    if (trash) {
        const bool isChild = name.find('/') == std::string::npos;
        const auto deleted = isChild ? deleteFromTrash(*trash, name, expected)
                                     : tl::unexpected(trashFailure(EINVAL, name));
        if (deleted) {
            log::purged(path);
            return Deletion::Done;
        }
        failure = deleted.error();
    }
    // Also where the whole Trash went.
    if (failure.code == ENOENT) {
        log::alreadyGone(path);
        return Deletion::AlreadyGone;
    }
    log::failed(path, failure.text);
    return tl::unexpected(failure.text);
}

void deleteTrashLeftovers()
{
    if (const auto trash = pinHomeTrash(homeFolder())) {
        deleteLeftovers(*trash);
    }
}

} // namespace zolva
