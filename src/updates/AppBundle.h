#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

/// The running program as an update sees it.
namespace zolva {

struct AppBundle
{
    std::optional<std::string> shortVersion;
    std::optional<std::string> version;       ///< the number of the build, as text
    std::vector<std::string> resourceFolders; ///< in the order they are looked at
    bool checksForUpdates = true;             ///< false where the build leaves that to others
};

/// The number of the build: a whole decimal number with or without a sign; 0 for anything else.
[[nodiscard]] std::int64_t currentBuild(const AppBundle& bundle);

/// "0.1.0"; a dash where there is none.
[[nodiscard]] std::string shortVersionText(const AppBundle& bundle);
/// "0.1.0 (1)", a dash for either that is missing.
[[nodiscard]] std::string versionText(const AppBundle& bundle);

/// The texts of the resource "UpdateConfig.plist"; empty for what is not there, is no property list
/// or no text.
struct UpdateConfig
{
    std::string manifestURL;
    std::string publicKey;
};

/// Reads the disk.
[[nodiscard]] UpdateConfig readConfig(const AppBundle& bundle);

/// Neither empty nor a template's value.
[[nodiscard]] bool isUsableSetting(const std::string& text);

} // namespace zolva
