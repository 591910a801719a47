#pragma once

#include <string>

namespace zolva {

/// With so many digits behind the point, which is a point in every locale. Pure.
[[nodiscard]] std::string fixedText(double value, int digits);

} // namespace zolva
