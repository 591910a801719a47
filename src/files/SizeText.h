#pragma once

#include <cstdint>
#include <string>

namespace zolva {

/// The one text of a byte count: decimal units, the unit chosen before rounding. Pure.
[[nodiscard]] std::string sizeText(std::int64_t bytes);

} // namespace zolva
