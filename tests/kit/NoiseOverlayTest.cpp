#include "screens/kit/NoiseOverlay.h"

#include <gtest/gtest.h>

#include <set>

namespace zolva {

TEST(Noise, TheTileIsASquareOf140)
{
    EXPECT_EQ(NoiseOverlay::tile().size(), QSize(140, 140));
}

TEST(Noise, TheTileIsMadeOnce)
{
    EXPECT_EQ(NoiseOverlay::tile().cacheKey(), NoiseOverlay::tile().cacheKey());
    EXPECT_EQ(&NoiseOverlay::tile(), &NoiseOverlay::tile());
}

TEST(Noise, SpecksAreGreyAndSomeLightenWhileOthersDarken)
{
    const QImage& tile = NoiseOverlay::tile();
    int light = 0;
    int dark = 0;
    std::set<int> opacities;
    for (int y = 0; y < tile.height(); ++y) {
        for (int x = 0; x < tile.width(); ++x) {
            const QColor speck = tile.pixelColor(x, y);
            const int shade = speck.red();
            ASSERT_EQ(shade, speck.green());
            ASSERT_EQ(shade, speck.blue());
            light += speck.alpha() > 0 && shade > 127 ? 1 : 0;
            dark += speck.alpha() > 0 && shade <= 127 ? 1 : 0;
            opacities.insert(speck.alpha());
        }
    }
    const int pixels = 140 * 140;
    EXPECT_NEAR(light, pixels / 2, pixels / 20);
    EXPECT_NEAR(dark, pixels / 2, pixels / 20);
    EXPECT_GT(opacities.size(), 50U);
}

TEST(Noise, TheGrainTakesNoInput)
{
    const NoiseOverlay overlay;
    EXPECT_EQ(overlay.acceptedMouseButtons(), Qt::NoButton);
    EXPECT_FALSE(overlay.acceptHoverEvents());
    EXPECT_FALSE(overlay.acceptTouchEvents());
}

} // namespace zolva
