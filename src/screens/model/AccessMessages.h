#pragma once

#include "scanners/DiskAccess.h"

#include <QString>

#include <vector>

/// The words about places that cannot be looked into. Pure.
namespace zolva {

/// "a", "a and b", "a, b and c"; empty where there is none.
[[nodiscard]] QString joinedLabels(const std::vector<diskAccess::Location>& blocked);

/// These name "some locations" where there is none.
[[nodiscard]] QString accessIntroText(const std::vector<diskAccess::Location>& blocked);
[[nodiscard]] QString accessIntroSpoken(const std::vector<diskAccess::Location>& blocked);

[[nodiscard]] QString accessNoticeTitle(const std::vector<diskAccess::Location>& blocked);
[[nodiscard]] QString accessNoticeSpoken(const std::vector<diskAccess::Location>& blocked);

} // namespace zolva
