#include "updates/StrictBase64.h"

#include <sodium.h>

#include <algorithm>
#include <cstddef>

namespace zolva {

namespace {

/// The library (1.0.18) takes some bytes above ASCII for letters.
bool isAscii(std::string_view text)
{
    return std::all_of(text.begin(), text.end(),
                       [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

} // namespace

std::optional<std::vector<unsigned char>> strictBase64(std::string_view text)
{
    // The library must have something to point at.
    if (text.empty()) {
        return std::vector<unsigned char>();
    }
    std::vector<unsigned char> bytes(text.size());
    std::size_t length = 0;
    const char* end = nullptr;
    if (!isAscii(text) ||
        sodium_base642bin(bytes.data(), bytes.size(), text.data(), text.size(), nullptr, &length,
                          &end, sodium_base64_VARIANT_ORIGINAL) != 0 ||
        end != text.data() + text.size()) {
        return std::nullopt;
    }
    bytes.resize(length);
    return bytes;
}

} // namespace zolva
