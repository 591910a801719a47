#include "scanners/CleanScan.h"

#include "files/DisplayPath.h"
#include "files/FolderListing.h"
#include "files/FolderTally.h"
#include "files/HomeFolder.h"
#include "files/PathGuards.h"
#include "files/PathText.h"

#include <algorithm>
#include <span>
#include <utility>

namespace zolva {

constexpr std::array<CatalogEntry, 7> cleanCatalog = {{
    {"Xcode DerivedData", "Build intermediates Xcode recreates",
     "Library/Developer/Xcode/DerivedData", true},
    {"Xcode device support", "Symbols for iOS devices you've connected",
     "Library/Developer/Xcode/iOS DeviceSupport", true},
    {"Application caches", "App caches macOS rebuilds on demand", "Library/Caches", true},
    {"Application logs", "Diagnostic logs apps rewrite", "Library/Logs", true},
    {"Saved application state", "Window state apps recreate", "Library/Saved Application State",
     true},
    {"npm cache", "Downloaded npm packages", ".npm/_cacache", false},
    {"Go build cache", "Compiled Go objects", "Library/Caches/go-build", false},
}};

constexpr std::array<std::string_view, 12> protectedCacheNames = {
    "CloudKit",
    "CloudDocs",
    "com.apple.cloudd",
    "com.apple.bird",
    "com.apple.containermanagerd",
    "com.apple.nsurlsessiond",
    "com.apple.Safari.SafeBrowsing",
    "com.apple.iCloudHelper",
    "FamilyCircle",
    "Mail",
    "Messages",
    "Keychains",
};

namespace {

/// What a row may offer, in listing order, before anything is measured.
std::vector<std::string> candidatesOf(const std::string& path, bool recursive)
{
    if (!isFolderAt(path)) {
        return {};
    }
    if (!recursive) {
        return {path};
    }
    std::vector<std::string> children;
    if (const auto entries = listFolder(path, HiddenEntries::Skip)) {
        children.reserve(entries->size());
        for (const FolderEntry& entry : *entries) {
            children.push_back(joinedPath(path, entry.name));
        }
    }
    return children;
}

CatPath catPathOf(const std::string& path, std::int64_t bytes)
{
    const bool prot =
        std::ranges::find(protectedCacheNames, lastComponent(path)) != protectedCacheNames.end();
    return {.p = tildePath(path), .b = bytes, .prot = prot};
}

/// The floor holds for each path and then for the sum; what may not be touched leaves no trace.
std::optional<Category> categoryOf(std::string_view name, std::string_view desc,
                                   const std::vector<std::string>& candidates,
                                   std::span<const Tally> tallies, std::int64_t floor)
{
    Category category{
        .id = std::string(name), .name = std::string(name), .desc = std::string(desc)};
    for (std::size_t i = 0; i < candidates.size(); ++i) {
        const std::int64_t bytes = tallies[i].bytes;
        if (bytes >= floor && !pathRefusal(candidates[i])) {
            category.paths.push_back(catPathOf(candidates[i], bytes));
        }
    }
    if (category.paths.empty() || totalBytes(category) < floor) {
        return std::nullopt;
    }
    std::ranges::stable_sort(category.paths, std::ranges::greater{}, &CatPath::b);
    category.items = static_cast<std::int64_t>(category.paths.size());
    return category;
}

} // namespace

std::vector<Category> scanCategories(std::int64_t floor, const WalkProgressTold& told)
{
    // One walk measures all rows: they overlap, and what two of them hold is read once.
    const std::string home = homeFolder();
    std::array<std::vector<std::string>, cleanCatalog.size()> candidates;
    std::vector<std::string> all;
    for (std::size_t row = 0; row < cleanCatalog.size(); ++row) {
        const CatalogEntry& entry = cleanCatalog[row];
        candidates[row] = candidatesOf(joinedPath(home, entry.path), entry.recursive);
        all.insert(all.end(), candidates[row].begin(), candidates[row].end());
    }
    const std::vector<Tally> measured = folderTallies(all, told);

    std::vector<Category> categories;
    std::span<const Tally> rest = measured;
    for (std::size_t row = 0; row < cleanCatalog.size(); ++row) {
        const CatalogEntry& entry = cleanCatalog[row];
        const std::size_t count = candidates[row].size();
        if (auto category =
                categoryOf(entry.name, entry.desc, candidates[row], rest.first(count), floor)) {
            categories.push_back(std::move(*category));
        }
        rest = rest.subspan(count);
    }
    std::ranges::stable_sort(categories, std::ranges::greater{}, totalBytes);
    return categories;
}

std::optional<Category> scanCategory(std::string_view name, std::string_view desc,
                                     const std::string& path, bool recursive, std::int64_t floor)
{
    const std::vector<std::string> candidates = candidatesOf(path, recursive);
    return categoryOf(name, desc, candidates, folderTallies(candidates), floor);
}

} // namespace zolva
