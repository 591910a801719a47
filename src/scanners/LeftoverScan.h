#pragma once

#include "files/Records.h"
#include "scanners/AppInventory.h"

#include <string_view>
#include <vector>

/// What else on this disk belongs to an application, and who shares it.
namespace zolva {

/// The location of the row that is the bundle itself.
inline constexpr std::string_view bundleLabel = "Application bundle";

/// Whether a bundle identifier or a name may be built into a path. Pure.
[[nodiscard]] bool isUsableIdentifier(std::string_view text);

/// The places of one application, largest first. `apps` is the whole list, `app` included.
/// Blocks; any thread.
[[nodiscard]] std::vector<ResidueRow> scanResidue(const UninstallApp& app,
                                                  const std::vector<UninstallApp>& apps);

} // namespace zolva
