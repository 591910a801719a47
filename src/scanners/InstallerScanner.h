#pragma once

#include "files/Age.h"
#include "files/Records.h"

#include <array>
#include <string>
#include <string_view>
#include <vector>

/// Disk images and packages left behind, at the top of a few folders.
namespace zolva {

/// Of which a name must have one, in any case.
extern const std::array<std::string_view, 4> installerExtensions;

class InstallerScanner
{
public:
    struct Source
    {
        std::string path;
        std::string label;
    };

    /// The folders looked at, in this order.
    [[nodiscard]] static std::vector<Source> sources();

    /// The path with every occurrence of the home path, not only the one in front, as "~". Pure.
    [[nodiscard]] static std::string shownPath(std::string path, std::string_view home);

    /// Largest first, equal sizes in source and then listing order. Blocks; any thread.
    [[nodiscard]] static std::vector<InstallerItem> scan(TimePoint now);
};

} // namespace zolva
