#pragma once

#include "platform/FileDescriptor.h"
#include "platform/FileIdentity.h"
#include "platform/SystemTrash.h"

#include <string>
#include <vector>

/// The user's own Trash and that of each volume: `files` holds the things, `info` where they came
/// from. Any thread.
namespace zolva {

struct TrashFolders
{
    FileDescriptor files;
    FileDescriptor info;
    std::string path;      ///< of the Trash, the parent of both
    std::string origin;    ///< what stands in an info file for the folder the item comes from
    FileIdentity identity; ///< of the Trash
};

/// "$XDG_DATA_HOME/Trash", or that of the home folder where the variable is not absolute.
[[nodiscard]] std::string homeTrashPath(const std::string& home);

enum class MissingTrash
{
    IsAnError,
    IsMade
};

[[nodiscard]] tl::expected<TrashFolders, TrashFailure> openHomeTrash(const std::string& home,
                                                                     MissingTrash missing);

/// The Trash of the volume that the open folder lies on: ".Trash/UID" at its top if that is safe,
/// else ".Trash-UID"; made if need be, for the user alone. One that others could have planted is
/// not taken.
[[nodiscard]] tl::expected<TrashFolders, TrashFailure> openVolumeTrash(int folder);

/// The Trash folders of a volume which are there; `top` is its topmost folder.
[[nodiscard]] std::vector<FileIdentity> volumeTrashes(int top);

/// The Trash for what stands in `folder`: the user's own on the same file system, else the
/// volume's. `path` is the folder's.
[[nodiscard]] tl::expected<TrashFolders, TrashFailure>
chooseTrash(const std::string& home, int folder, const std::string& path);

/// Writes, synced, that the item `name` came from `origin`; EEXIST where there is such a record.
/// Zero, or the errno, and nothing of ours stands there then.
[[nodiscard]] int recordTrashOrigin(const TrashFolders& trash, const std::string& name,
                                    const std::string& origin);

} // namespace zolva
