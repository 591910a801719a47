#pragma once

#include "core/StatusRecords.h"
#include "platform/VolumeSpace.h"

#include <array>
#include <string>

/// The readings of the machine that people are shown. Pure.
namespace zolva {

/// One reading, as it is worded.
struct StatusTile
{
    std::string label;
    std::string value;
    std::string unit;
    std::string sub;

    friend bool operator==(const StatusTile&, const StatusTile&) = default;
};

using StatusTiles = std::array<StatusTile, 4>;

/// Health, CPU, memory and free space, in this order. Texts of the tool are as it gave them.
[[nodiscard]] StatusTiles statusTiles(const StatusResult& status, const VolumeSpace& space);

} // namespace zolva
