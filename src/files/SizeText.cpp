#include "files/SizeText.h"

#include "files/FixedText.h"

namespace zolva {

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
