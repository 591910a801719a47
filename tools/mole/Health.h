#pragma once

#include <string_view>

/// One number for how the machine is doing, from readings that stand in the same document.
namespace zolva::mole {

struct HealthReadings
{
    double cpuUsage = 0;       ///< percent
    double loadPerCore = 0;    ///< load of the last minute by logical core
    double memoryUsed = 0;     ///< percent
    double memoryStall = 0;    ///< percent of time in which some program waited for memory
    double fullestDisk = 0;    ///< percent
    double cpuTemperature = 0; ///< degrees Celsius; 0 where unknown
};

struct Health
{
    int score = 100; ///< 0 to 100
    std::string_view message;

    friend bool operator==(const Health&, const Health&) = default;
};

/// A machine starts with 100 points. Each reading takes some away: none up to where it is still
/// fine, all of its own where it is as bad as it gets, and in between in proportion; the table is
/// in Health.cpp, and its points are 100 in all. The message names the reading that took most, or
/// says that nothing did, if each took less than one point. Pure.
[[nodiscard]] Health healthOf(const HealthReadings& readings);

} // namespace zolva::mole
