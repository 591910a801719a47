#pragma once

#include "screens/kit/Picture.h"

#include <QColor>
#include <QQmlEngine>
#include <QString>

namespace zolva {

/// A very large icon, blurred so far that it is only a shape of light. Drawn once, small, and shown
/// stretched; it paints beyond its own edges by what the blur spreads.
class BlurredSymbol : public Picture
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY nameChanged)
    Q_PROPERTY(qreal size READ size WRITE setSize NOTIFY sizeChanged)
    Q_PROPERTY(qreal blur READ blur WRITE setBlur NOTIFY blurChanged)
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged)

public:
    explicit BlurredSymbol(QQuickItem* parent = nullptr);

    [[nodiscard]] QString name() const { return m_name; }
    void setName(const QString& name);
    [[nodiscard]] qreal size() const { return m_size; }
    void setSize(qreal size);
    [[nodiscard]] qreal blur() const { return m_blur; }
    void setBlur(qreal blur);
    [[nodiscard]] QColor color() const { return m_color; }
    void setColor(const QColor& color);

Q_SIGNALS:
    void nameChanged();
    void sizeChanged();
    void blurChanged();
    void colorChanged();

protected:
    [[nodiscard]] Drawn draw(qreal ratio) override;

private:
    QString m_name;
    qreal m_size = 460;
    qreal m_blur = 48;
    QColor m_color = Qt::black;
};

} // namespace zolva
