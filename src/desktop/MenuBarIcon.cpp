#include "desktop/MenuBarIcon.h"

#include <QPainter>
#include <QSvgRenderer>

namespace zolva {

QImage menuBarIcon(int width, const QColor& tint)
{
    QImage image(width, width, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    QSvgRenderer(QStringLiteral(":/desktop/MenuBarIcon.svg")).render(&painter);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), tint);
    return image;
}

} // namespace zolva
