#pragma once

#include "files/Age.h"
#include "files/Records.h"

#include <string>
#include <vector>

/// Disk images and packages left behind, at the top of a few folders.
namespace zolva {

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

    /// Largest first, equal sizes in source and then listing order. Blocks; any thread.
    [[nodiscard]] static std::vector<InstallerItem> scan(TimePoint now);
};

} // namespace zolva
