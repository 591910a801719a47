#pragma once

#include <QPoint>
#include <QRect>
#include <QSize>

namespace zolva {

/// Where a panel of that size stands: beside the item that opened it, or, where that is not known,
/// in the corner where such items mostly are; always on the part of the screen that is free. Pure.
[[nodiscard]] QPoint panelPlace(const QSize& panel, const QRect& item, const QRect& screen,
                                const QRect& available);

} // namespace zolva
