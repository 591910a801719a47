#include "screens/kit/SymbolPicture.h"

#include "screens/kit/SymbolImage.h"

namespace zolva {

SymbolPicture::SymbolPicture(qreal size, QQuickItem* parent) : Picture(parent), m_size(size)
{
    setImplicitSize(size, size);
}

void SymbolPicture::setName(const QString& name)
{
    if (m_name == name)
        return;
    m_name = name;
    if (!name.isEmpty() && !isSymbolKnown(name))
        qWarning("There is no icon for the symbol \"%s\"", qPrintable(name));
    redraw();
    Q_EMIT nameChanged();
}

void SymbolPicture::setSize(qreal size)
{
    if (m_size == size)
        return;
    m_size = size;
    setImplicitSize(size, size);
    redraw();
    Q_EMIT sizeChanged();
}

void SymbolPicture::setColor(const QColor& color)
{
    if (m_color == color)
        return;
    m_color = color;
    redraw();
    Q_EMIT colorChanged();
}

} // namespace zolva
