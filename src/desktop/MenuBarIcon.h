#pragma once

#include <QColor>
#include <QImage>

namespace zolva {

/// The program's picture of one colour, square and that many pixels wide.
[[nodiscard]] QImage menuBarIcon(int width, const QColor& tint);

} // namespace zolva
