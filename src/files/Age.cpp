#include "files/Age.h"

namespace zolva {

std::int64_t ageInDays(TimePoint now, std::optional<TimePoint> date)
{
    if (!date || *date >= now) {
        return 0;
    }
    // The two may lie further apart than the clock's own type can tell; unsigned arithmetic wraps
    // to the true distance.
    const auto ticks = static_cast<std::uint64_t>(now.time_since_epoch().count()) -
                       static_cast<std::uint64_t>(date->time_since_epoch().count());
    constexpr TimePoint::duration day = std::chrono::hours(24);
    return static_cast<std::int64_t>(ticks / static_cast<std::uint64_t>(day.count()));
}

} // namespace zolva
