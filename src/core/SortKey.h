#pragma once

#include <array>
#include <string_view>

namespace zolva {

/// The orders in which a screen can show its rows.
enum class SortKey
{
    SizeDesc,
    SizeAsc,
    NameAsc,
    AgeDesc,
    AgeAsc
};

inline constexpr std::array<SortKey, 5> sortKeys = {
    SortKey::SizeDesc, SortKey::SizeAsc, SortKey::NameAsc, SortKey::AgeDesc, SortKey::AgeAsc};

/// The order's name in the sort menus.
[[nodiscard]] std::string_view sortKeyText(SortKey key);

} // namespace zolva
