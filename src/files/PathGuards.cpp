#include "files/PathGuards.h"

#include "files/HomeFolder.h"
#include "files/PathText.h"

#include <algorithm>
#include <array>

namespace zolva {

namespace {

constexpr std::array<std::string_view, 13> systemFolders = {
    "/",    "/Applications", "/Library", "/System", "/Users", "/bin", "/etc",
    "/opt", "/private",      "/sbin",    "/tmp",    "/usr",   "/var",
};

/// Below home; each follows its text unchanged.
constexpr std::array<std::string_view, 10> homeFolders = {
    "/Applications", "/Desktop",  "/Documents", "/Downloads", "/Movies",
    "/Music",        "/Pictures", "/Public",    "/Library",   "/.Trash",
};

constexpr std::string_view libraryPrefix = "/Library/";

constexpr std::array<std::string_view, 17> libraryFolders = {
    "Caches",
    "Containers",
    "Group Containers",
    "Application Support",
    "Logs",
    "Preferences",
    "Saved Application State",
    "WebKit",
    "HTTPStorages",
    "Cookies",
    "Developer",
    "LaunchAgents",
    "Application Scripts",
    "Mail",
    "Messages",
    "Safari",
    "Keychains",
};

/// After the home folder, in the order in which they are tried.
constexpr std::array<std::string_view, 2> sharedRoots = {"/Applications",
                                                         "/Users/Shared/Applications"};

template <std::size_t size>
bool holds(const std::array<std::string_view, size>& table, std::string_view text)
{
    return std::ranges::find(table, text) != table.end();
}

/// Whether `protectedPaths()` has the path, told from the tables: a scan asks this of every
/// candidate, and the set would be made and thrown away each time.
bool isProtected(std::string_view path, std::string_view home)
{
    if (holds(systemFolders, path) || path == home) {
        return true;
    }
    if (!path.starts_with(home)) {
        return false;
    }
    const std::string_view rest = path.substr(home.size());
    return holds(homeFolders, rest) || (rest.starts_with(libraryPrefix) &&
                                        holds(libraryFolders, rest.substr(libraryPrefix.size())));
}

/// By the bare text, so that a home folder of "/" manages nothing rather than the whole disk.
bool isRootOf(std::string_view root, std::string_view path)
{
    return path.starts_with(root) && (path.size() == root.size() || path[root.size()] == '/');
}

bool isManaged(const std::string& path, const std::string& home)
{
    // No file can have such a path, and a system call would act on the part before the NUL, which
    // is not what was judged.
    if (path.find('\0') != std::string::npos) {
        return false;
    }
    return isRootOf(home, path) ||
           std::ranges::any_of(sharedRoots, [&](auto root) { return isRootOf(root, path); });
}

} // namespace

std::optional<std::string> pathRefusal(std::string_view path)
{
    const std::string expanded = expandTilde(path);
    if (trimmedText(expanded).empty()) {
        return "empty path";
    }
    if (!expanded.starts_with('/')) {
        return "not an absolute path";
    }
    const std::string standardized = standardizedPath(expanded);
    // Standardizing leaves no "..": this stays as a second lock, should that ever change.
    if (standardized.find("/../") != std::string::npos || standardized.ends_with("/..")) {
        return "path traversal";
    }
    const std::string home = homeFolder();
    if (isProtected(standardized, home)) {
        return standardized + " is a protected container";
    }
    if (isManaged(standardized, home)) {
        return std::nullopt;
    }
    return standardized + " is outside the locations Zolva manages";
}

std::set<std::string> protectedPaths()
{
    const std::string home = homeFolder();
    std::set<std::string> paths(systemFolders.begin(), systemFolders.end());
    paths.insert(home);
    for (const std::string_view folder : homeFolders) {
        paths.insert(std::string(home).append(folder));
    }
    for (const std::string_view folder : libraryFolders) {
        paths.insert(std::string(home).append(libraryPrefix).append(folder));
    }
    return paths;
}

} // namespace zolva
