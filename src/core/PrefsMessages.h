#pragma once

#include "core/PrefsStore.h"

#include <optional>
#include <string>

/// The words about settings that are not the user's own. Pure; paths may hold any bytes.
namespace zolva {

/// One sentence or two, as UTF-8; nothing where there is no trouble.
[[nodiscard]] std::optional<std::string> prefsTroubleText(const PrefsTrouble& trouble);
[[nodiscard]] std::string prefsUnreadText(const std::string& reason);

} // namespace zolva
