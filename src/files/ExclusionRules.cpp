#include "files/ExclusionRules.h"

#include "files/DisplayPath.h"
#include "files/HomeFolder.h"
#include "files/PathText.h"

#include <algorithm>

namespace zolva {

namespace {

constexpr auto nothingEntered = "Enter a path.";
constexpr auto notAbsolute = "Enter a full path, starting with / or ~.";
constexpr auto wouldExcludeAll = "That would exclude everything, switching Zolva off.";
constexpr auto alreadyCovered = "Already covered by an existing exclusion.";

} // namespace

bool isExcluded(std::string_view path, const std::vector<std::string>& list)
{
    const std::string expanded = expandTilde(path);
    return !expanded.empty() && std::ranges::any_of(list, [&](const std::string& entry) {
        return exclusionCovers(entry, expanded);
    });
}

bool exclusionCovers(std::string_view entry, std::string_view path)
{
    const std::string expanded = expandTilde(trimmedText(entry));
    if (expanded.empty() || expanded == "/") {
        return false;
    }
    std::string_view covered = expanded;
    if (covered.ends_with('/')) {
        covered.remove_suffix(1);
    }
    return path.starts_with(covered) &&
           (path.size() == covered.size() || path[covered.size()] == '/');
}

std::optional<std::string> validateExclusion(std::string_view text,
                                             const std::vector<std::string>& list)
{
    const std::string_view trimmed = trimmedText(text);
    if (trimmed.empty()) {
        return nothingEntered;
    }
    const std::string expanded = expandTilde(trimmed);
    if (!expanded.starts_with('/')) {
        return notAbsolute;
    }
    const std::string path = standardizedPath(expanded);
    // By where the home's text leads: it may hold dots, and the path has none any more.
    if (path == standardizedPath(homeFolder()) || path == "/") {
        return wouldExcludeAll;
    }
    if (isExcluded(path, list)) {
        return alreadyCovered;
    }
    return std::nullopt;
}

std::string storedExclusion(std::string_view text)
{
    return shortenPath(standardizedPath(expandTilde(trimmedText(text))));
}

std::string shortenPath(std::string_view path)
{
    return tildePath(path);
}

} // namespace zolva
