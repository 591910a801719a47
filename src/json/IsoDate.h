#pragma once

#include <chrono>
#include <optional>
#include <string_view>

namespace zolva {

using DateTime = std::chrono::sys_time<std::chrono::microseconds>;

/// A date and time of the internet (RFC 3339, capital "T" and "Z"), with or without a fraction of a
/// second, which is cut to microseconds; nothing for anything else. The time zone must be there.
/// Pure.
[[nodiscard]] std::optional<DateTime> parseIsoDate(std::string_view text);

} // namespace zolva
