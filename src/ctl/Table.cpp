#include "ctl/Table.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdio>
#include <utility>

namespace zolva::ctl {

namespace {

constexpr std::size_t barColumns = 16;
constexpr std::array<std::string_view, 8> eighths = {"", "▏", "▎", "▍", "▌", "▋", "▊", "▉"};

double shareOf(std::int64_t part, std::int64_t whole)
{
    return whole <= 0
               ? 0.0
               : std::clamp(static_cast<double>(part) / static_cast<double>(whole), 0.0, 1.0);
}

} // namespace

Table::Table(std::vector<Column> columns) : m_columns(std::move(columns)) {}

void Table::row(std::vector<Cell> cells)
{
    cells.resize(m_columns.size());
    m_rows.push_back(std::move(cells));
}

std::string Table::line(const std::vector<Cell>& cells, const std::vector<std::size_t>& widths,
                        const Look& look) const
{
    std::string result;
    std::string gap = "  ";
    for (std::size_t i = 0; i < cells.size(); ++i) {
        const std::string room(widths[i] - columnsOf(cells[i].text), ' ');
        const std::string text = painted(cells[i].text, cells[i].ink, look);
        const bool right = m_columns[i].side == Side::Right;
        // Blanks are held back until something follows, so that no line ends in them.
        gap += right ? room : "";
        if (!text.empty()) {
            result += gap + text;
            gap.clear();
        }
        gap += (right ? "" : room) + "  ";
    }
    return result + "\n";
}

std::string Table::text(const Look& look) const
{
    std::vector<Cell> heading;
    std::vector<std::size_t> widths;
    bool titled = false;
    for (const Column& column : m_columns) {
        heading.push_back({column.title, Ink::Faint});
        widths.push_back(columnsOf(column.title));
        titled = titled || !column.title.empty();
    }
    for (const std::vector<Cell>& cells : m_rows) {
        for (std::size_t i = 0; i < cells.size(); ++i) {
            widths[i] = std::max(widths[i], columnsOf(cells[i].text));
        }
    }
    std::string result = titled ? line(heading, widths, look) : std::string();
    for (const std::vector<Cell>& cells : m_rows) {
        result += line(cells, widths, look);
    }
    return result;
}

std::string shareBar(std::int64_t part, std::int64_t whole)
{
    const double share = shareOf(part, whole);
    auto filled = static_cast<std::size_t>(share * 8.0 * static_cast<double>(barColumns));
    filled = std::max<std::size_t>(filled, part > 0 && whole > 0 ? 1 : 0);
    std::string bar;
    for (std::size_t i = 0; i < filled / 8; ++i) {
        bar += "█";
    }
    bar += eighths[filled % 8];
    const std::size_t used = filled / 8 + (filled % 8 == 0 ? 0 : 1);
    return bar + std::string(barColumns - used, ' ');
}

std::string shareText(std::int64_t part, std::int64_t whole)
{
    if (whole <= 0) {
        return {};
    }
    const double percent = 100.0 * static_cast<double>(part) / static_cast<double>(whole);
    if (percent > 0.0 && percent < 0.05) {
        return "< 0.1 %";
    }
    std::array<char, 32> text{};
    const int length = std::snprintf(text.data(), text.size(), "%.1f %%", percent);
    return {text.data(), static_cast<std::size_t>(length)};
}

std::string countText(std::int64_t count)
{
    std::string digits = std::to_string(count);
    const std::size_t first = count < 0 ? 1 : 0;
    for (std::size_t place = digits.size(); place > first + 3;) {
        place -= 3;
        digits.insert(place, ",");
    }
    return digits;
}

std::string counted(std::int64_t count, std::string_view word)
{
    return countText(count) + " " + std::string(word) + (count == 1 ? "" : "s");
}

} // namespace zolva::ctl
