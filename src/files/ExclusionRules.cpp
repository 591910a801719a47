#include "files/ExclusionRules.h"

#include "files/DisplayPath.h"
#include "files/HomeFolder.h"
#include "files/PathText.h"

#include <algorithm>
#include <utility>

namespace zolva {

namespace {

constexpr auto nothingEntered = "Enter a path.";
constexpr auto notAbsolute = "Enter a full path, starting with / or ~.";
constexpr auto wouldExcludeAll = "That would exclude everything, switching Zolva off.";
constexpr auto alreadyCovered = "Already covered by an existing exclusion.";

/// The topmost path that an entry covers; empty where it covers none.
std::string coveredBy(std::string_view entry)
{
    std::string covered = expandTilde(trimmedText(entry));
    if (covered.ends_with('/')) {
        covered.pop_back();
    }
    return covered;
}

bool reaches(const std::string& covered, std::string_view path)
{
    // Where the text would have to end comes first: it tells most paths apart by one byte.
    const bool ends =
        path.size() > covered.size() ? path[covered.size()] == '/' : path.size() == covered.size();
    return ends && path.starts_with(covered);
}

bool anyReaches(const std::vector<std::string>& covered, std::string_view path)
{
    return std::ranges::any_of(covered,
                               [path](const std::string& one) { return reaches(one, path); });
}

} // namespace

ExclusionRules::ExclusionRules(const std::vector<std::string>& list)
{
    m_covered.reserve(list.size());
    for (const std::string& entry : list) {
        if (std::string covered = coveredBy(entry); !covered.empty()) {
            m_covered.push_back(std::move(covered));
        }
    }
}

bool ExclusionRules::covers(std::string_view path) const
{
    // Most paths need no expanding, and so no copy.
    return path.starts_with('~') ? anyReaches(m_covered, expandTilde(path))
                                 : anyReaches(m_covered, path);
}

bool isExcluded(std::string_view path, const std::vector<std::string>& list)
{
    return ExclusionRules(list).covers(path);
}

bool exclusionCovers(std::string_view entry, std::string_view path)
{
    const std::string covered = coveredBy(entry);
    return !covered.empty() && reaches(covered, path);
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
