#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

/// Running applications by the identifier of their bundle. Of this user, and never this process
/// itself. Main thread.
namespace zolva {

/// One running instance. The start tells it from a later process of the same id.
struct RunningApp
{
    int pid = 0;
    std::uint64_t started = 0; ///< of the system's own measure; 0 where it has none

    friend bool operator==(const RunningApp&, const RunningApp&) = default;
};

/// Reads the identifier of a bundle, by its path; nothing where it tells none.
using BundleIdentifierOf = std::function<std::optional<std::string>(const std::string& bundle)>;

/// The instances. Where the system does not itself know the identifier of what runs, they are the
/// processes whose executable lies in a bundle (a folder "….app") with that identifier.
[[nodiscard]] std::vector<RunningApp> runningApps(const std::string& bundleID,
                                                  const BundleIdentifierOf& identifierOf);

/// The polite request to end; nothing forces it.
void askToTerminate(const RunningApp& app);

[[nodiscard]] bool hasTerminated(const RunningApp& app);

} // namespace zolva
