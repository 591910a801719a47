#pragma once

#include <chrono>
#include <cstdint>
#include <optional>

namespace zolva {

using TimePoint = std::chrono::system_clock::time_point;

/// Whole days from the date to now, truncated, never below 0; no date counts as now. Pure.
[[nodiscard]] std::int64_t ageInDays(TimePoint now, std::optional<TimePoint> date);

} // namespace zolva
