#pragma once

#include "screens/kit/Picture.h"

#include <QQmlEngine>

namespace zolva {

/// The shadow of a rounded rectangle of the item's own size, to lie behind it. It paints beyond the
/// item's edges. `blur` is the standard deviation, `strength` the opacity of its black.
class Shadow : public Picture
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(qreal blur READ blur WRITE setBlur NOTIFY blurChanged)
    Q_PROPERTY(qreal strength READ strength WRITE setStrength NOTIFY strengthChanged)
    Q_PROPERTY(qreal radius READ radius WRITE setRadius NOTIFY radiusChanged)

public:
    using Picture::Picture;

    [[nodiscard]] qreal blur() const { return m_blur; }
    void setBlur(qreal blur);
    [[nodiscard]] qreal strength() const { return m_strength; }
    void setStrength(qreal strength);
    [[nodiscard]] qreal radius() const { return m_radius; }
    void setRadius(qreal radius);

Q_SIGNALS:
    void blurChanged();
    void strengthChanged();
    void radiusChanged();

protected:
    [[nodiscard]] Drawn draw(qreal ratio) override;

private:
    qreal m_blur = 20;
    qreal m_strength = 0.5;
    qreal m_radius = 12;
};

} // namespace zolva
