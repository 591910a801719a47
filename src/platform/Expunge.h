#pragma once

#include "platform/FileDescriptor.h"
#include "platform/FileIdentity.h"
#include "platform/SystemTrash.h"

#include <string>

/// Where things of the Trash are deleted: out of sight first, so that nobody puts anything back, or
/// looks into it, that is half gone. Any thread.
namespace zolva {

/// The folder for that, on the Trash's own file system, made for the user alone if need be. Nothing
/// open, with errno, if it cannot be had or is not ours.
[[nodiscard]] FileDescriptor openExpunged(const PinnedTrash& trash);

/// The folder of that name below the parent, made if need be, if it is this user's and nobody else
/// may write to it; else nothing open, with errno. For the above.
[[nodiscard]] FileDescriptor openOwnFolder(int parent, const char* name);

/// Moves the entry, if it is still `expected`, into the open folder under a name of its own. The
/// name, or the errno, and it is in its place then: ENOENT if something else or nothing is.
[[nodiscard]] tl::expected<std::string, int> expunge(int folder, const std::string& name,
                                                     const FileIdentity& expected, int expunged);

} // namespace zolva
