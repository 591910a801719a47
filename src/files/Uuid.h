#pragma once

#include <array>
#include <cstdint>

namespace zolva {

/// A random identifier (RFC 4122, version 4) of a row of one scan, and nothing beyond it.
struct Uuid
{
    std::array<std::uint8_t, 16> bytes{};

    friend bool operator==(const Uuid& a, const Uuid& b) { return a.bytes == b.bytes; }
};

/// Any thread.
[[nodiscard]] Uuid freshUuid();

} // namespace zolva
