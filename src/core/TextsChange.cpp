#include "core/TextsChange.h"

#include <algorithm>
#include <iterator>
#include <unordered_set>
#include <utility>

namespace zolva {

namespace {

using Texts = std::vector<std::string>;

std::unordered_set<std::string> setOf(const Texts& list)
{
    return {list.begin(), list.end()};
}

Texts without(const Texts& list, const Texts& others)
{
    const auto dropped = setOf(others);
    Texts kept;
    std::copy_if(list.begin(), list.end(), std::back_inserter(kept),
                 [&dropped](const std::string& text) { return !dropped.contains(text); });
    return kept;
}

} // namespace

Texts changed(Texts list, const TextsChange& change)
{
    list = without(list, change.removed);
    auto held = setOf(list);
    std::copy_if(change.added.begin(), change.added.end(), std::back_inserter(list),
                 [&held](const std::string& text) { return held.insert(text).second; });
    return list;
}

TextsChange changeBetween(const Texts& before, const Texts& after)
{
    return {without(after, before), without(before, after)};
}

TextsChange combined(const TextsChange& first, const TextsChange& second)
{
    return {changed(first.added, second), changed(first.removed, {second.removed, {}})};
}

} // namespace zolva
