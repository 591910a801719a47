#include "files/PathText.h"

#include "files/HomeFolder.h"

#include <algorithm>
#include <optional>

namespace zolva {

namespace {

std::string_view withoutTrailingSlashes(std::string_view path)
{
    const std::size_t last = path.find_last_not_of('/');
    return path.substr(0, last == std::string_view::npos ? 0 : last + 1);
}

} // namespace

std::string expandTilde(std::string_view path)
{
    if (!path.starts_with('~')) {
        return std::string(path);
    }
    const std::size_t slash = std::min(path.find('/'), path.size());
    const std::string_view user = path.substr(1, slash - 1);
    const std::optional<std::string> home =
        user.empty() ? homeFolder() : accountHome(std::string(user));
    if (!home) {
        return std::string(path);
    }
    return withTidySlashes(std::string(*home).append(path.substr(slash)));
}

std::string standardizedPath(std::string_view path)
{
    std::string result;
    result.reserve(path.size() + 1);
    for (std::size_t start = 0; start < path.size();) {
        const std::size_t end = std::min(path.find('/', start), path.size());
        const std::string_view component = path.substr(start, end - start);
        if (component == "..") {
            const std::size_t parent = result.rfind('/');
            result.resize(parent == std::string::npos ? 0 : parent);
        } else if (!component.empty() && component != ".") {
            result.append(1, '/').append(component);
        }
        start = end + 1;
    }
    return result.empty() ? "/" : result;
}

std::string withTidySlashes(std::string_view path)
{
    std::string result;
    result.reserve(path.size());
    for (const char byte : path) {
        if (byte != '/' || !result.ends_with('/')) {
            result.push_back(byte);
        }
    }
    if (result.size() > 1 && result.ends_with('/')) {
        result.pop_back();
    }
    return result;
}

std::string lastComponent(std::string_view path)
{
    const std::string_view bare = withoutTrailingSlashes(path);
    if (bare.empty()) {
        return path.empty() ? "" : "/";
    }
    const std::size_t slash = bare.rfind('/');
    return std::string(slash == std::string_view::npos ? bare : bare.substr(slash + 1));
}

std::string parentPath(std::string_view path)
{
    const std::string_view bare = withoutTrailingSlashes(path);
    const std::size_t slash = bare.rfind('/');
    if (slash == std::string_view::npos) {
        return bare.empty() && !path.empty() ? "/" : "";
    }
    const std::string_view parent = withoutTrailingSlashes(bare.substr(0, slash));
    return parent.empty() ? "/" : std::string(parent);
}

std::string joinedPath(std::string_view folder, std::string_view name)
{
    if (folder.empty()) {
        return std::string(name);
    }
    return std::string(withoutTrailingSlashes(folder)).append(1, '/').append(name);
}

bool isSameOrBelow(std::string_view path, std::string_view folder)
{
    if (folder.empty()) {
        return false;
    }
    const std::string_view bare = withoutTrailingSlashes(folder);
    if (!path.starts_with(bare)) {
        return false;
    }
    const std::string_view rest = path.substr(bare.size());
    return rest.starts_with('/') || (rest.empty() && !bare.empty());
}

std::string loweredExtension(std::string_view path)
{
    const std::string name = lastComponent(path);
    const std::size_t dot = name.rfind('.');
    if (dot == std::string::npos || dot == 0) {
        return {};
    }
    std::string extension = name.substr(dot + 1);
    for (char& letter : extension) {
        if (letter >= 'A' && letter <= 'Z') {
            letter = static_cast<char>(letter - 'A' + 'a');
        }
    }
    return extension;
}

} // namespace zolva
