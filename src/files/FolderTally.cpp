#include "files/FolderTally.h"

#include "files/TreeWalker.h"
#include "files/WalkSystem.h"

#include <algorithm>

namespace zolva {

namespace {

/// Whether something stands at the path; a link that leads nowhere is nothing.
bool standsAt(const std::string& path, NodeStatus& itself)
{
    NodeStatus target;
    return statusOf(path, LastLink::Refuse, itself) &&
           (itself.kind != NodeKind::Link || statusOf(path, LastLink::Follow, target));
}

} // namespace

std::int64_t allocatedSize(const std::string& path)
{
    NodeStatus status;
    return statusOf(path, LastLink::Refuse, status) ? status.allocated : 0;
}

std::optional<std::int64_t> sizeOfWhatStands(const std::string& path)
{
    NodeStatus status;
    return standsAt(path, status) ? std::optional(status.allocated) : std::nullopt;
}

Tally folderTally(const std::string& path)
{
    return folderTallies({path}).front();
}

std::vector<Tally> folderTallies(const std::vector<std::string>& paths,
                                 const WalkProgressTold& told)
{
    std::vector<Tally> tallies(paths.size());
    std::vector<std::string> folders;
    std::vector<std::size_t> places;
    for (std::size_t i = 0; i < paths.size(); ++i) {
        NodeStatus itself;
        if (!standsAt(paths[i], itself)) {
            continue;
        }
        if (itself.kind != NodeKind::Folder) {
            tallies[i] = {1, itself.allocated};
            continue;
        }
        tallies[i] = {1, 0};
        folders.push_back(paths[i]);
        places.push_back(i);
    }
    WalkOptions options;
    options.keepLargest = false;
    options.progress = told;
    const std::vector<Walk> walks = walkTrees(folders, options);
    for (std::size_t i = 0; i < walks.size(); ++i) {
        tallies[places[i]] = {std::max<std::int64_t>(1, walks[i].files), walks[i].bytes};
    }
    return tallies;
}

} // namespace zolva
