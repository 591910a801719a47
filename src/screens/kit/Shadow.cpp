#include "screens/kit/Shadow.h"

#include "screens/kit/AlphaBlur.h"

#include <QPainter>
#include <QtMath>

namespace zolva {
namespace {

// From this blur on a shadow hides that it was drawn at half its size.
constexpr qreal coarseBlur = 6;

} // namespace

void Shadow::setBlur(qreal blur)
{
    if (m_blur == blur)
        return;
    m_blur = blur;
    redraw();
    Q_EMIT blurChanged();
}

void Shadow::setStrength(qreal strength)
{
    if (m_strength == strength)
        return;
    m_strength = strength;
    redraw();
    Q_EMIT strengthChanged();
}

void Shadow::setRadius(qreal radius)
{
    if (m_radius == radius)
        return;
    m_radius = radius;
    redraw();
    Q_EMIT radiusChanged();
}

Picture::Drawn Shadow::draw(qreal /*ratio*/)
{
    if (width() <= 0 || height() <= 0)
        return {};
    const qreal scale = m_blur >= coarseBlur ? 0.5 : 1;
    const int reach = blurReach(m_blur * scale);
    QImage alpha(qCeil(width() * scale) + 2 * reach, qCeil(height() * scale) + 2 * reach,
                 QImage::Format_Alpha8);
    alpha.fill(0);
    {
        QPainter painter(&alpha);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setPen(Qt::NoPen);
        painter.setBrush(Qt::black);
        painter.drawRoundedRect(QRectF(reach, reach, width() * scale, height() * scale),
                                m_radius * scale, m_radius * scale);
    }
    blurAlpha(alpha, m_blur * scale);
    const QColor black = QColor::fromRgbF(0, 0, 0, static_cast<float>(m_strength));
    return {colored(alpha, black),
            QRectF(-reach / scale, -reach / scale, alpha.width() / scale, alpha.height() / scale)};
}

} // namespace zolva
