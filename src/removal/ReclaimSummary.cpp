#include "removal/ReclaimSummary.h"

#include "removal/runs/RunSelection.h"

#include <algorithm>
#include <numeric>

namespace zolva {

namespace {

std::vector<Project> removableOf(const ReclaimSources& sources)
{
    return sources.purge ? removableProjects(*sources.purge, sources.whitelist)
                         : std::vector<Project>();
}

std::int64_t trashBytesOf(const ReclaimSources& sources)
{
    return sources.trashUnreadable ? 0 : sources.trashBytes;
}

/// All but those that have bytes of which none may go.
std::int64_t categoriesWithWork(const ReclaimSources& sources)
{
    if (!sources.clean) {
        return 0;
    }
    return std::count_if(
        sources.clean->begin(), sources.clean->end(), [&sources](const Category& category) {
            return totalBytes(category) < 1 || removableBytes({category}, sources.whitelist) != 0;
        });
}

} // namespace

std::int64_t cleanableBytes(const ReclaimSources& sources)
{
    return sources.clean ? removableBytes(*sources.clean, sources.whitelist) : 0;
}

std::array<ReclaimRow, 4> reclaimRows(const ReclaimSources& sources)
{
    const std::vector<Project> projects = removableOf(sources);
    return {{{"clean", "Caches", "sparkles", cleanableBytes(sources), categoriesWithWork(sources),
              "category", "clean"},
             {"purge", "Build artifacts", "folder.badge.minus", bytesOf(projects),
              static_cast<std::int64_t>(projects.size()), "project", "purge"},
             {"installer", "Installers", "shippingbox.fill", bytesOf(sources.installers),
              static_cast<std::int64_t>(sources.installers.size()), "file", "installer"},
             {"trash", "Trash", "trash.fill", trashBytesOf(sources),
              sources.trashUnreadable ? 0 : sources.trashCount, "item", std::nullopt}}};
}

std::int64_t reclaimTotal(const ReclaimSources& sources)
{
    return cleanableBytes(sources) + bytesOf(removableOf(sources)) + bytesOf(sources.installers) +
           trashBytesOf(sources);
}

std::int64_t scannedReclaimBytes(const std::vector<Category>* liveCats,
                                 const ReclaimSources& sources)
{
    return (liveCats ? removableBytes(*liveCats, sources.whitelist) : 0) +
           bytesOf(removableOf(sources));
}

} // namespace zolva
