#include "screens/kit/Symbol.h"

#include "screens/kit/SymbolImage.h"

#include <QtMath>

namespace zolva {

Symbol::Symbol(QQuickItem* parent) : Picture(parent)
{
    setImplicitSize(m_size, m_size);
}

void Symbol::setName(const QString& name)
{
    if (m_name == name)
        return;
    m_name = name;
    if (!name.isEmpty() && !isSymbolKnown(name))
        qWarning("There is no icon for the symbol \"%s\"", qPrintable(name));
    redraw();
    Q_EMIT nameChanged();
}

void Symbol::setSize(qreal size)
{
    if (m_size == size)
        return;
    m_size = size;
    setImplicitSize(size, size);
    redraw();
    Q_EMIT sizeChanged();
}

void Symbol::setColor(const QColor& color)
{
    if (m_color == color)
        return;
    m_color = color;
    redraw();
    Q_EMIT colorChanged();
}

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
    const int pixels = qCeil(m_size * ratio);
    const auto centered = [&](qreal room) { return qRound((room * ratio - pixels) / 2) / ratio; };
    // One pixel of the image is one of the screen, at a whole place.
    return {symbolImage({m_name, pixels, m_weight, m_color}),
            QRectF(centered(width()), centered(height()), pixels / ratio, pixels / ratio)};
}

} // namespace zolva
