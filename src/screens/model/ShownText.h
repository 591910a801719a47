#pragma once

#include <QString>

#include <cstdint>
#include <string_view>

/// Text of the model as it is shown. Pure.
namespace zolva {

/// What is no UTF-8 is shown as U+FFFD.
[[nodiscard]] QString shownText(std::string_view bytes);
/// The same for one line: nothing in it begins another one or turns its direction.
[[nodiscard]] QString shownLine(std::string_view bytes);
[[nodiscard]] QString shownSize(std::int64_t bytes);

/// "1 category", "2 categories".
[[nodiscard]] QString countedCategories(std::int64_t count);

} // namespace zolva
