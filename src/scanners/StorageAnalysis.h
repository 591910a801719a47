#pragma once

#include "files/Age.h"
#include "files/TreeWalker.h"
#include "platform/VolumeSpace.h"

#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

/// Where the space went: a fixed set of well-known places, or one folder by its children. Reads the
/// disk only. Blocks; any thread, as long as nobody changes the environment meanwhile.
namespace zolva {

struct AnalyzeEntry
{
    std::string name;
    std::string path;
    std::int64_t size = 0;
    bool isDir = false;
    std::optional<TimePoint> lastAccess; ///< the scanner leaves it absent
};

struct LargeFile
{
    std::string name;
    std::string path;
    std::int64_t size = 0;
};

struct AnalyzeResult
{
    std::string path; ///< empty in the overview
    bool overview = false;
    std::vector<AnalyzeEntry> entries; ///< largest first
    std::vector<LargeFile> largeFiles; ///< at most 20, largest first
    std::int64_t totalSize = 0;
    std::int64_t totalFiles = 0;
};

struct AnalyzeLocation
{
    std::string label;
    std::string path;
    bool oldDownloads = false;
};

/// The places of the overview, in this order.
[[nodiscard]] std::vector<AnalyzeLocation> analysisTargets();

/// The places that exist, and the available bytes of the home's volume.
[[nodiscard]] std::pair<AnalyzeResult, std::int64_t> overview(TimePoint now,
                                                              const WalkProgressTold& told = {});

/// The children of one folder; empty where it cannot be listed.
[[nodiscard]] AnalyzeResult drillDown(const std::string& path, const WalkProgressTold& told = {});

/// The children of the folder that were last modified more than 90 days ago, taken whole.
[[nodiscard]] Walk walkOldDownloads(const std::string& path, TimePoint now);

/// Available and total bytes of the home's volume; 0 where unknown.
[[nodiscard]] VolumeSpace volumeCapacity();

} // namespace zolva
