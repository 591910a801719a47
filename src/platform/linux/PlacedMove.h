#pragma once

#include <string>

namespace zolva {

/// As moveNoReplace, on file systems that know no rename that spares what is there: something empty
/// of our own takes the new name first, and the plain rename replaces that. 0, or the errno. Any
/// thread.
[[nodiscard]] int placedMove(int fromFolder, const std::string& from, int toFolder,
                             const std::string& to);

} // namespace zolva
