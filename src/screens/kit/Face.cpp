#include "screens/kit/Face.h"

#include "screens/kit/FaceFamilies.h"

#include <QGuiApplication>
#include <QScreen>

namespace zolva {
namespace {

constexpr qreal pointsPerInch = 72;

QFont face(const QString& family, qreal size, int weight)
{
    QFont font(family);
    // Only sizes in points may have fractions; fonts are measured by the primary screen.
    const QScreen* screen = QGuiApplication::primaryScreen();
    const qreal pixelsPerInch = screen != nullptr ? screen->logicalDotsPerInch() : pointsPerInch;
    font.setPointSizeF(size * pointsPerInch / pixelsPerInch);
    font.setWeight(static_cast<QFont::Weight>(weight));
    // Hinting across would round the widths to whole pixels.
    font.setHintingPreference(QFont::PreferVerticalHinting);
    return font;
}

} // namespace

QFont Face::text(qreal size, int weight, qreal tracking) const
{
    QFont font = face(faceFamilies().text, size, weight);
    if (tracking != 0)
        font.setLetterSpacing(QFont::AbsoluteSpacing, tracking);
    return font;
}

QFont Face::mono(qreal size, int weight) const
{
    QFont font = face(faceFamilies().mono, size, weight);
    font.setStyleHint(QFont::Monospace);
    return font;
}

} // namespace zolva
