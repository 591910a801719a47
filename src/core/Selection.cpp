#include "core/Selection.h"

#include <algorithm>
#include <span>

namespace zolva {

namespace {

void tick(PickSet& picked, const std::string& row)
{
    picked.insert(row);
}

void tick(PickMap& picked, const std::string& row)
{
    picked[row] = true;
}

void flip(PickSet& picked, const std::string& row)
{
    if (picked.erase(row) == 0) {
        picked.insert(row);
    }
}

void flip(PickMap& picked, const std::string& row)
{
    bool& ticked = picked[row];
    ticked = !ticked;
}

/// The rows from the anchor to the row, both included; none where no range is meant.
std::span<const std::string> rangeOf(const PickAnchor& anchor, const std::string& row,
                                     const std::vector<std::string>& order, bool shift)
{
    if (!shift || !anchor) {
        return {};
    }
    const auto from = std::find(order.begin(), order.end(), *anchor);
    const auto to = std::find(order.begin(), order.end(), row);
    if (from == order.end() || to == order.end()) {
        return {};
    }
    return {std::min(from, to), std::max(from, to) + 1};
}

template <typename Picked>
void pick(Picked& picked, PickAnchor& anchor, const std::string& row,
          const std::vector<std::string>& order, bool shift)
{
    const std::span<const std::string> range = rangeOf(anchor, row, order, shift);
    for (const std::string& each : range) {
        tick(picked, each);
    }
    if (range.empty()) {
        flip(picked, row);
    }
    anchor = row;
}

} // namespace

void pickRow(PickSet& picked, PickAnchor& anchor, const std::string& row,
             const std::vector<std::string>& order, bool shift)
{
    pick(picked, anchor, row, order, shift);
}

void pickRow(PickMap& picked, PickAnchor& anchor, const std::string& row,
             const std::vector<std::string>& order, bool shift)
{
    pick(picked, anchor, row, order, shift);
}

void keepPicked(PickSet& picked, const std::set<std::string>& rows)
{
    std::erase_if(picked, [&](const std::string& row) { return !rows.contains(row); });
}

void keepPicked(PickMap& picked, const std::set<std::string>& rows)
{
    std::erase_if(picked,
                  [&](const auto& entry) { return !entry.second || !rows.contains(entry.first); });
}

} // namespace zolva
