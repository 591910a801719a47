#pragma once

#include "core/SystemAppearance.h"

#include <QPalette>

#include <memory>

namespace zolva {

/// Whether this desktop asks for dark windows. It asks at its making, and waits at most a tenth of
/// a second; what comes later is told as a change. Main thread, with a QGuiApplication.
[[nodiscard]] std::unique_ptr<SystemAppearance> systemColorScheme();

/// Whether text is lighter than what it stands on.
[[nodiscard]] bool isDarkPalette(const QPalette& palette);

} // namespace zolva
