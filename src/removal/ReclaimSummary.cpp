#include "removal/ReclaimSummary.h"

#include "removal/runs/RunSelection.h"

namespace zolva {

namespace {

std::vector<Project> removableOf(const ReclaimSources& sources)
{
    return sources.purge ? removableProjects(*sources.purge, sources.whitelist)
                         : std::vector<Project>();
}

std::int64_t projectBytesOf(const ReclaimSources& sources)
{
    return sources.purge ? removableProjectBytes(*sources.purge, sources.whitelist) : 0;
}

std::int64_t trashBytesOf(const ReclaimSources& sources)
{
    return sources.trashUnreadable ? 0 : sources.trashBytes;
}

struct CleanFigures
{
    std::int64_t bytes = 0;
    std::int64_t categoriesWithWork = 0; ///< all but those that have bytes of which none may go
};

CleanFigures cleanFigures(const ReclaimSources& sources)
{
    CleanFigures figures;
    if (!sources.clean) {
        return figures;
    }
    const ExclusionRules rules(sources.whitelist);
    for (const Category& category : *sources.clean) {
        const std::int64_t bytes = removableBytes(category, rules);
        figures.bytes += bytes;
        figures.categoriesWithWork += bytes != 0 || totalBytes(category) < 1 ? 1 : 0;
    }
    return figures;
}

} // namespace

std::int64_t cleanableBytes(const ReclaimSources& sources)
{
    return sources.clean ? removableBytes(*sources.clean, sources.whitelist) : 0;
}

std::array<ReclaimRow, 4> reclaimRows(const ReclaimSources& sources)
{
    const std::vector<Project> projects = removableOf(sources);
    const CleanFigures clean = cleanFigures(sources);
    return {{{"clean", "Caches", "sparkles", clean.bytes, clean.categoriesWithWork, "category",
              "clean"},
             {"purge", "Build artifacts", "folder.badge.minus", bytesOf(projects),
              static_cast<std::int64_t>(projects.size()), "project", "purge"},
             {"installer", "Installers", "shippingbox.fill", bytesOf(sources.installers),
              static_cast<std::int64_t>(sources.installers.size()), "file", "installer"},
             {"trash", "Trash", "trash.fill", trashBytesOf(sources),
              sources.trashUnreadable ? 0 : sources.trashCount, "item", std::nullopt}}};
}

std::int64_t reclaimTotal(const ReclaimSources& sources)
{
    return cleanableBytes(sources) + projectBytesOf(sources) + bytesOf(sources.installers) +
           trashBytesOf(sources);
}

std::int64_t scannedReclaimBytes(const std::vector<Category>* liveCats,
                                 const ReclaimSources& sources)
{
    return (liveCats ? removableBytes(*liveCats, sources.whitelist) : 0) + projectBytesOf(sources);
}

} // namespace zolva
