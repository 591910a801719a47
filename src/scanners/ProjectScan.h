#pragma once

#include "files/Age.h"
#include "files/Records.h"
#include "files/TreeWalker.h"

#include <array>
#include <cstdint>
#include <string_view>
#include <vector>

/// Rebuildable build output in the usual project folders, found by name. Reads the disk only.
/// Blocks; any thread, as long as nobody changes the environment meanwhile.
namespace zolva {

extern const std::array<std::string_view, 8> projectRoots; ///< under home, in this order
extern const std::array<std::string_view, 10> artifactNames;
extern const std::array<std::string_view, 5> prunedFolderNames;

/// Bytes below which an artifact is not shown.
inline constexpr std::int64_t artifactFloor = 1'000'000;

/// Largest first, equal sizes in the order found.
[[nodiscard]] std::vector<Project> scanProjects(TimePoint now, std::int64_t floor = artifactFloor,
                                                const WalkProgressTold& told = {});

} // namespace zolva
