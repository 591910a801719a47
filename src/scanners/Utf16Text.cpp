#include "scanners/Utf16Text.h"

#include <cstddef>
#include <cstdint>

namespace zolva {

namespace {

constexpr std::uint32_t firstOfPair = 0xD800;
constexpr std::uint32_t secondOfPair = 0xDC00;
constexpr std::uint32_t behindPairs = 0xE000;

void appendCharacter(std::string& text, std::uint32_t character)
{
    const auto tail = [&](unsigned shift) {
        text.push_back(static_cast<char>(0x80U | ((character >> shift) & 0x3FU)));
    };
    if (character < 0x80) {
        text.push_back(static_cast<char>(character));
    } else if (character < 0x800) {
        text.push_back(static_cast<char>(0xC0U | (character >> 6)));
        tail(0);
    } else if (character < 0x10000) {
        text.push_back(static_cast<char>(0xE0U | (character >> 12)));
        tail(6);
        tail(0);
    } else {
        text.push_back(static_cast<char>(0xF0U | (character >> 18)));
        tail(12);
        tail(6);
        tail(0);
    }
}

} // namespace

std::optional<std::string> textOfMarkedUtf16(std::string_view bytes)
{
    const bool bigEndian = bytes.starts_with("\xFE\xFF");
    if ((!bigEndian && !bytes.starts_with("\xFF\xFE")) || bytes.size() % 2 != 0) {
        return std::nullopt;
    }
    const auto unitAt = [&](std::size_t at) {
        const std::uint32_t first = static_cast<unsigned char>(bytes[at]);
        const std::uint32_t second = static_cast<unsigned char>(bytes[at + 1]);
        return bigEndian ? first << 8 | second : second << 8 | first;
    };
    std::string text;
    text.reserve(bytes.size() / 2);
    for (std::size_t at = 2; at < bytes.size(); at += 2) {
        std::uint32_t character = unitAt(at);
        if (character >= firstOfPair && character < behindPairs) {
            at += 2;
            const std::uint32_t second = at < bytes.size() ? unitAt(at) : 0;
            if (character >= secondOfPair || second < secondOfPair || second >= behindPairs) {
                return std::nullopt;
            }
            character = 0x10000 + ((character - firstOfPair) << 10) + (second - secondOfPair);
        }
        appendCharacter(text, character);
    }
    return text;
}

} // namespace zolva
