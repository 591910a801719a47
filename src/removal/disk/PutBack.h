#pragma once

#include "platform/FileIdentity.h"

#include <tl/expected.hpp>

#include <optional>
#include <string>

/// Out of the Trash again. Nothing is ever overwritten; a failure leaves the item in the Trash.
/// Blocks; any thread.
namespace zolva {

/// Moves what landed in the Trash back to the path it had. The system's words where that fails,
/// also where something else than `expected` lies there by now.
[[nodiscard]] tl::expected<void, std::string>
putBackItem(const std::string& landed, const std::string& original,
            const std::optional<FileIdentity>& expected = std::nullopt);

/// Puts the entry of that name in the user's own Trash back to where its record says it came from,
/// if the guard lets that path be touched; a folder that is gone meanwhile is made anew. The path,
/// or a text that begins with the name.
[[nodiscard]] tl::expected<std::string, std::string> putBackByName(const std::string& name);

} // namespace zolva
