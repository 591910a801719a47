#include "files/SizeText.h"

#include <array>
#include <charconv>

namespace zolva {

namespace {

/// By `to_chars` and not `printf`, whose decimal point is that of the process's locale.
std::string fixedText(double value, int digits)
{
    std::array<char, 48> buffer{};
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                      std::chars_format::fixed, digits);
    return {buffer.data(), result.ptr};
}

} // namespace

std::string sizeText(std::int64_t bytes)
{
    if (bytes < 1'000) {
        return std::to_string(bytes) + " bytes";
    }
    const auto value = static_cast<double>(bytes);
    if (bytes < 1'000'000) {
        return fixedText(value / 1000.0, 0) + " KB";
    }
    if (bytes < 1'000'000'000) {
        return fixedText(value / 1e6, 1) + " MB";
    }
    return fixedText(value / 1e9, 2) + " GB";
}

} // namespace zolva
