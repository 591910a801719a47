#pragma once

#include <string>
#include <vector>

/// Where the program is blind: places that exist and cannot be listed.
namespace zolva::diskAccess {

struct Location
{
    std::string id;
    std::string label;
    std::string path;

    friend bool operator==(const Location&, const Location&) = default;
};

/// The places that are probed, always these five in this order.
[[nodiscard]] std::vector<Location> probeLocations();

/// Those that exist as folders and cannot be listed, whatever the reason. Blocks; any thread.
[[nodiscard]] std::vector<Location> blockedLocations();

} // namespace zolva::diskAccess
