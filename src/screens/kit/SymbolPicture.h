#pragma once

#include "screens/kit/Picture.h"

#include <QColor>
#include <QQmlEngine>
#include <QString>

namespace zolva {

/// A picture made from a symbol's icon in one colour. An unknown name draws nothing and is warned
/// about.
class SymbolPicture : public Picture
{
    Q_OBJECT
    QML_ANONYMOUS
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY nameChanged)
    Q_PROPERTY(qreal size READ size WRITE setSize NOTIFY sizeChanged)
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged)

public:
    [[nodiscard]] QString name() const { return m_name; }
    void setName(const QString& name);
    [[nodiscard]] qreal size() const { return m_size; }
    void setSize(qreal size);
    [[nodiscard]] QColor color() const { return m_color; }
    void setColor(const QColor& color);

Q_SIGNALS:
    void nameChanged();
    void sizeChanged();
    void colorChanged();

protected:
    SymbolPicture(qreal size, QQuickItem* parent);

private:
    QString m_name;
    qreal m_size;
    QColor m_color = Qt::black;
};

} // namespace zolva
