#pragma once

#include "core/StatusRecords.h"
#include "ctl/Terminal.h"
#include "platform/VolumeSpace.h"

#include <array>
#include <string>

/// The readings of the machine for people. Pure.
namespace zolva::ctl {

/// One reading, as it is worded.
struct StatusTile
{
    std::string label;
    std::string value;
    std::string unit;
    std::string sub;
};

/// Health, CPU, memory and free space, in this order. Texts of the tool are as it gave them.
/// Numbers are written as the process's locale has them.
[[nodiscard]] std::array<StatusTile, 4> statusTiles(const StatusResult& status,
                                                    const VolumeSpace& space);

/// A line for each, fit for a terminal.
[[nodiscard]] std::string statusText(const std::array<StatusTile, 4>& tiles, const Look& look);

/// What to send to a terminal so that the text stands in the place of the one sent before, which
/// had as many lines; the first goes where the cursor is.
[[nodiscard]] std::string drawnInPlace(const std::string& text, bool first);

} // namespace zolva::ctl
