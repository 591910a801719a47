#include "core/StatusTiles.h"

#include "files/FixedText.h"

#include <cmath>
#include <cstdint>

namespace zolva {

namespace {

constexpr double gigabyte = 1e9;
/// Percent of the memory in use from which on it is short.
constexpr double highPressure = 85;

double gigabytes(std::int64_t bytes)
{
    return static_cast<double>(bytes) / gigabyte;
}

std::string pressureText(const Memory& memory)
{
    if (!memory.pressure.empty()) {
        return memory.pressure;
    }
    return memory.usedPercent > highPressure ? "Pressure high" : "Pressure normal";
}

double freePercent(const VolumeSpace& space)
{
    return space.total < 1
               ? 0
               : static_cast<double>(space.available) / static_cast<double>(space.total) * 100;
}

} // namespace

StatusTiles statusTiles(const StatusResult& status, const VolumeSpace& space)
{
    const CPU& cpu = status.cpu;
    const Memory& memory = status.memory;
    return {{
        {"Health", std::to_string(status.healthScore), "/ 100", status.healthScoreMsg},
        {"CPU", fixedText(cpu.usage, 0), "%",
         "Load " + fixedText(cpu.load1, 2) + " · " + fixedText(cpu.load5, 2) + " · " +
             fixedText(cpu.load15, 2)},
        {"Memory", fixedText(gigabytes(memory.used), 1),
         "of " + fixedText(std::round(gigabytes(memory.total)), 0) + " GB", pressureText(memory)},
        {"Free space", fixedText(gigabytes(space.available), 0), "GB",
         fixedText(freePercent(space), 0) + "% of " + fixedText(gigabytes(space.total), 0) + " GB"},
    }};
}

} // namespace zolva
