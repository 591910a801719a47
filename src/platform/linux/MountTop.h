#pragma once

#include "platform/FileDescriptor.h"
#include "platform/FileIdentity.h"

#include <optional>
#include <string>
#include <vector>

/// Where a folder stands among the folders and mounts above it. Climbs by descriptor, so that no
/// link or renaming misleads. Any thread.
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

/// The open folder and those above it, up to the root or to what may not be searched; nothing,
/// with errno, after any other error.
[[nodiscard]] std::optional<std::vector<FileIdentity>> foldersUpward(int folder);

} // namespace zolva
