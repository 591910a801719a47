#pragma once

#include "screens/kit/Picture.h"

#include <QColor>
#include <QList>
#include <QQmlEngine>

namespace zolva {

/// One series of percentages as an open line over the whole width of the item, whatever its length;
/// fewer than two values draw nothing. A hundred stands a little below the upper edge. It is drawn
/// anew only when it differs: no scene graph smooths a bare line, so the line is a picture, one
/// pixel of it to one of the screen. It reaches over the item's edges by half of its own width.
class SeriesLine : public Picture
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QList<qreal> values READ values WRITE setValues NOTIFY valuesChanged)
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged)

public:
    explicit SeriesLine(QQuickItem* parent = nullptr) : Picture(parent) {}

    [[nodiscard]] QList<qreal> values() const { return m_values; }
    void setValues(const QList<qreal>& values);
    [[nodiscard]] QColor color() const { return m_color; }
    void setColor(const QColor& color);

Q_SIGNALS:
    void valuesChanged();
    void colorChanged();

protected:
    [[nodiscard]] Drawn draw(qreal ratio) override;

private:
    void redrawSoon();
    [[nodiscard]] QPointF pointOf(qsizetype place) const;

    QList<qreal> m_values;
    QColor m_color = Qt::black;
};

} // namespace zolva
