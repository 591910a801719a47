#pragma once

#include "ctl/Commands.h"
#include "scanners/AppInventory.h"

#include <tl/expected.hpp>

#include <string>
#include <vector>

namespace zolva::ctl {

/// The applications of the file that was named, or those that the tool lists; else what the user is
/// told. Blocks; makes an event loop of its own for the tool, so none may be there.
[[nodiscard]] tl::expected<std::vector<UninstallApp>, std::string>
listedApps(const Request& request);

} // namespace zolva::ctl
