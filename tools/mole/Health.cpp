#include "mole/Health.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace zolva::mole {

namespace {

struct Rule
{
    double HealthReadings::*reading;
    double fine;  ///< up to here it takes nothing
    double worst; ///< from here on it takes all its points
    double points;
    std::string_view message;
};

/// What keeps work from being done weighs most: full disks and memory end programs, a busy
/// processor only slows them down.
constexpr std::array<Rule, 6> rules = {{
    {&HealthReadings::fullestDisk, 85, 99, 25, "A disk is nearly full"},
    {&HealthReadings::memoryUsed, 80, 98, 25, "Memory is nearly full"},
    {&HealthReadings::memoryStall, 5, 40, 15, "Programs wait for memory"},
    {&HealthReadings::cpuUsage, 70, 100, 15, "The processor is busy"},
    {&HealthReadings::loadPerCore, 1.5, 5, 10, "Work is queuing up"},
    {&HealthReadings::cpuTemperature, 80, 100, 10, "The processor is hot"},
}};

} // namespace

Health healthOf(const HealthReadings& readings)
{
    constexpr double worthNaming = 1;
    double left = 100;
    double most = 0;
    Health health{100, "Everything looks fine"};
    for (const Rule& rule : rules) {
        const double excess = (readings.*rule.reading - rule.fine) / (rule.worst - rule.fine);
        // Written so that a reading that is no number takes nothing.
        const double taken = excess > 0 ? rule.points * std::min(excess, 1.0) : 0.0;
        left -= taken;
        if (taken >= worthNaming && taken > most) {
            most = taken;
            health.message = rule.message;
        }
    }
    health.score = static_cast<int>(std::lround(std::clamp(left, 0.0, 100.0)));
    return health;
}

} // namespace zolva::mole
