#pragma once

#include "scanners/AppInventory.h"

#include <tl/expected.hpp>

#include <string>
#include <vector>

namespace zolva::ctl {

/// The applications of a file (or pipe) that holds the list as the outside tool prints it; else a
/// message for the user. Blocks.
[[nodiscard]] tl::expected<std::vector<UninstallApp>, std::string>
appsFromFile(const std::string& file);

} // namespace zolva::ctl
