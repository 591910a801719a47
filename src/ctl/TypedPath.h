#pragma once

#include <string>
#include <string_view>

namespace zolva::ctl {

/// The path as typed, from the root: relative ones resolved against the current folder, without
/// "." and doubled slashes. What stands before a ".." is resolved as the system would; the last
/// component is never followed. The empty path stays empty: it names nothing. Any thread, as long
/// as nobody changes the current folder.
[[nodiscard]] std::string absolutePath(std::string_view typed);

/// The same, with "~" for the home folder, as the documents of the scans write it. A name that only
/// begins with "~" is a name.
[[nodiscard]] std::string namedPath(std::string_view typed);

} // namespace zolva::ctl
