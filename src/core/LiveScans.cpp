#include "core/LiveScans.h"

#include "async/Background.h"
#include "scanners/CleanScan.h"
#include "scanners/LeftoverScan.h"
#include "scanners/ProjectScan.h"

#include <utility>

namespace zolva {

namespace {

std::vector<UninstallApp> enriched(std::vector<UninstallApp> apps)
{
    for (UninstallApp& app : apps) {
        app = enrichApp(std::move(app));
    }
    return apps;
}

Analysis analysisOf(const std::string& path, TimePoint now)
{
    if (path.empty()) {
        auto [result, free] = overview(now);
        return {std::move(result), free};
    }
    return {drillDown(path), volumeCapacity().available};
}

} // namespace

LiveScans backgroundScans(const Clock& clock)
{
    LiveScans scans;
    scans.clean = [] { return background([] { return scanCategories(); }); };
    scans.purge = [&clock] {
        return background([](TimePoint now) { return scanProjects(now); }, clock.now());
    };
    scans.enrich = [](std::vector<UninstallApp> apps) {
        return background(enriched, std::move(apps));
    };
    scans.residue = [](UninstallApp app, std::vector<UninstallApp> apps) {
        return background(scanResidue, std::move(app), std::move(apps));
    };
    scans.analyze = [&clock](std::string path) {
        return background(analysisOf, std::move(path), clock.now());
    };
    return scans;
}

} // namespace zolva
