#pragma once

#include <cstdint>
#include <optional>

namespace zolva {

/// The mount that the open folder lies on; two mounts of one file system have the same device.
/// Nothing where the system does not tell. Any thread.
[[nodiscard]] std::optional<std::uint64_t> mountId(int folder);

} // namespace zolva
