#include "scanners/ProjectScan.h"

#include "files/DisplayPath.h"
#include "files/FolderTally.h"
#include "files/HomeFolder.h"
#include "files/PathGuards.h"
#include "files/PathText.h"
#include "files/TreeWalker.h"
#include "platform/FileDates.h"

#include <algorithm>
#include <functional>
#include <set>
#include <string>

namespace zolva {

constexpr std::array<std::string_view, 8> projectRoots = {
    "Development", "Projects", "dev", "GitHub", "Code", "Sites", "src", "repos",
};

constexpr std::array<std::string_view, 10> artifactNames = {
    "node_modules", ".next", "target", ".build",  "dist",
    "build",        "venv",  ".venv",  ".gradle", ".tox",
};

constexpr std::array<std::string_view, 5> prunedFolderNames = {
    ".git", ".svn", ".hg", ".idea", ".vscode",
};

namespace {

/// The artifacts below all roots, in the order found. A root that is missing holds none.
std::vector<std::string> findArtifacts()
{
    const std::set<std::string, std::less<>> hits(artifactNames.begin(), artifactNames.end());
    const std::set<std::string, std::less<>> pruned(prunedFolderNames.begin(),
                                                    prunedFolderNames.end());
    const std::string home = homeFolder();
    std::vector<std::string> found;
    for (const std::string_view root : projectRoots) {
        findByName(joinedPath(home, root), hits, pruned, found);
    }
    return found;
}

} // namespace

std::vector<Project> scanProjects(TimePoint now, std::int64_t floor, const WalkProgressTold& told)
{
    const std::vector<std::string> found = findArtifacts();
    const std::vector<Tally> tallies = folderTallies(found, told);
    std::vector<Project> projects;
    for (std::size_t i = 0; i < found.size(); ++i) {
        const std::string& path = found[i];
        if (tallies[i].bytes < floor || pathRefusal(path)) {
            continue;
        }
        projects.push_back({.p = tildePath(parentPath(path)),
                            .artifact = lastComponent(path),
                            .b = tallies[i].bytes,
                            .age = ageInDays(now, contentModificationDate(path))});
    }
    std::ranges::stable_sort(projects, std::ranges::greater{}, &Project::b);
    return projects;
}

} // namespace zolva
