#pragma once

#include <string>
#include <vector>

namespace zolva {

/// The folders that can hold this program's resources, in the order they are looked at. They follow
/// from where the executable stands: never from the current folder or a variable.
[[nodiscard]] std::vector<std::string> resourceFolders();

/// The same for an executable at the given path. Text alone.
[[nodiscard]] std::vector<std::string> resourceFoldersOf(const std::string& executable);

} // namespace zolva
