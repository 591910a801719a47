#pragma once

#include "platform/FileDescriptor.h"

#include <optional>
#include <string>

/// The mount that a folder lies on. Climbs by descriptor, so that no link or renaming misleads. Any
/// thread.
namespace zolva {

struct MountTop
{
    FileDescriptor folder; ///< can be looked below, not listed
    std::string path;      ///< without links
    std::string below;     ///< the way from there to the folder asked for; empty for itself
};

/// The topmost folder of the mount that the open folder lies on; nothing, with errno, if it cannot
/// be told.
[[nodiscard]] std::optional<MountTop> mountTop(int folder);

} // namespace zolva
