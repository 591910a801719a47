#include "scanners/DiskAccess.h"

#include "files/FolderListing.h"
#include "files/HomeFolder.h"
#include "files/PathText.h"

#include <array>
#include <string_view>

namespace zolva::diskAccess {

namespace {

struct Probe
{
    std::string_view id;
    std::string_view label;
    std::string_view path; ///< relative to the home folder
};

constexpr std::array<Probe, 5> probes = {{
    {"downloads", "Downloads", "Downloads"},
    {"desktop", "Desktop", "Desktop"},
    {"documents", "Documents", "Documents"},
    {"icloud", "iCloud Drive", "Library/Mobile Documents/com~apple~CloudDocs"},
    {"trash", "Trash", ".Trash"},
}};

/// Existence can be read without permission to list, so a folder that is there and cannot be
/// listed is hidden from us, and one that lists as empty is empty.
bool isBlocked(const std::string& path)
{
    return isFolderAt(path) && !listFolder(path, HiddenEntries::Keep);
}

} // namespace

std::vector<Location> probeLocations()
{
    const std::string home = homeFolder();
    std::vector<Location> locations;
    locations.reserve(probes.size());
    for (const Probe& probe : probes) {
        locations.push_back(
            {std::string(probe.id), std::string(probe.label), joinedPath(home, probe.path)});
    }
    return locations;
}

std::vector<Location> blockedLocations()
{
    std::vector<Location> locations = probeLocations();
    std::erase_if(locations, [](const Location& location) { return !isBlocked(location.path); });
    return locations;
}

} // namespace zolva::diskAccess
