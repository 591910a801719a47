#pragma once

#include <QImage>

namespace zolva {

/// How far a blur of this standard deviation reaches, in whole pixels.
[[nodiscard]] int blurReach(qreal deviation);

/// Blurs a picture of opacities (Format_Alpha8) nearly like a Gaussian of this standard deviation,
/// in pixels. Time grows with the pixels, not with the deviation.
void blurAlpha(QImage& alpha, qreal deviation);

/// The opacities in one colour, premultiplied.
[[nodiscard]] QImage colored(const QImage& alpha, const QColor& color);

} // namespace zolva
