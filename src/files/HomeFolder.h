#pragma once

#include <optional>
#include <string>

namespace zolva {

/// The user's home folder: `$HOME`, or the account's where that is unset, empty or relative.
/// Doubled and trailing slashes are tidied; no link is resolved; never empty ("/" at the least).
/// Any thread, if the environment is kept or nobody changes it meanwhile.
[[nodiscard]] std::string homeFolder();

/// The home folder that the named account has in the system's list of accounts, tidied likewise;
/// nothing if there is no such account, or none with an absolute home. Any thread.
[[nodiscard]] std::optional<std::string> accountHome(const std::string& user);

} // namespace zolva
