#pragma once

#include "desktop/ReducedMotion.h"
#include "screens/kit/Motion.h"

#include <QQuickWindow>

namespace zolva {

/// Keeps it as the desktop asks, and as the window turns out to be drawn. The desktop's wish
/// outlives it; the window is not drawn yet.
void followMotion(Motion& motion, const ReducedMotion& wish, QQuickWindow& window);

} // namespace zolva
