#include "ctl/StatusText.h"

#include "ctl/Table.h"
#include "files/DisplayPath.h"

#include <algorithm>
#include <cstddef>

namespace zolva::ctl {

namespace {

/// Columns for a number, so that nothing moves when a reading takes the place of another.
constexpr std::size_t numberColumns = 6;

std::string aligned(const std::string& number)
{
    return std::string(numberColumns - std::min(number.size(), numberColumns), ' ') + number;
}

} // namespace

std::string statusText(const StatusTiles& tiles, const Look& look)
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
