#pragma once

#include "core/StatusTiles.h"
#include "ctl/Terminal.h"

#include <string>

/// The readings of the machine for people. Pure.
namespace zolva::ctl {

/// A line for each, fit for a terminal.
[[nodiscard]] std::string statusText(const StatusTiles& tiles, const Look& look);

/// What to send to a terminal so that the text stands in the place of the one sent before, which
/// had as many lines; the first goes where the cursor is.
[[nodiscard]] std::string drawnInPlace(const std::string& text, bool first);

} // namespace zolva::ctl
