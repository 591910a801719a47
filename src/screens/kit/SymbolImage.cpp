#include "screens/kit/SymbolImage.h"

#include "screens/kit/AlphaBlur.h"

#include <QCache>
#include <QFile>
#include <QPainter>
#include <QSvgRenderer>

#include <cmath>

namespace zolva {
namespace {

// The icons' own grid.
constexpr qreal gridSize = 16;
// Bytes of pixels that are kept.
constexpr int keptBytes = 8 * 1024 * 1024;
// A blurred icon needs no more than this part of its pixels.
constexpr qreal blurredScale = 0.25;

QString fileOf(const QString& name)
{
    return QStringLiteral(":/kit/symbols/%1.svg").arg(name);
}

/// How much thicker than drawn a line is at a font's weight, on the icons' grid.
qreal addedStroke(int weight)
{
    if (weight >= QFont::Bold)
        return 0.7;
    if (weight >= QFont::DemiBold)
        return 0.5;
    return weight >= QFont::Medium ? 0.25 : 0;
}

/// The icon's file in black, its outlines made heavier.
QByteArray vectorsOf(const QString& name, qreal stroke)
{
    QFile file(fileOf(name));
    if (name.isEmpty() || !file.open(QIODevice::ReadOnly))
        return {};
    QByteArray vectors = file.readAll();
    QByteArray paint = "fill=\"#000\"";
    if (stroke > 0)
        paint += " stroke=\"#000\" stroke-linejoin=\"round\" stroke-width=\"" +
                 QByteArray::number(stroke) + '"';
    return vectors.replace("fill=\"currentColor\"", paint);
}

void tint(QImage& image, const QColor& color)
{
    QPainter painter(&image);
    painter.setCompositionMode(QPainter::CompositionMode_SourceIn);
    painter.fillRect(image.rect(), color);
}

QImage draw(const SymbolLook& look)
{
    const qreal stroke = addedStroke(look.weight);
    QSvgRenderer renderer(vectorsOf(look.name, stroke));
    if (!renderer.isValid())
        return {};
    QImage image(look.pixels, look.pixels, QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    {
        QPainter painter(&image);
        painter.setRenderHint(QPainter::Antialiasing);
        // A heavier outline must not be cut off at the grid's edge.
        const qreal inset = stroke / 2 * look.pixels / (gridSize + stroke);
        renderer.render(&painter, QRectF(image.rect()).adjusted(inset, inset, -inset, -inset));
    }
    tint(image, look.color);
    return image;
}

BlurredImage drawBlurred(const QString& name, qreal size, qreal blur, const QColor& color)
{
    const int reach = blurReach(blur * blurredScale);
    const int pixels = qCeil(size * blurredScale);
    const QImage sharp = draw({name, pixels, QFont::Normal, Qt::black});
    if (sharp.isNull())
        return {};
    QImage alpha(pixels + 2 * reach, pixels + 2 * reach, QImage::Format_Alpha8);
    alpha.fill(0);
    {
        QPainter painter(&alpha);
        painter.drawImage(reach, reach, sharp);
    }
    blurAlpha(alpha, blur * blurredScale);
    return {colored(alpha, color), reach / blurredScale};
}

template <typename Image>
QCache<QString, Image>& cache()
{
    static QCache<QString, Image> kept(keptBytes);
    return kept;
}

QString keyOf(const QString& name, qreal size, qreal more, const QColor& color)
{
    return name + QLatin1Char('/') + QString::number(size) + QLatin1Char('/') +
           QString::number(more) + QLatin1Char('/') + QString::number(color.rgba64(), 16);
}

int costOf(const QImage& image)
{
    return static_cast<int>(image.sizeInBytes());
}

} // namespace

bool isSymbolKnown(const QString& name)
{
    return !name.isEmpty() && QFile::exists(fileOf(name));
}

QImage symbolImage(const SymbolLook& look)
{
    if (look.pixels <= 0 || !isSymbolKnown(look.name))
        return {};
    const QString key = keyOf(look.name, look.pixels, look.weight, look.color);
    if (const QImage* known = cache<QImage>().object(key))
        return *known;
    QImage image = draw(look);
    cache<QImage>().insert(key, new QImage(image), costOf(image));
    return image;
}

BlurredImage blurredSymbolImage(const QString& name, qreal size, qreal blur, const QColor& color)
{
    if (size <= 0 || blur < 0 || !isSymbolKnown(name))
        return {};
    const QString key = keyOf(name, size, blur, color);
    if (const BlurredImage* known = cache<BlurredImage>().object(key))
        return *known;
    BlurredImage blurred = drawBlurred(name, size, blur, color);
    cache<BlurredImage>().insert(key, new BlurredImage(blurred), costOf(blurred.image));
    return blurred;
}

} // namespace zolva
