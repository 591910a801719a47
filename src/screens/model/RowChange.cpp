#include "screens/model/RowChange.h"

#include <algorithm>
#include <string_view>
#include <unordered_set>

namespace zolva {

namespace {

using Keys = std::vector<std::string>;
using KeySet = std::unordered_set<std::string_view>;

/// What of one list the other one lacks, and what both have.
struct Share
{
    std::vector<RowSpan> own;
    std::vector<std::string_view> common;
};

Share shareOf(const Keys& keys, const Keys& others)
{
    const KeySet known(others.begin(), others.end());
    Share share;
    for (std::size_t row = 0; row < keys.size(); ++row) {
        if (known.contains(keys[row])) {
            share.common.push_back(keys[row]);
        } else if (!share.own.empty() && share.own.back().last + 1 == row) {
            share.own.back().last = row;
        } else {
            share.own.push_back({row, row});
        }
    }
    return share;
}

} // namespace

std::optional<RowChange> rowChange(const Keys& before, const Keys& after, std::size_t limit)
{
    Share old = shareOf(before, after);
    Share fresh = shareOf(after, before);
    if (old.common != fresh.common || old.own.size() + fresh.own.size() > limit) {
        return std::nullopt;
    }
    std::reverse(old.own.begin(), old.own.end());
    return RowChange{std::move(old.own), std::move(fresh.own)};
}

} // namespace zolva
