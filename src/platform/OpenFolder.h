#pragma once

#include "platform/FileDescriptor.h"

#include <string>

/// Folders and entries by paths of any length. Any thread.
namespace zolva {

/// The folder at an absolute path, links followed. Where it may be searched but not read, a
/// descriptor that can be looked below but not listed or synced. Nothing open, with errno, if it
/// cannot be had.
[[nodiscard]] FileDescriptor openFolder(const std::string& path);

/// An absolute path cut into its folder and its last name.
struct EntryPath
{
    std::string folder;
    std::string name; ///< empty where the path names no entry: the root, "..", not absolute, NUL
};

/// Trailing slashes and "/." aside, so that a link with a slash behind it is the link itself.
[[nodiscard]] EntryPath entryPath(const std::string& path);

enum class Presence
{
    Present,
    Absent,
    Unknown ///< it may not be looked at
};

/// Whether anything stands at the path; a link is something, wherever it leads.
[[nodiscard]] Presence presenceAt(const std::string& path);

/// Presence, with the doubtful taken for present: what may be there is not overwritten and not
/// told as gone.
[[nodiscard]] bool somethingAt(const std::string& path);

} // namespace zolva
