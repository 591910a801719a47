#pragma once

#include "core/MoLocation.h"

#include <QString>

#include <optional>
#include <string>

/// What the Settings screen says of its switches and of the outside tool. Pure.
namespace zolva {

[[nodiscard]] QString keepInTrashNote(bool on);
/// The switch's state for a screen reader.
[[nodiscard]] QString keepInTrashSpoken(bool on);

/// A version is absent where it is unknown.
using ToolVersion = std::optional<std::string>;

[[nodiscard]] QString toolLine(const ToolVersion& version, MoLocation::Kind kind);
[[nodiscard]] QString toolAbout(const ToolVersion& version);
[[nodiscard]] QString toolSourceNote(const ToolVersion& version);
/// Where its source is: that of the very version, or the project's main page.
[[nodiscard]] std::string toolPage(const ToolVersion& version);

} // namespace zolva
