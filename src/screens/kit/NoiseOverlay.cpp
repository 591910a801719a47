#include "screens/kit/NoiseOverlay.h"

#include <QPainter>
#include <QQuickWindow>
#include <QRandomGenerator>
#include <QSGImageNode>

#include <algorithm>
#include <array>
#include <memory>

namespace zolva {
namespace {

// Four tiles across make one image, so that a window takes few of them.
constexpr int imageSide = 4 * NoiseOverlay::tileSide;

/// The scene graph offers no soft light to items. Over the dark theme's ground soft light brightens
/// by up to a fifth of what is missing to white and hardly darkens; over white it does nothing but
/// darken a little. These opacities of white and black come within one step of 255 of both.
constexpr float lightest = 0.21F;
constexpr float darkest = 0.3F;

QRgb speck(quint8 noise)
{
    const float fromMiddle = static_cast<float>(noise) / 127.5F - 1;
    const float opacity = fromMiddle > 0 ? fromMiddle * lightest : -fromMiddle * darkest;
    const int shade = fromMiddle > 0 ? 255 : 0;
    return qPremultiply(qRgba(shade, shade, shade, qRound(opacity * 255)));
}

QImage makeTile()
{
    constexpr std::size_t pixels = std::size_t{NoiseOverlay::tileSide} * NoiseOverlay::tileSide;
    std::array<quint32, pixels / sizeof(quint32)> words{};
    QRandomGenerator::system()->fillRange(words.data(), static_cast<qsizetype>(words.size()));
    QImage image(NoiseOverlay::tileSide, NoiseOverlay::tileSide,
                 QImage::Format_ARGB32_Premultiplied);
    std::size_t next = 0;
    for (int y = 0; y < image.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < image.width(); ++x, ++next)
            line[x] = speck(static_cast<quint8>(words[next / 4] >> (8 * (next % 4))));
    }
    return image;
}

QImage tiled()
{
    QImage image(imageSide, imageSide, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    painter.fillRect(image.rect(), QBrush(NoiseOverlay::tile()));
    return image;
}

/// Keeps the one texture of all its images.
class Grain final : public QSGNode
{
public:
    explicit Grain(QSGTexture* texture) : m_texture(texture) {}

    void cover(QQuickWindow& window, const QSizeF& size)
    {
        while (QSGNode* child = firstChild()) {
            removeChildNode(child);
            delete child;
        }
        for (int y = 0; y < size.height(); y += imageSide) {
            for (int x = 0; x < size.width(); x += imageSide) {
                const QSizeF part(std::min<qreal>(imageSide, size.width() - x),
                                  std::min<qreal>(imageSide, size.height() - y));
                QSGImageNode* image = window.createImageNode();
                image->setTexture(m_texture.get());
                image->setRect(QRectF(QPointF(x, y), part));
                image->setSourceRect(QRectF(QPointF(), part));
                image->setFiltering(QSGTexture::Nearest);
                appendChildNode(image);
            }
        }
    }

private:
    std::unique_ptr<QSGTexture> m_texture;
};

} // namespace

NoiseOverlay::NoiseOverlay(QQuickItem* parent) : QQuickItem(parent)
{
    setFlag(ItemHasContents);
    setAcceptedMouseButtons(Qt::NoButton);
}

const QImage& NoiseOverlay::tile()
{
    static const QImage made = makeTile();
    return made;
}

QSGNode* NoiseOverlay::updatePaintNode(QSGNode* old, UpdatePaintNodeData* /*data*/)
{
    auto* grain = static_cast<Grain*>(old);
    if (grain == nullptr)
        grain = new Grain(
            window()->createTextureFromImage(tiled(), QQuickWindow::TextureHasAlphaChannel));
    grain->cover(*window(), size());
    return grain;
}

} // namespace zolva
