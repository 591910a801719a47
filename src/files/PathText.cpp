#include "files/PathText.h"

#include "files/HomeFolder.h"

#include <algorithm>
#include <array>
#include <optional>

namespace zolva {

namespace {

/// Every character that Unicode calls White_Space, in UTF-8. Each begins with a byte that can only
/// begin a character, so that finding one at the end of a text needs no reading from its start.
constexpr std::array<std::string_view, 25> whiteSpace = {
    "\t",           "\n",           "\v",           "\f",           "\r",           " ",
    "\xC2\x85",     "\xC2\xA0",     "\xE1\x9A\x80", "\xE2\x80\x80", "\xE2\x80\x81", "\xE2\x80\x82",
    "\xE2\x80\x83", "\xE2\x80\x84", "\xE2\x80\x85", "\xE2\x80\x86", "\xE2\x80\x87", "\xE2\x80\x88",
    "\xE2\x80\x89", "\xE2\x80\x8A", "\xE2\x80\xA8", "\xE2\x80\xA9", "\xE2\x80\xAF", "\xE2\x81\x9F",
    "\xE3\x80\x80",
};

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

std::string_view trimmedText(std::string_view text)
{
    const auto opens = [&](std::string_view blank) { return text.starts_with(blank); };
    const auto closes = [&](std::string_view blank) { return text.ends_with(blank); };
    for (auto blank = std::ranges::find_if(whiteSpace, opens); blank != whiteSpace.end();
         blank = std::ranges::find_if(whiteSpace, opens)) {
        text.remove_prefix(blank->size());
    }
    for (auto blank = std::ranges::find_if(whiteSpace, closes); blank != whiteSpace.end();
         blank = std::ranges::find_if(whiteSpace, closes)) {
        text.remove_suffix(blank->size());
    }
    return text;
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
