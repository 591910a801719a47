#include "mole/ReadingsThermal.h"

#include "mole/SystemFile.h"

#include <algorithm>
#include <array>
#include <string_view>

namespace zolva::mole {

namespace {

/// Drivers that tell the temperature of the processor as a whole in their first sensor, and those
/// of graphics cards.
constexpr std::array<std::string_view, 6> cpuDrivers = {"coretemp",    "k10temp", "zenpower",
                                                        "cpu_thermal", "k8temp",  "via_cputemp"};
constexpr std::array<std::string_view, 4> gpuDrivers = {"amdgpu", "nouveau", "radeon", "xe"};
constexpr std::array<std::string_view, 1> powerDrivers = {"power_meter"};

/// Zones of firmware that stand for the processor, where no driver does.
constexpr std::array<std::string_view, 4> cpuZones = {"x86_pkg_temp", "cpu-thermal", "cpu_thermal",
                                                      "soc-thermal"};

bool isOneOf(std::string_view name, const auto& names)
{
    return std::ranges::find(names, name) != names.end();
}

void takeIfFirst(std::string& sensor, const std::string& path)
{
    if (sensor.empty() && fileNumber(path)) {
        sensor = path;
    }
}

double numberAt(const std::string& sensor, double unit)
{
    if (sensor.empty()) {
        return 0;
    }
    return static_cast<double>(fileNumber(sensor).value_or(0)) * unit;
}

} // namespace

ThermalSensors findSensors(const std::string& classes)
{
    ThermalSensors sensors;
    for (const std::string& name : namesIn(classes + "/hwmon")) {
        const std::string folder = classes + "/hwmon/" + name;
        const std::string driver = fileLine(folder + "/name");
        if (isOneOf(driver, cpuDrivers)) {
            takeIfFirst(sensors.cpu, folder + "/temp1_input");
        } else if (isOneOf(driver, gpuDrivers)) {
            takeIfFirst(sensors.gpu, folder + "/temp1_input");
        } else if (isOneOf(driver, powerDrivers)) {
            takeIfFirst(sensors.power, folder + "/power1_average");
        }
        for (const std::string& file : namesIn(folder)) {
            if (file.starts_with("fan") && file.ends_with("_input")) {
                sensors.fans.push_back(folder + "/" + file);
            }
        }
    }
    for (const std::string& name : namesIn(classes + "/thermal")) {
        const std::string folder = classes + "/thermal/" + name;
        if (isOneOf(fileLine(folder + "/type"), cpuZones)) {
            takeIfFirst(sensors.cpu, folder + "/temp");
        }
    }
    return sensors;
}

ThermalReading readThermal(const ThermalSensors& sensors)
{
    ThermalReading reading;
    reading.cpu = numberAt(sensors.cpu, 1e-3);
    reading.gpu = numberAt(sensors.gpu, 1e-3);
    reading.systemPower = numberAt(sensors.power, 1e-6);
    reading.fanCount = static_cast<int>(sensors.fans.size());
    for (const std::string& fan : sensors.fans) {
        reading.fanSpeed = std::max(reading.fanSpeed, numberAt(fan, 1));
    }
    return reading;
}

} // namespace zolva::mole
