#include "mole/AppListDocument.h"

#include "files/DisplayPath.h"
#include "files/FolderListing.h"
#include "files/FolderTally.h"
#include "files/HomeFolder.h"
#include "files/PathText.h"
#include "files/SizeText.h"
#include "mole/SystemFile.h"
#include "scanners/AppInventory.h"

#include <nlohmann/json.hpp>

#include <algorithm>
#include <optional>
#include <string_view>
#include <utility>

namespace zolva::mole {

namespace {

constexpr std::string_view suffix = ".app";
/// Far more than any Info.plist has.
constexpr std::size_t maxInfo = std::size_t{16} * 1024 * 1024;

struct FoundBundle
{
    std::string path;
    std::string folder; ///< the one of the call that it lies in
};

bool isBundle(const std::string& path, std::string_view name)
{
    return name.size() > suffix.size() && name.ends_with(suffix) &&
           existsAt(path + "/Contents/Info.plist");
}

void findBundles(const std::string& root, std::vector<FoundBundle>& found)
{
    std::vector<std::string> pending = {root};
    while (!pending.empty()) {
        const std::string folder = std::move(pending.back());
        pending.pop_back();
        const auto entries = listFolder(folder, HiddenEntries::Skip);
        if (!entries) {
            continue;
        }
        for (const FolderEntry& entry : *entries) {
            std::string path = joinedPath(folder, entry.name);
            if (entry.kind != EntryKind::Folder) {
                continue;
            }
            if (isBundle(path, entry.name)) {
                found.push_back({std::move(path), root});
            } else {
                pending.push_back(std::move(path));
            }
        }
    }
}

/// The first text of the property list under the keys that is more than white space.
std::optional<std::string> firstText(const std::string& info,
                                     std::initializer_list<const char*> keys)
{
    for (const char* key : keys) {
        const std::optional<std::string> text = plistText(info, key);
        if (text && !trimmedText(*text).empty()) {
            return std::string(trimmedText(*text));
        }
    }
    return std::nullopt;
}

BundleRow rowOf(const FoundBundle& bundle)
{
    const std::string info =
        fileText(bundle.path + "/Contents/Info.plist", maxInfo).value_or(std::string());
    std::string fileName = lastComponent(bundle.path);
    fileName.resize(fileName.size() - suffix.size());
    BundleRow row;
    row.name = firstText(info, {"CFBundleDisplayName", "CFBundleName"}).value_or(fileName);
    // A word that stands for no identifier, so that none is built from it.
    row.bundleID = firstText(info, {"CFBundleIdentifier"}).value_or("unknown");
    row.source = displayText(tildePath(bundle.folder));
    row.uninstallName = std::move(fileName);
    row.path = bundle.path;
    return row;
}

} // namespace

std::vector<std::string> applicationFolders()
{
    std::vector<std::string> folders = {"/Applications"};
    std::string own = joinedPath(homeFolder(), "Applications");
    if (own != folders.front()) {
        folders.push_back(std::move(own));
    }
    return folders;
}

std::vector<BundleRow> bundlesBelow(const std::vector<std::string>& folders,
                                    std::vector<std::string>& untellable)
{
    std::vector<BundleRow> rows;
    std::vector<std::string> paths;
    for (const std::string& folder : folders) {
        std::vector<FoundBundle> found;
        findBundles(folder, found);
        std::ranges::sort(found, {}, &FoundBundle::path);
        for (const FoundBundle& bundle : found) {
            if (rawPath(bundle.path)) {
                untellable.push_back(bundle.path);
                continue;
            }
            rows.push_back(rowOf(bundle));
            paths.push_back(bundle.path);
        }
    }
    const std::vector<Tally> tallies = folderTallies(paths);
    for (std::size_t row = 0; row < rows.size(); ++row) {
        rows[row].size = sizeText(tallies.at(row).bytes);
    }
    return rows;
}

std::string appListDocument(const std::vector<BundleRow>& rows)
{
    using Json = nlohmann::ordered_json;
    Json list = Json::array();
    for (const BundleRow& row : rows) {
        list.push_back({{"name", row.name},
                        {"bundle_id", row.bundleID},
                        {"source", row.source},
                        {"uninstall_name", row.uninstallName},
                        {"path", row.path},
                        {"size", row.size}});
    }
    return list.dump(-1, ' ', false, Json::error_handler_t::replace);
}

} // namespace zolva::mole
