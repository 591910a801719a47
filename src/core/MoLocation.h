#pragma once

#include <optional>
#include <string>
#include <vector>

/// Where the outside tool stands, and which version of it. Paths are bytes.
namespace zolva {

struct MoLocation
{
    enum class Kind
    {
        Shipped,
        Installed,
        Absent
    };

    std::string path; ///< the executable to run; in the absent case the first installed candidate
    Kind kind = Kind::Absent;
};

/// The text of a kind: "shipped", "installed" or "absent".
[[nodiscard]] const char* kindText(MoLocation::Kind kind);

/// Looks for `mole/bin/mole` in each folder of resources, then for the installed candidates; the
/// first that is an executable file is it. `installed` must not be empty. Reads the disk.
[[nodiscard]] MoLocation findMo(const std::vector<std::string>& resources,
                                const std::vector<std::string>& installed);

/// The installed places, in the order they are looked at.
[[nodiscard]] const std::vector<std::string>& installedMo();

/// The search's outcome for this process: made at the first call, and never again.
[[nodiscard]] const MoLocation& moLocation();

/// The tool's version, if it can be told: from `mole/VERSION` for the shipped one, from the link's
/// target for an installed one. Reads the disk.
[[nodiscard]] std::optional<std::string> moVersion(const MoLocation& location = moLocation());

/// The licence that the tool came with, in the first folder of resources that has it; empty where
/// none has. Reads the disk.
[[nodiscard]] std::string toolLicense(const std::vector<std::string>& resources);

/// Whether an executable file stands at the path, links followed.
[[nodiscard]] bool isExecutableFile(const std::string& path);

} // namespace zolva
