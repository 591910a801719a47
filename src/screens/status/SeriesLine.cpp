#include "screens/status/SeriesLine.h"

#include <QPainter>
#include <QPolygonF>
#include <QtMath>

#include <algorithm>

namespace zolva {

namespace {

constexpr qreal lineWidth = 1.4;
/// Around the item, for what the line's width and its corners take.
constexpr qreal margin = 2;
/// Where a hundred percent stands, of the height.
constexpr qreal fullHeight = 40.0 / 44.0;

} // namespace

void SeriesLine::setValues(const QList<qreal>& values)
{
    if (m_values == values)
        return;
    m_values = values;
    redrawSoon();
    Q_EMIT valuesChanged();
}

void SeriesLine::setColor(const QColor& color)
{
    if (m_color == color)
        return;
    m_color = color;
    redrawSoon();
    Q_EMIT colorChanged();
}

void SeriesLine::redrawSoon()
{
    redraw();
    // Asked for only while the frame is being made, it would take another one.
    update();
}

QPointF SeriesLine::pointOf(qsizetype place) const
{
    const qreal percent = std::clamp(m_values.at(place), 0.0, 100.0);
    const auto last = static_cast<qreal>(m_values.size() - 1);
    return {width() * static_cast<qreal>(place) / last,
            height() - height() * fullHeight * percent / 100};
}

Picture::Drawn SeriesLine::draw(qreal ratio)
{
    if (m_values.size() < 2 || width() <= 0 || height() <= 0)
        return {};
    QImage image(qCeil((width() + 2 * margin) * ratio), qCeil((height() + 2 * margin) * ratio),
                 QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPolygonF line;
    for (qsizetype place = 0; place < m_values.size(); ++place)
        line << pointOf(place);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(ratio, ratio);
    painter.translate(margin, margin);
    painter.setPen(QPen(m_color, lineWidth, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPolyline(line);
    painter.end();
    return {image, QRectF(-margin, -margin, image.width() / ratio, image.height() / ratio)};
}

} // namespace zolva
