#pragma once

#include "screens/kit/SymbolPicture.h"

#include <QFont>
#include <QQmlEngine>

namespace zolva {

/// An icon by its symbol's name, crisp on every screen, in the middle of the item. Decoration: no
/// one hears of it.
class Symbol : public SymbolPicture
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(int weight READ weight WRITE setWeight NOTIFY weightChanged)

public:
    explicit Symbol(QQuickItem* parent = nullptr) : SymbolPicture(16, parent) {}

    [[nodiscard]] int weight() const { return m_weight; }
    void setWeight(int weight);

Q_SIGNALS:
    void weightChanged();

protected:
    [[nodiscard]] Drawn draw(qreal ratio) override;

private:
    int m_weight = QFont::Normal;
};

} // namespace zolva
