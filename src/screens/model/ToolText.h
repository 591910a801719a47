#pragma once

#include "core/MoLocation.h"

#include <QString>

/// What is said of the outside tool. Pure.
namespace zolva {

/// "Bundled", "Homebrew" or "Not found".
[[nodiscard]] QString toolSource(MoLocation::Kind kind);

} // namespace zolva
