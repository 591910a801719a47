#pragma once

namespace zolva {

/// What this program is called on the desktop: its desktop file, its icon, its name on the bus.
inline constexpr auto desktopId = "org.zolva.Zolva";

} // namespace zolva
