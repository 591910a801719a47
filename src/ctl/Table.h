#pragma once

#include "ctl/Terminal.h"

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace zolva::ctl {

enum class Side
{
    Left,
    Right
};

struct Column
{
    std::string title; ///< a table whose titles are all empty has no heading
    Side side = Side::Left;
};

struct Cell
{
    std::string text;
    Ink ink = Ink::Plain;
};

/// Rows in aligned columns, for people. Texts must be fit for a terminal already.
class Table
{
public:
    explicit Table(std::vector<Column> columns);

    /// As many cells as there are columns.
    void row(std::vector<Cell> cells);

    /// Every line indented by two columns and ended.
    [[nodiscard]] std::string text(const Look& look) const;

private:
    [[nodiscard]] std::string line(const std::vector<Cell>& cells,
                                   const std::vector<std::size_t>& widths, const Look& look) const;

    std::vector<Column> m_columns;
    std::vector<std::vector<Cell>> m_rows;
};

/// A bar for `part` of `whole`, always 16 columns wide; anything above 0 can be seen.
[[nodiscard]] std::string shareBar(std::int64_t part, std::int64_t whole);

/// "12.3 %" of the whole; empty where there is no whole.
[[nodiscard]] std::string shareText(std::int64_t part, std::int64_t whole);

/// A count with separated thousands.
[[nodiscard]] std::string countText(std::int64_t count);

/// The count and the word, which takes an "s" unless the count is 1.
[[nodiscard]] std::string counted(std::int64_t count, std::string_view word);

} // namespace zolva::ctl
