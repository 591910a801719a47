#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

/// How a list of rows becomes another one. Pure.
namespace zolva {

/// Neighbouring rows, both ends included.
struct RowSpan
{
    std::size_t first = 0;
    std::size_t last = 0;

    friend bool operator==(const RowSpan&, const RowSpan&) = default;
};

struct RowChange
{
    std::vector<RowSpan> removed;  ///< places in the old list, the last ones first
    std::vector<RowSpan> inserted; ///< places in the new list, the first ones first
};

/// By the keys of the rows. Nothing where it is quicker told as another list altogether: rows have
/// changed their order, or more than `limit` spans come or go.
[[nodiscard]] std::optional<RowChange> rowChange(const std::vector<std::string>& before,
                                                 const std::vector<std::string>& after,
                                                 std::size_t limit = 40);

} // namespace zolva
