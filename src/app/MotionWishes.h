#pragma once

#include "desktop/ReducedMotion.h"
#include "screens/kit/Motion.h"

#include <QQuickWindow>

#include <string_view>

namespace zolva {

/// Keeps it as the desktop asks, and as the window turns out to be drawn. The desktop's wish
/// outlives it; the window is not drawn yet.
void followMotion(Motion& motion, const ReducedMotion& wish, QQuickWindow& window);

/// Whether that is the name of a renderer that draws by the processor.
[[nodiscard]] bool isSoftwareRenderer(std::string_view name);

} // namespace zolva
