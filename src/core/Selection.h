#pragma once

#include <map>
#include <optional>
#include <set>
#include <string>
#include <vector>

/// The one rule by which rows are ticked in all lists, by their keys. Pure.
namespace zolva {

/// The ticked rows of a list; a false entry of the second form is a row that is not ticked.
using PickSet = std::set<std::string>;
using PickMap = std::map<std::string, bool>;

/// The row clicked last, if any. A key and no place: it survives every new order.
using PickAnchor = std::optional<std::string>;

/// A click on a row. `order` is the list as shown, sorted and filtered. With the shift key, and the
/// anchor and the row both shown, every row from one to the other is ticked and none is unticked;
/// in every other case the row alone is flipped. The row becomes the anchor.
void pickRow(PickSet& picked, PickAnchor& anchor, const std::string& row,
             const std::vector<std::string>& order, bool shift);
void pickRow(PickMap& picked, PickAnchor& anchor, const std::string& row,
             const std::vector<std::string>& order, bool shift);

/// After a new scan: only what is ticked and still there is kept.
void keepPicked(PickSet& picked, const std::set<std::string>& rows);
void keepPicked(PickMap& picked, const std::set<std::string>& rows);

} // namespace zolva
