#pragma once

#include "screens/kit/SymbolPicture.h"

#include <QQmlEngine>

namespace zolva {

/// A very large icon, blurred so far that it is only a shape of light. Drawn once, small, and shown
/// stretched; it paints beyond its own edges by what the blur spreads.
class BlurredSymbol : public SymbolPicture
{
    Q_OBJECT
    QML_ELEMENT
    Q_PROPERTY(qreal blur READ blur WRITE setBlur NOTIFY blurChanged)

public:
    explicit BlurredSymbol(QQuickItem* parent = nullptr) : SymbolPicture(460, parent) {}

    [[nodiscard]] qreal blur() const { return m_blur; }
    void setBlur(qreal blur);

Q_SIGNALS:
    void blurChanged();

protected:
    [[nodiscard]] Drawn draw(qreal ratio) override;

private:
    qreal m_blur = 48;
};

} // namespace zolva
