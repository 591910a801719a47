#include "screens/kit/AlphaBlur.h"

#include <QColor>

#include <gtest/gtest.h>

#include <cmath>

namespace zolva {
namespace {

constexpr int side = 121;
constexpr int middle = side / 2;

QImage nothing()
{
    QImage image(side, side, QImage::Format_Alpha8);
    image.fill(0);
    return image;
}

/// A wide block, since a point would vanish in the rounding.
QImage block(int half)
{
    QImage image = nothing();
    for (int y = middle - half; y <= middle + half; ++y)
        for (int x = middle - half; x <= middle + half; ++x)
            image.scanLine(y)[x] = 255;
    return image;
}

int at(const QImage& image, int x, int y)
{
    return image.constScanLine(y)[x];
}

} // namespace

TEST(AlphaBlurs, NothingIsSeenBeyondTheReach)
{
    constexpr int half = 10;
    QImage image = block(half);
    blurAlpha(image, 6);
    const int edge = middle + half + blurReach(6);
    for (int x = edge + 1; x < side; ++x)
        EXPECT_EQ(at(image, x, middle), 0);
    EXPECT_GT(at(image, middle + half + 6, middle), 0);
}

TEST(AlphaBlurs, TheEdgeFadesLikeAGaussian)
{
    QImage image = nothing();
    for (int y = 0; y < side; ++y)
        for (int x = 0; x < middle; ++x)
            image.scanLine(y)[x] = 255;
    blurAlpha(image, 8);
    for (const int distance : {-16, -8, -4, 4, 8, 16}) {
        const double expected = 0.5 * std::erfc((distance + 0.5) / (8 * std::sqrt(2.0)));
        EXPECT_NEAR(at(image, middle + distance, middle) / 255.0, expected, 0.03) << distance;
    }
}

TEST(AlphaBlurs, TheBlurIsTheSameInAllFourDirections)
{
    QImage image = block(12);
    blurAlpha(image, 5);
    for (int i = 0; i < side; ++i) {
        EXPECT_EQ(at(image, i, middle), at(image, side - 1 - i, middle));
        EXPECT_EQ(at(image, middle, i), at(image, middle, side - 1 - i));
        EXPECT_NEAR(at(image, i, middle), at(image, middle, i), 1); // rounded in another order
    }
}

TEST(AlphaBlurs, WithoutADeviationNothingChanges)
{
    QImage image = block(3);
    blurAlpha(image, 0);
    EXPECT_EQ(image, block(3));
    EXPECT_EQ(blurReach(0), 0);
}

TEST(AlphaBlurs, TheColourTakesTheOpacities)
{
    QImage alpha = nothing();
    alpha.scanLine(0)[0] = 255;
    alpha.scanLine(0)[1] = 100;
    const QImage image = colored(alpha, QColor(10, 200, 30, 128));
    EXPECT_EQ(image.pixelColor(0, 0).alpha(), 128);
    EXPECT_NEAR(image.pixelColor(0, 0).green(), 200, 2);
    EXPECT_EQ(image.pixelColor(1, 0).alpha(), 50);
    EXPECT_EQ(image.pixelColor(2, 0).alpha(), 0);
}

} // namespace zolva
