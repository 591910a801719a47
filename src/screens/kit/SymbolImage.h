#pragma once

#include <QColor>
#include <QFont>
#include <QImage>
#include <QString>

namespace zolva {

/// One icon as it is to be drawn.
struct SymbolLook
{
    QString name;
    int pixels = 0; ///< width and height
    int weight = QFont::Normal;
    QColor color;

    friend bool operator==(const SymbolLook&, const SymbolLook&) = default;
};

[[nodiscard]] bool isSymbolKnown(const QString& name);

/// Drawn from the vectors at exactly this size; null for an unknown name. What was drawn lately is
/// kept, up to a bound. Not for two threads at once: main thread, or drawing while that one waits.
[[nodiscard]] QImage symbolImage(const SymbolLook& look);

/// The icon blurred, with what the blur spreads beyond its edges; kept like the above. `size` and
/// `blur` (the standard deviation) are logical pixels; the image is a fraction of that size.
struct BlurredImage
{
    QImage image;
    qreal margin = 0; ///< what the image shows beyond each edge, in logical pixels
};

[[nodiscard]] BlurredImage blurredSymbolImage(const QString& name, qreal size, qreal blur,
                                              const QColor& color);

} // namespace zolva
