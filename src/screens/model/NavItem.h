#pragma once

#include <array>

namespace zolva {

/// One row of the sidebar. Texts that are absent are null.
struct NavItem
{
    const char* id;
    const char* label;
    const char* symbol;
    const char* head; ///< stands above the row
    const char* chip; ///< a sample, never shown
};

/// All rows, in their order.
inline constexpr std::array<NavItem, 8> navItems = {{
    {"home", "Home", "house", "Reclaim", nullptr},
    {"clean", "Clean", "sparkles", nullptr, "95.59 GB"},
    {"purge", "Purge", "folder.badge.minus", nullptr, "13.90 GB"},
    {"installer", "Installers", "square.and.arrow.down", nullptr, "9.06 GB"},
    {"uninstall", "Uninstall", "trash", "Inspect", nullptr},
    {"analyze", "Analyze", "chart.pie", nullptr, nullptr},
    {"status", "Status", "gauge.with.needle", "System", nullptr},
    {"settings", "Settings", "slider.horizontal.3", nullptr, nullptr},
}};

} // namespace zolva
