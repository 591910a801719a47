#include "scanners/InstallerScanner.h"

#include "files/FolderListing.h"
#include "files/FolderTally.h"
#include "files/HomeFolder.h"
#include "files/PathText.h"
#include "platform/FileDates.h"

#include <algorithm>
#include <functional>

namespace zolva {

constexpr std::array<std::string_view, 4> installerExtensions = {"dmg", "pkg", "xip", "iso"};

namespace {

struct SourceRow
{
    std::string_view path; ///< relative to the home folder
    std::string_view label;
};

constexpr std::array<SourceRow, 4> sourceTable = {{
    {"Downloads", "Downloads"},
    {"Desktop", "Desktop"},
    {"Library/Caches/Homebrew/downloads", "Homebrew cache"},
    {"Library/Mobile Documents/com~apple~CloudDocs/Downloads", "iCloud Drive"},
}};

bool isInstallerName(const std::string& name)
{
    const std::string extension = loweredExtension(name);
    return std::ranges::find(installerExtensions, extension) != installerExtensions.end();
}

void scanSource(const InstallerScanner::Source& source, const std::string& home, TimePoint now,
                std::vector<InstallerItem>& items)
{
    const auto entries = listFolder(source.path, HiddenEntries::Skip);
    if (!entries) {
        return;
    }
    for (const FolderEntry& entry : *entries) {
        if (entry.kind != EntryKind::File || !isInstallerName(entry.name)) {
            continue;
        }
        const std::string path = joinedPath(source.path, entry.name);
        const std::int64_t bytes = allocatedSize(path);
        if (bytes < 1) {
            continue;
        }
        items.push_back({.name = entry.name,
                         .src = source.label,
                         .b = bytes,
                         .age = ageInDays(now, contentModificationDate(path)),
                         .p = InstallerScanner::shownPath(path, home)});
    }
}

} // namespace

std::vector<InstallerScanner::Source> InstallerScanner::sources()
{
    const std::string home = homeFolder();
    std::vector<Source> sources;
    sources.reserve(sourceTable.size());
    for (const SourceRow& row : sourceTable) {
        sources.push_back({joinedPath(home, row.path), std::string(row.label)});
    }
    return sources;
}

std::string InstallerScanner::shownPath(std::string path, std::string_view home)
{
    for (std::size_t at = path.find(home); at != std::string::npos; at = path.find(home, at + 1)) {
        path.replace(at, home.size(), "~");
    }
    return path;
}

std::vector<InstallerItem> InstallerScanner::scan(TimePoint now)
{
    const std::string home = homeFolder();
    std::vector<InstallerItem> items;
    for (const Source& source : sources()) {
        scanSource(source, home, now, items);
    }
    std::ranges::stable_sort(items, std::ranges::greater{}, &InstallerItem::b);
    return items;
}

} // namespace zolva
