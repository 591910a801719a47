#pragma once

#include <string>

namespace zolva {

/// Gives the entry another name or folder of the same file system, a link as a link, never in the
/// place of anything: EEXIST where something stands there. 0, or the errno. Any thread.
[[nodiscard]] int moveNoReplace(int fromFolder, const std::string& from, int toFolder,
                                const std::string& to);

} // namespace zolva
