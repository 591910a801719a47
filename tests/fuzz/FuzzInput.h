#pragma once

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <string_view>

/// What the fuzz targets share: reading the input, and ending with a word on what was broken.
namespace zolva::fuzz {

[[nodiscard]] inline std::string_view textOf(const std::uint8_t* data, std::size_t size)
{
    return {reinterpret_cast<const char*>(data), size};
}

inline void must(bool holds, const char* claim)
{
    if (!holds) {
        std::fprintf(stderr, "broken: %s\n", claim);
        std::abort();
    }
}

} // namespace zolva::fuzz
