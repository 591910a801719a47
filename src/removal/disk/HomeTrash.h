#pragma once

#include "removal/disk/KnownItem.h"

#include <tl/expected.hpp>

#include <string>
#include <vector>

/// The user's own Trash as it stands: for the meter, for emptying, for opening it. Any thread;
/// blocks on the disk.
namespace zolva {

/// The folder that holds what is in the Trash, whether or not it exists.
[[nodiscard]] std::string trashFolder();

/// Makes it, for the user alone, if there is none; else the system's words.
[[nodiscard]] tl::expected<void, std::string> makeTrashFolder();

/// The names of what lies in it, hidden ones too, sorted by their bytes. A Trash that does not
/// exist yet is empty. The system's words where it cannot be listed.
[[nodiscard]] tl::expected<std::vector<std::string>, std::string> listTrash();

/// The same, each with what it stands for at this moment.
[[nodiscard]] tl::expected<std::vector<KnownItem>, std::string> listTrashItems();

/// What became of an entry that nothing kept from being deleted.
enum class Deletion
{
    Done,
    AlreadyGone ///< by others; what stands there now, if anything, was not meant
};

/// Deletes one entry for good, by its name there, with its record; a link as a link. Neither guard
/// nor containment is asked: it is a child of the Trash by its name. What is not `expected` any
/// more stays. Writes to the log what became of it. The system's words where it could not go.
[[nodiscard]] tl::expected<Deletion, std::string>
deleteTrashEntry(const std::string& name,
                 const std::optional<FileIdentity>& expected = std::nullopt);

/// Deletes what an emptying or purge that ended early has taken out of sight already.
void deleteTrashLeftovers();

} // namespace zolva
