#pragma once

#include "files/Age.h"

#include <tl/expected.hpp>

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

/// The installed applications: the list as the outside tool prints it, and what their bundles add.
namespace zolva {

struct UninstallApp
{
    std::string name;
    std::string bundleID;
    std::string source;
    std::string uninstallName;
    std::string path;
    std::string size; ///< as the tool prints it; never parsed
    std::optional<std::string> version;
    std::optional<TimePoint> installedDate;
    std::optional<std::int64_t> bundleBytes;

    [[nodiscard]] std::string id() const { return bundleID + path; }
};

/// Decodes one JSON array (RFC 8259) of objects with six text keys each; others are ignored.
/// The error is a text that names the key and its place. Pure.
[[nodiscard]] tl::expected<std::vector<UninstallApp>, std::string>
decodeAppList(std::string_view json);

/// Fills the three fields that come from the bundle. Blocks; any thread.
[[nodiscard]] UninstallApp enrichApp(UninstallApp app);

/// The version that the bundle's Info.plist (XML or binary) tells; nothing without one.
[[nodiscard]] std::optional<std::string> bundleVersion(const std::string& bundle);

/// The text of `key` in the dictionary at the top of a property list; nothing where the bytes are
/// no property list (XML or binary), or the value is no text. Pure.
[[nodiscard]] std::optional<std::string> plistText(std::string_view bytes, const char* key);

} // namespace zolva
