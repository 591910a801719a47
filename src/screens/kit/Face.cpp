#include "screens/kit/Face.h"

#include "screens/kit/FaceFamilies.h"

#include <QtMath>

#include <cmath>

namespace zolva {
namespace {

QFont face(const FaceFamily& family, qreal size, int weight)
{
    const qreal rest = size - std::floor(size);
    const bool isHalf = rest > 0.25 && rest < 0.75;
    QFont font(isHalf ? family.half : family.whole);
    font.setPixelSize(isHalf ? qCeil(size) : qRound(size));
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
