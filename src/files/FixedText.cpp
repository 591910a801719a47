#include "files/FixedText.h"

#include <array>
#include <charconv>

namespace zolva {

std::string fixedText(double value, int digits)
{
    // Room for the largest number there is. By `to_chars` and not `printf`, whose decimal point is
    // that of the process's locale.
    std::array<char, 512> buffer{};
    const auto result = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                      std::chars_format::fixed, digits);
    return {buffer.data(), result.ptr};
}

} // namespace zolva
