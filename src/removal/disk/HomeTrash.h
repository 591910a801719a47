#pragma once

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

/// Deletes one entry for good, by its name there, with its record; a link as a link. Neither guard
/// nor containment is asked: it is a child of the Trash by its name. Writes to the log what became
/// of it. What is already gone counts as deleted.
[[nodiscard]] tl::expected<void, std::string> deleteTrashEntry(const std::string& name);

} // namespace zolva
