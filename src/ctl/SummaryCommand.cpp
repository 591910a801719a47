#include "ctl/Commands.h"
#include "ctl/JsonText.h"
#include "ctl/Progress.h"
#include "ctl/Table.h"
#include "ctl/TrashReading.h"
#include "files/DisplayPath.h"
#include "files/ExclusionRules.h"
#include "files/HomeFolder.h"
#include "files/SizeText.h"
#include "scanners/CleanScan.h"
#include "scanners/DiskAccess.h"
#include "scanners/InstallerScanner.h"
#include "scanners/ProjectScan.h"
#include "scanners/StorageAnalysis.h"

#include <cstdint>
#include <string>
#include <vector>

namespace zolva::ctl {

namespace {

struct Sums
{
    std::int64_t clean = 0;
    std::int64_t purge = 0;
    std::int64_t installers = 0;
    TrashReading trash;
    std::vector<diskAccess::Location> blocked;

    [[nodiscard]] std::int64_t total() const { return clean + purge + installers + trash.bytes; }
};

Sums sumsOf(const Request& request)
{
    const std::vector<std::string> excluded = request.exclusionList();
    Progress progress;
    Sums sums;
    for (const Category& category : scanCategories(minimumBytes, progress.teller())) {
        for (const CatPath& path : category.paths) {
            sums.clean += path.prot || isExcluded(path.p, excluded) ? 0 : path.b;
        }
    }
    for (const Project& project : scanProjects(request.now, artifactFloor, progress.teller())) {
        sums.purge += isExcluded(projectKey(project), excluded) ? 0 : project.b;
    }
    for (const InstallerItem& item : InstallerScanner::scan(request.now)) {
        sums.installers += isExcluded(item.p, excluded) ? 0 : item.b;
    }
    sums.trash = readTrash();
    sums.blocked = diskAccess::blockedLocations();
    return sums;
}

std::string summaryText(const Sums& sums, const Look& look)
{
    struct Line
    {
        const char* what;
        std::int64_t bytes;
        const char* command;
    };
    const Line lines[] = {{"Caches and logs", sums.clean, "zolvactl clean"},
                          {"Build artifacts", sums.purge, "zolvactl purge"},
                          {"Installers", sums.installers, "zolvactl installers"},
                          {"Trash", sums.trash.bytes, "zolvactl empty-trash"}};
    Table table({{}, {{}, Side::Right}, {}, {{}, Side::Right}, {}});
    for (const Line& line : lines) {
        table.row({{line.what},
                   {sizeText(line.bytes), Ink::Strong},
                   {shareBar(line.bytes, sums.total()), Ink::Bar},
                   {shareText(line.bytes, sums.total())},
                   {line.command, Ink::Faint}});
    }
    table.row({{"Total", Ink::Strong}, {sizeText(sums.total()), Ink::Strong}, {}, {}, {}});
    const VolumeSpace space = volumeCapacity();
    std::string text = "What can be given back in " +
                       painted(displayLine(homeFolder()), Ink::Strong, look) + "\n\n" +
                       table.text(look) + "\n" + sizeText(space.available) + " of " +
                       sizeText(space.total) + " available on this volume.\n";
    if (!sums.blocked.empty()) {
        std::string labels;
        for (const diskAccess::Location& location : sums.blocked) {
            labels += (labels.empty() ? "" : ", ") + location.label;
        }
        text +=
            painted("Cannot look into: " + labels + ". The sums leave them out.", Ink::Bad, look) +
            "\n";
    }
    return text;
}

} // namespace

Answer summary(const Request& request)
{
    const Sums sums = sumsOf(request);
    if (!request.json) {
        return {summaryText(sums, request.look), {}, {}};
    }
    Json ids = Json::array();
    for (const diskAccess::Location& location : sums.blocked) {
        ids.push_back(location.id);
    }
    return document({{"clean", sums.clean},
                     {"purge", sums.purge},
                     {"installers", sums.installers},
                     {"trash", sums.trash.bytes},
                     {"total", sums.total()},
                     {"blocked", ids}});
}

} // namespace zolva::ctl
