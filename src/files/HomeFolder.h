#pragma once

#include <string>

namespace zolva {

/// The user's home folder: `$HOME`, or the account's where that is unset, empty or relative.
/// Doubled and trailing slashes are tidied; no link is resolved; never empty ("/" at the least).
/// Any thread, as long as nobody changes the environment meanwhile.
[[nodiscard]] std::string homeFolder();

} // namespace zolva
