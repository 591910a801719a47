#include "platform/linux/TrashNames.h"

#include "platform/NumberedName.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <random>

namespace zolva {

namespace {

/// Longer "extensions" are a part of the name that happens to hold a dot.
constexpr std::size_t longestExtension = 32;

std::string randomMark()
{
    static thread_local std::mt19937_64 source{(std::uint64_t{std::random_device{}()} << 32U) |
                                               std::random_device{}()};
    std::array<char, 20> text{};
    std::snprintf(text.data(), text.size(), "%016llx", static_cast<unsigned long long>(source()));
    return text.data();
}

/// At most so many bytes, not ending within a letter of UTF-8.
std::string shortened(std::string text, std::size_t longest)
{
    if (text.size() <= longest) {
        return text;
    }
    std::size_t end = longest;
    const auto isInside = [&text](std::size_t at) {
        return (static_cast<unsigned char>(text[at]) & 0xC0U) == 0x80U;
    };
    // Bytes that are not UTF-8 have no borders to look for.
    for (int back = 0; back < 3 && end > 0 && isInside(end); ++back) {
        --end;
    }
    text.resize(isInside(end) ? longest : end);
    return text;
}

} // namespace

std::string trashName(std::string_view name, int attempt, std::size_t longest)
{
    const std::size_t room =
        longest > trashInfoSuffix.size() + 64 ? longest - trashInfoSuffix.size() : 64;
    NameParts parts = nameParts(name);
    if (parts.extension.size() > longestExtension) {
        parts = {std::string(name), {}};
    }
    std::string mark;
    if (attempt > 0) {
        mark = " " + (attempt < countedTrashNames ? std::to_string(attempt + 1) : randomMark());
    }
    const std::string tail = mark + parts.extension;
    return shortened(parts.stem, room - tail.size()) + tail;
}

} // namespace zolva
