#include "screens/kit/Picture.h"

#include <QQuickWindow>
#include <QSGImageNode>

namespace zolva {

Picture::Picture(QQuickItem* parent) : QQuickItem(parent)
{
    setFlag(ItemHasContents);
}

void Picture::componentComplete()
{
    QQuickItem::componentComplete();
    redraw();
}

void Picture::updatePolish()
{
    if (window() == nullptr || !isComponentComplete())
        return;
    Drawn drawn = draw(window()->effectiveDevicePixelRatio());
    if (drawn.image.cacheKey() != m_drawn.image.cacheKey())
        m_isNew = true;
    m_drawn = std::move(drawn);
    update();
}

QSGNode* Picture::updatePaintNode(QSGNode* old, UpdatePaintNodeData* /*data*/)
{
    auto* node = static_cast<QSGImageNode*>(old);
    if (m_drawn.image.isNull() || m_drawn.place.isEmpty()) {
        delete node;
        return nullptr;
    }
    if (node == nullptr) {
        node = window()->createImageNode();
        node->setOwnsTexture(true);
        m_isNew = true;
    }
    if (m_isNew) {
        const QQuickWindow::CreateTextureOptions options = {QQuickWindow::TextureHasAlphaChannel,
                                                            QQuickWindow::TextureCanUseAtlas};
        node->setTexture(window()->createTextureFromImage(m_drawn.image, options));
        m_isNew = false;
    }
    node->setRect(m_drawn.place);
    node->setSourceRect(QRectF(QPointF(), m_drawn.image.size()));
    node->setFiltering(smooth() ? QSGTexture::Linear : QSGTexture::Nearest);
    return node;
}

void Picture::geometryChange(const QRectF& now, const QRectF& before)
{
    QQuickItem::geometryChange(now, before);
    if (now.size() != before.size())
        redraw();
}

void Picture::itemChange(ItemChange change, const ItemChangeData& data)
{
    // A new window has another scene graph, another screen another ratio.
    if (change == ItemSceneChange || change == ItemDevicePixelRatioHasChanged)
        redraw();
    QQuickItem::itemChange(change, data);
}

} // namespace zolva
