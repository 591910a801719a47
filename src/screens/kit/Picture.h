#pragma once

#include <QImage>
#include <QQmlEngine>
#include <QQuickItem>
#include <QRectF>

namespace zolva {

/// An item that shows one picture of its own making, in any scene graph. Those that inherit make
/// the picture on the main thread, before it is drawn and whenever it has to change.
class Picture : public QQuickItem
{
    Q_OBJECT
    QML_ANONYMOUS

public:
    explicit Picture(QQuickItem* parent = nullptr);

protected:
    struct Drawn
    {
        QImage image;
        QRectF place; ///< where, in the item's logical pixels
    };

    /// `ratio`: device pixels to a logical one. A null image draws nothing.
    [[nodiscard]] virtual Drawn draw(qreal ratio) = 0;

    void redraw() { polish(); } ///< what the picture shows has changed

    void componentComplete() override;
    void updatePolish() override;
    QSGNode* updatePaintNode(QSGNode* old, UpdatePaintNodeData* data) override;
    void geometryChange(const QRectF& now, const QRectF& before) override;
    void itemChange(ItemChange change, const ItemChangeData& data) override;

private:
    Drawn m_drawn;
    bool m_isNew = false; ///< the picture differs from the texture
};

} // namespace zolva
