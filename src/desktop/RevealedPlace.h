#pragma once

#include <string>

namespace zolva {

/// What is shown of a place that may be gone. Paths are bytes and absolute.
struct RevealedPlace
{
    std::string item;   ///< to be shown selected: what was asked for, or the folder it was in
    std::string folder; ///< to be opened by whoever cannot select: the nearest one that exists
};

/// Of a path that may begin with a tilde: itself where something stands there, be it a link that
/// leads nowhere; otherwise the first folder above it that exists, "/" at the last. Looks at the
/// disk; any thread.
[[nodiscard]] RevealedPlace revealedPlace(const std::string& path);

} // namespace zolva
