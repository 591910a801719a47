#include "app/PanelPlace.h"

#include <gtest/gtest.h>

namespace zolva::test {

namespace {

constexpr QSize panel{320, 480};
constexpr QRect screen{0, 0, 1920, 1080};
constexpr QRect barOnTop{0, 30, 1920, 1050};
constexpr QRect barBelow{0, 0, 1920, 1040};

TEST(PanelPlace, IsBelowAnItemOnTopAndCentred)
{
    EXPECT_EQ(panelPlace(panel, {1000, 0, 30, 30}, screen, barOnTop), QPoint(1014 - 160, 36));
}

TEST(PanelPlace, IsAboveAnItemBelow)
{
    EXPECT_EQ(panelPlace(panel, {1000, 1045, 30, 30}, screen, barBelow).y(), 1040 - 480 - 6);
}

TEST(PanelPlace, StaysOnTheScreenBesideAnItemInTheCorner)
{
    EXPECT_EQ(panelPlace(panel, {1900, 5, 1, 1}, screen, barOnTop), QPoint(1920 - 326, 36));
    EXPECT_EQ(panelPlace(panel, {2, 5, 1, 1}, screen, barOnTop).x(), 6);
}

TEST(PanelPlace, IsInTheCornerAtTheBarWhereTheItemIsNotKnown)
{
    EXPECT_EQ(panelPlace(panel, {}, screen, barOnTop), QPoint(1920 - 326, 36));
    EXPECT_EQ(panelPlace(panel, {}, screen, screen), QPoint(1920 - 326, 6));
    EXPECT_EQ(panelPlace(panel, {}, screen, barBelow), QPoint(1920 - 326, 1040 - 486));
}

TEST(PanelPlace, IsOnTheScreenOfTheItem)
{
    const QRect second = screen.translated(1920, 0);
    EXPECT_EQ(panelPlace(panel, {1930, 2, 1, 1}, second, second.adjusted(0, 30, 0, 0)),
              QPoint(1926, 36));
}

TEST(PanelPlace, ShowsItsUpperEndOnAScreenThatIsTooSmall)
{
    const QRect small{0, 0, 300, 400};
    EXPECT_EQ(panelPlace(panel, {100, 390, 1, 1}, small, small), QPoint(6, 6));
}

} // namespace

} // namespace zolva::test
