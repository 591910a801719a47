#include "mole/ReadingsPower.h"

#include "mole/Rates.h"
#include "mole/SystemFile.h"

#include <algorithm>
#include <cmath>
#include <iomanip>
#include <sstream>

namespace zolva::mole {

namespace {

constexpr double millionth = 1e-6;

/// A number that may be missing and is never negative where it counts here.
double amount(const std::string& path)
{
    return std::abs(static_cast<double>(fileNumber(path).value_or(0)));
}

/// Watts into or out of it. Some tell the power, some only current and voltage.
double powerOf(const std::string& folder)
{
    const double power = amount(folder + "/power_now") * millionth;
    return power > 0 ? power
                     : amount(folder + "/current_now") * millionth *
                           amount(folder + "/voltage_now") * millionth;
}

struct Charge
{
    double now = 0;
    double full = 0;
    double design = 0;
    double rate = 0; ///< an hour, of the same unit
};

/// Some batteries count energy, some charge.
Charge chargeOf(const std::string& folder)
{
    const bool energy = fileNumber(folder + "/energy_full").has_value();
    const std::string kind = folder + (energy ? "/energy_" : "/charge_");
    return {amount(kind + "now"), amount(kind + "full"), amount(kind + "full_design"),
            amount(folder + (energy ? "/power_now" : "/current_now"))};
}

BatteryReading batteryAt(const std::string& folder)
{
    const Charge charge = chargeOf(folder);
    BatteryReading battery;
    const double share = percent(charge.now, charge.full);
    battery.percent = static_cast<int>(std::clamp<std::int64_t>(
        fileNumber(folder + "/capacity").value_or(std::llround(share)), 0, 100));
    battery.status = fileLine(folder + "/status");
    battery.health = fileLine(folder + "/health");
    battery.cycleCount = static_cast<int>(
        std::clamp<std::int64_t>(fileNumber(folder + "/cycle_count").value_or(0), 0, 1'000'000));
    battery.capacity = static_cast<int>(std::lround(percent(charge.full, charge.design)));
    if (charge.rate > 0 && battery.status == "Discharging") {
        battery.timeLeft = hoursText(charge.now / charge.rate);
    } else if (charge.rate > 0 && battery.status == "Charging") {
        battery.timeLeft = hoursText((charge.full - charge.now) / charge.rate);
    }
    return battery;
}

} // namespace

std::string hoursText(double hours)
{
    constexpr double longest = 99;
    if (!(hours > 0) || hours > longest) {
        return {};
    }
    const long minutes = std::lround(hours * 60);
    std::ostringstream text;
    text << minutes / 60 << ':' << std::setw(2) << std::setfill('0') << minutes % 60;
    return text.str();
}

PowerReading readPower(const std::string& folder)
{
    PowerReading reading;
    for (const std::string& name : namesIn(folder)) {
        const std::string supply = folder + "/" + name;
        const std::string type = fileLine(supply + "/type");
        // Those of mice and keyboards say so, and do not feed the machine.
        if (fileLine(supply + "/scope") == "Device") {
            continue;
        }
        if (type != "Battery") {
            const bool plugged = fileNumber(supply + "/online").value_or(0) > 0;
            reading.adapterPower += plugged ? powerOf(supply) : 0.0;
            continue;
        }
        if (fileNumber(supply + "/present").value_or(1) == 0) {
            continue;
        }
        reading.batteries.push_back(batteryAt(supply));
        reading.batteryPower += powerOf(supply);
        const double tenths = static_cast<double>(fileNumber(supply + "/temp").value_or(0));
        reading.batteryTemperature = std::max(reading.batteryTemperature, tenths / 10);
    }
    return reading;
}

} // namespace zolva::mole
