#pragma once

#include <string>
#include <vector>

/// Temperatures, fans and the power meter. One thread.
namespace zolva::mole {

/// Where the machine's sensors tell; empty for a sensor it does not have.
struct ThermalSensors
{
    std::string cpu;               ///< thousandths of a degree Celsius
    std::string gpu;               ///< the same
    std::string power;             ///< millionths of a watt, of the whole machine
    std::vector<std::string> fans; ///< turns a minute
};

/// The sensors that are told below `classes`, which is /sys/class.
[[nodiscard]] ThermalSensors findSensors(const std::string& classes);

/// Degrees Celsius, turns a minute, watts; 0 where there is no such sensor.
struct ThermalReading
{
    double cpu = 0;
    double gpu = 0;
    double fanSpeed = 0; ///< of the fastest
    int fanCount = 0;
    double systemPower = 0;
};

[[nodiscard]] ThermalReading readThermal(const ThermalSensors& sensors);

} // namespace zolva::mole
