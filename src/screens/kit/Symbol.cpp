#include "screens/kit/Symbol.h"

#include "screens/kit/SymbolImage.h"

#include <QtMath>

namespace zolva {

void Symbol::setWeight(int weight)
{
    if (m_weight == weight)
        return;
    m_weight = weight;
    redraw();
    Q_EMIT weightChanged();
}

Picture::Drawn Symbol::draw(qreal ratio)
{
    const int pixels = qCeil(size() * ratio);
    const auto centered = [&](qreal room) { return qRound((room * ratio - pixels) / 2) / ratio; };
    // One pixel of the image is one of the screen, at a whole place.
    return {symbolImage({name(), pixels, m_weight, color()}),
            QRectF(centered(width()), centered(height()), pixels / ratio, pixels / ratio)};
}

} // namespace zolva
