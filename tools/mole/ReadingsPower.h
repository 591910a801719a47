#pragma once

#include <cstdint>
#include <string>
#include <vector>

/// Batteries and what feeds the machine. One thread.
namespace zolva::mole {

struct BatteryReading
{
    int percent = 0;
    std::string status;   ///< the kernel's word, such as "Charging" or "Full"
    std::string timeLeft; ///< "H:MM" until empty or full; empty where it cannot be told
    std::string health;   ///< the kernel's word; empty where it has none
    int cycleCount = 0;
    int capacity = 0; ///< percent of the capacity it was made with
};

struct PowerReading
{
    std::vector<BatteryReading> batteries; ///< the machine's own, not those of mice and the like
    double batteryTemperature = 0;         ///< degrees Celsius, of the warmest
    double batteryPower = 0;               ///< watts into or out of all batteries
    double adapterPower = 0;               ///< watts from all adapters that tell
};

/// What is told below `folder`, which is /sys/class/power_supply.
[[nodiscard]] PowerReading readPower(const std::string& folder);

/// Hours and minutes as "H:MM"; empty for what is no time (none, negative, over 99 hours). Pure.
[[nodiscard]] std::string hoursText(double hours);

} // namespace zolva::mole
