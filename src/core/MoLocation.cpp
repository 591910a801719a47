#include "core/MoLocation.h"

#include "core/Resources.h"
#include "files/DisplayPath.h"
#include "files/PathText.h"
#include "platform/WholeFile.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstddef>
#include <filesystem>
#include <iterator>
#include <string_view>
#include <system_error>
#include <utility>

namespace zolva {

namespace {

/// Far more than a version can be.
constexpr std::size_t versionLimit = std::size_t{64} * 1024;

std::optional<std::string> shippedVersion(const std::string& executable)
{
    const std::string folder = parentPath(parentPath(executable));
    const WholeFile file = readWholeFile(joinedPath(folder, "VERSION"), versionLimit);
    if (file.error || displayText(file.bytes) != file.bytes) {
        return std::nullopt;
    }
    const std::string version(trimmedText(file.bytes));
    if (version.empty() || version == "bundled") {
        return std::nullopt;
    }
    return version;
}

std::vector<std::string> pieces(std::string_view path)
{
    std::vector<std::string> all;
    while (!path.empty()) {
        const std::size_t slash = path.find('/');
        if (slash != 0) {
            all.emplace_back(path.substr(0, slash));
        }
        path.remove_prefix(slash == std::string_view::npos ? path.size() : slash + 1);
    }
    return all;
}

/// A package manager links the command to ".../mole/VERSION/bin/...".
std::optional<std::string> installedVersion(const std::string& link)
{
    std::error_code error;
    const std::filesystem::path target = std::filesystem::read_symlink(link, error);
    if (error) {
        return std::nullopt;
    }
    const std::vector<std::string> parts = pieces(target.native());
    const auto mole = std::find(parts.begin(), parts.end(), "mole");
    if (mole == parts.end() || std::next(mole) == parts.end()) {
        return std::nullopt;
    }
    return *std::next(mole);
}

} // namespace

const char* kindText(MoLocation::Kind kind)
{
    switch (kind) {
    case MoLocation::Kind::Shipped:
        return "shipped";
    case MoLocation::Kind::Installed:
        return "installed";
    case MoLocation::Kind::Absent:
        break;
    }
    return "absent";
}

bool isExecutableFile(const std::string& path)
{
    struct stat status
    {};
    return ::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) &&
           ::access(path.c_str(), X_OK) == 0;
}

std::string toolLicense(const std::vector<std::string>& resources)
{
    for (const std::string& folder : resources) {
        std::string path = joinedPath(folder, "mole/LICENSE");
        std::error_code ignored;
        if (std::filesystem::is_regular_file(path, ignored)) {
            return path;
        }
    }
    return {};
}

const std::vector<std::string>& installedMo()
{
    static const std::vector<std::string> places = {"/opt/homebrew/bin/mo", "/usr/local/bin/mo"};
    return places;
}

MoLocation findMo(const std::vector<std::string>& resources,
                  const std::vector<std::string>& installed)
{
    for (const std::string& folder : resources) {
        std::string path = joinedPath(folder, "mole/bin/mole");
        if (isExecutableFile(path)) {
            return {std::move(path), MoLocation::Kind::Shipped};
        }
    }
    for (const std::string& path : installed) {
        if (isExecutableFile(path)) {
            return {path, MoLocation::Kind::Installed};
        }
    }
    return {installed.front(), MoLocation::Kind::Absent};
}

const MoLocation& moLocation()
{
    static const MoLocation found = findMo(resourceFolders(), installedMo());
    return found;
}

std::optional<std::string> moVersion(const MoLocation& location)
{
    switch (location.kind) {
    case MoLocation::Kind::Shipped:
        return shippedVersion(location.path);
    case MoLocation::Kind::Installed:
        return installedVersion(location.path);
    case MoLocation::Kind::Absent:
        break;
    }
    return std::nullopt;
}

} // namespace zolva
