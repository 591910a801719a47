#include "files/DisplayPath.h"

#include "files/HomeFolder.h"
#include "platform/Utf8Text.h"

#include <cstdint>
#include <utility>

namespace zolva {

namespace {

constexpr std::string_view replacement = "\xEF\xBF\xBD";

std::uint8_t byteAt(std::string_view text, std::size_t index)
{
    return static_cast<std::uint8_t>(text[index]);
}

/// Walks the text; `bad(byte)` and `good(character)` append what stands for each.
template <typename Bad, typename Good>
std::string rewritten(std::string_view bytes, const Bad& bad, const Good& good)
{
    std::string result;
    result.reserve(bytes.size());
    while (!bytes.empty()) {
        const std::size_t length = characterLength(bytes);
        if (length == 0) {
            bad(result, byteAt(bytes, 0));
        } else {
            good(result, bytes.substr(0, length));
        }
        bytes.remove_prefix(length == 0 ? 1 : length);
    }
    return result;
}

void appendReplacement(std::string& result, std::uint8_t)
{
    result.append(replacement);
}

void appendPercent(std::string& result, std::uint8_t byte)
{
    constexpr std::string_view digits = "0123456789ABCDEF";
    result.push_back('%');
    result.push_back(digits[byte >> 4U]);
    result.push_back(digits[byte & 0x0FU]);
}

} // namespace

std::string tildePath(std::string_view path)
{
    const std::string home = homeFolder();
    if (path == home) {
        return "~";
    }
    if (path.starts_with(home) && path[home.size()] == '/') {
        return "~" + std::string(path.substr(home.size()));
    }
    return std::string(path);
}

std::string displayText(std::string_view bytes)
{
    return rewritten(bytes, appendReplacement, [](std::string& result, std::string_view character) {
        result.append(character);
    });
}

std::optional<std::string> rawPath(std::string_view bytes)
{
    bool anyBad = false;
    const auto bad = [&anyBad](std::string& result, std::uint8_t byte) {
        anyBad = true;
        appendPercent(result, byte);
    };
    const auto good = [](std::string& result, std::string_view character) {
        if (character == "%") {
            appendPercent(result, '%');
        } else {
            result.append(character);
        }
    };
    std::string encoded = rewritten(bytes, bad, good);
    return anyBad ? std::optional(std::move(encoded)) : std::nullopt;
}

std::string displayLine(std::string_view bytes)
{
    return rewritten(bytes, appendReplacement, [](std::string& result, std::string_view character) {
        result.append(steersTerminal(character) ? replacement : character);
    });
}

} // namespace zolva
