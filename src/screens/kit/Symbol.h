#pragma once

#include "screens/kit/Picture.h"

#include <QColor>
#include <QFont>
#include <QQmlEngine>
#include <QString>

namespace zolva {

/// An icon by its symbol's name, in one colour, crisp on every screen, in the middle of the item.
/// An unknown name draws nothing and is warned about. Decoration: no one hears of it.
class Symbol : public Picture
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(QString name READ name WRITE setName NOTIFY nameChanged)
    Q_PROPERTY(qreal size READ size WRITE setSize NOTIFY sizeChanged)
    Q_PROPERTY(QColor color READ color WRITE setColor NOTIFY colorChanged)
    Q_PROPERTY(int weight READ weight WRITE setWeight NOTIFY weightChanged)

public:
    explicit Symbol(QQuickItem* parent = nullptr);

    [[nodiscard]] QString name() const { return m_name; }
    void setName(const QString& name);
    [[nodiscard]] qreal size() const { return m_size; }
    void setSize(qreal size);
    [[nodiscard]] QColor color() const { return m_color; }
    void setColor(const QColor& color);
    [[nodiscard]] int weight() const { return m_weight; }
    void setWeight(int weight);

Q_SIGNALS:
    void nameChanged();
    void sizeChanged();
    void colorChanged();
    void weightChanged();

protected:
    [[nodiscard]] Drawn draw(qreal ratio) override;

private:
    QString m_name;
    qreal m_size = 16;
    QColor m_color = Qt::black;
    int m_weight = QFont::Normal;
};

} // namespace zolva
