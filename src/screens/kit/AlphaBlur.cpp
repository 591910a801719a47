#include "screens/kit/AlphaBlur.h"

#include <QColor>

#include <cmath>
#include <vector>

namespace zolva {
namespace {

// Three means in a row come within 3% of a Gaussian.
constexpr int passes = 3;

int reachOfMean(qreal deviation)
{
    // The width w of a mean whose variance, three times, is the square of the deviation:
    // 3 (w^2 - 1) / 12 = d^2.
    const qreal width = std::sqrt(4 * deviation * deviation + 1);
    return std::max(0, qRound((width - 1) / 2));
}

/// Each of `count` opacities, `step` bytes apart, becomes the mean of those around it.
void takeMeans(uchar* line, int count, qsizetype step, int reach, std::vector<uchar>& before)
{
    for (int i = 0; i < count; ++i)
        before[static_cast<std::size_t>(i)] = line[i * step];
    const auto at = [&](int i) -> unsigned {
        return i < 0 || i >= count ? 0U : before[static_cast<std::size_t>(i)];
    };
    const auto width = static_cast<unsigned>(2 * reach + 1);
    unsigned sum = 0;
    for (int i = 0; i <= reach; ++i)
        sum += at(i);
    for (int i = 0; i < count; ++i) {
        line[i * step] = static_cast<uchar>((sum + width / 2) / width);
        sum += at(i + reach + 1);
        sum -= at(i - reach);
    }
}

} // namespace

int blurReach(qreal deviation)
{
    return passes * reachOfMean(deviation);
}

void blurAlpha(QImage& alpha, qreal deviation)
{
    Q_ASSERT(alpha.format() == QImage::Format_Alpha8);
    const int reach = reachOfMean(deviation);
    if (reach == 0 || alpha.isNull())
        return;
    std::vector<uchar> before(static_cast<std::size_t>(std::max(alpha.width(), alpha.height())));
    uchar* const bits = alpha.bits();
    const qsizetype stride = alpha.bytesPerLine();
    for (int pass = 0; pass < passes; ++pass) {
        for (int y = 0; y < alpha.height(); ++y)
            takeMeans(bits + y * stride, alpha.width(), 1, reach, before);
        for (int x = 0; x < alpha.width(); ++x)
            takeMeans(bits + x, alpha.height(), stride, reach, before);
    }
}

QImage colored(const QImage& alpha, const QColor& color)
{
    QImage image(alpha.size(), QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < alpha.height(); ++y) {
        const uchar* from = alpha.constScanLine(y);
        auto* to = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < alpha.width(); ++x) {
            const int opacity = qRound(static_cast<float>(from[x]) * color.alphaF());
            to[x] = qPremultiply(qRgba(color.red(), color.green(), color.blue(), opacity));
        }
    }
    return image;
}

} // namespace zolva
