#include "core/SortKey.h"

#include <cstddef>

namespace zolva {

namespace {

/// In the order of `SortKey`.
constexpr std::array<std::string_view, sortKeys.size()> texts = {
    "Largest first", "Smallest first", "Name", "Oldest first", "Newest first"};

} // namespace

std::string_view sortKeyText(SortKey key)
{
    return texts.at(static_cast<std::size_t>(key));
}

} // namespace zolva
