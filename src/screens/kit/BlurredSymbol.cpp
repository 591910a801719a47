#include "screens/kit/BlurredSymbol.h"

#include "screens/kit/SymbolImage.h"

namespace zolva {

void BlurredSymbol::setBlur(qreal blur)
{
    if (m_blur == blur)
        return;
    m_blur = blur;
    redraw();
    Q_EMIT blurChanged();
}

Picture::Drawn BlurredSymbol::draw(qreal /*ratio*/)
{
    const BlurredImage blurred = blurredSymbolImage(name(), size(), m_blur, color());
    const qreal side = size() + 2 * blurred.margin;
    return {blurred.image, QRectF((width() - side) / 2, (height() - side) / 2, side, side)};
}

} // namespace zolva
