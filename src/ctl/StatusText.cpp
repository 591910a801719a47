#include "ctl/StatusText.h"

#include "ctl/Table.h"
#include "files/DisplayPath.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstdio>

namespace zolva::ctl {

namespace {

constexpr double gigabyte = 1e9;
/// Percent of the memory in use from which on it is short.
constexpr double highPressure = 85;

std::string fixed(double value, int decimals)
{
    const int length = std::snprintf(nullptr, 0, "%.*f", decimals, value);
    std::string text(static_cast<std::size_t>(length) + 1, '\0');
    std::snprintf(text.data(), text.size(), "%.*f", decimals, value);
    text.pop_back();
    return text;
}

/// Columns for a number, so that nothing moves when a reading takes the place of another.
constexpr std::size_t numberColumns = 6;

std::string aligned(const std::string& number)
{
    return std::string(numberColumns - std::min(number.size(), numberColumns), ' ') + number;
}

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

std::array<StatusTile, 4> statusTiles(const StatusResult& status, const VolumeSpace& space)
{
    const CPU& cpu = status.cpu;
    const Memory& memory = status.memory;
    return {{
        {"Health", std::to_string(status.healthScore), "/ 100", status.healthScoreMsg},
        {"CPU", fixed(cpu.usage, 0), "%",
         "Load " + fixed(cpu.load1, 2) + " · " + fixed(cpu.load5, 2) + " · " +
             fixed(cpu.load15, 2)},
        {"Memory", fixed(gigabytes(memory.used), 1),
         "of " + std::to_string(std::llround(gigabytes(memory.total))) + " GB",
         pressureText(memory)},
        {"Free space", fixed(gigabytes(space.available), 0), "GB",
         fixed(freePercent(space), 0) + "% of " + fixed(gigabytes(space.total), 0) + " GB"},
    }};
}

std::string statusText(const std::array<StatusTile, 4>& tiles, const Look& look)
{
    Table table({{}, {{}, Side::Right}, {}, {}});
    for (const StatusTile& tile : tiles) {
        table.row({{tile.label},
                   {aligned(tile.value), Ink::Strong},
                   {tile.unit, Ink::Faint},
                   {displayLine(tile.sub), Ink::Faint}});
    }
    return table.text(look);
}

std::string drawnInPlace(const std::string& text, bool first)
{
    // A line that is wider than the terminal is cut, or the way back up would be longer.
    std::string drawn = "\x1b[?7l";
    if (!first) {
        drawn += "\x1b[" + std::to_string(std::count(text.begin(), text.end(), '\n')) + "A";
    }
    for (const char c : text) {
        drawn += c == '\n' ? "\x1b[K\n" : std::string(1, c);
    }
    return drawn + "\x1b[?7h";
}

} // namespace zolva::ctl
