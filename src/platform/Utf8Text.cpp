#include "platform/Utf8Text.h"

#include <algorithm>
#include <array>
#include <cstdint>

namespace zolva {

namespace {

/// Every character that Unicode calls White_Space, in UTF-8. Each begins with a byte that can only
/// begin a character, so that finding one at the end of a text needs no reading from its start.
constexpr std::array<std::string_view, 25> whiteSpace = {
    "\t",           "\n",           "\v",           "\f",           "\r",           " ",
    "\xC2\x85",     "\xC2\xA0",     "\xE1\x9A\x80", "\xE2\x80\x80", "\xE2\x80\x81", "\xE2\x80\x82",
    "\xE2\x80\x83", "\xE2\x80\x84", "\xE2\x80\x85", "\xE2\x80\x86", "\xE2\x80\x87", "\xE2\x80\x88",
    "\xE2\x80\x89", "\xE2\x80\x8A", "\xE2\x80\xA8", "\xE2\x80\xA9", "\xE2\x80\xAF", "\xE2\x81\x9F",
    "\xE3\x80\x80",
};

std::uint8_t byteAt(std::string_view text, std::size_t index)
{
    return static_cast<std::uint8_t>(text[index]);
}

} // namespace

std::size_t characterLength(std::string_view text)
{
    const std::uint8_t lead = byteAt(text, 0);
    if (lead < 0x80) {
        return 1;
    }
    if (lead < 0xC2 || lead > 0xF4) {
        return 0;
    }
    const std::size_t length = lead < 0xE0 ? 2 : lead < 0xF0 ? 3 : 4;
    if (text.size() < length) {
        return 0;
    }
    // The bounds of the second byte are what shuts out overlong forms, surrogates and the rest.
    const std::uint8_t low = lead == 0xE0 ? 0xA0 : lead == 0xF0 ? 0x90 : 0x80;
    const std::uint8_t high = lead == 0xED ? 0x9F : lead == 0xF4 ? 0x8F : 0xBF;
    if (byteAt(text, 1) < low || byteAt(text, 1) > high) {
        return 0;
    }
    for (std::size_t index = 2; index < length; ++index) {
        if ((byteAt(text, index) & 0xC0) != 0x80) {
            return 0;
        }
    }
    return length;
}

bool steersTerminal(std::string_view character)
{
    const std::uint8_t lead = byteAt(character, 0);
    if (character.size() == 1) {
        return lead < 0x20 || lead == 0x7F;
    }
    if (character.size() == 2) {
        return lead == 0xC2 && byteAt(character, 1) < 0xA0; // U+0080 to U+009F
    }
    if (character.size() == 3 && lead == 0xE2) {
        const std::uint8_t second = byteAt(character, 1);
        const std::uint8_t third = byteAt(character, 2);
        return (second == 0x80 && third >= 0xA8 && third <= 0xAE) || // U+2028 to U+202E
               (second == 0x81 && third >= 0xA6 && third <= 0xA9);   // U+2066 to U+2069
    }
    return false;
}

bool isUtf8(std::string_view text)
{
    while (!text.empty()) {
        const std::size_t length = characterLength(text);
        if (length == 0) {
            return false;
        }
        text.remove_prefix(length);
    }
    return true;
}

std::string_view trimmedText(std::string_view text)
{
    const auto opens = [&](std::string_view blank) { return text.starts_with(blank); };
    const auto closes = [&](std::string_view blank) { return text.ends_with(blank); };
    for (auto blank = std::ranges::find_if(whiteSpace, opens); blank != whiteSpace.end();
         blank = std::ranges::find_if(whiteSpace, opens)) {
        text.remove_prefix(blank->size());
    }
    for (auto blank = std::ranges::find_if(whiteSpace, closes); blank != whiteSpace.end();
         blank = std::ranges::find_if(whiteSpace, closes)) {
        text.remove_suffix(blank->size());
    }
    return text;
}

} // namespace zolva
