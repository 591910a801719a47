#include "screens/kit/BlurredSymbol.h"

#include "screens/kit/SymbolImage.h"

namespace zolva {

BlurredSymbol::BlurredSymbol(QQuickItem* parent) : Picture(parent)
{
    setImplicitSize(m_size, m_size);
}

void BlurredSymbol::setName(const QString& name)
{
    if (m_name == name)
        return;
    m_name = name;
    if (!name.isEmpty() && !isSymbolKnown(name))
        qWarning("There is no icon for the symbol \"%s\"", qPrintable(name));
    redraw();
    Q_EMIT nameChanged();
}

void BlurredSymbol::setSize(qreal size)
{
    if (m_size == size)
        return;
    m_size = size;
    setImplicitSize(size, size);
    redraw();
    Q_EMIT sizeChanged();
}

void BlurredSymbol::setBlur(qreal blur)
{
    if (m_blur == blur)
        return;
    m_blur = blur;
    redraw();
    Q_EMIT blurChanged();
}

void BlurredSymbol::setColor(const QColor& color)
{
    if (m_color == color)
        return;
    m_color = color;
    redraw();
    Q_EMIT colorChanged();
}

Picture::Drawn BlurredSymbol::draw(qreal /*ratio*/)
{
    const BlurredImage blurred = blurredSymbolImage(m_name, m_size, m_blur, m_color);
    const qreal side = m_size + 2 * blurred.margin;
    return {blurred.image, QRectF((width() - side) / 2, (height() - side) / 2, side, side)};
}

} // namespace zolva
