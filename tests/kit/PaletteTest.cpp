#include "screens/kit/Theme.h"

#include <QMetaProperty>

#include <gtest/gtest.h>

namespace zolva {
namespace {

struct Written
{
    const char* field;
    const char* light;
    double lightOpacity;
    const char* dark;
    double darkOpacity;
};

constexpr Written written[] = {
    {"win", "#FFFFFF", 1, "#1C1C1E", 1},           {"sidebar", "#F6F6F8", 0.8, "#262628", 0.72},
    {"content", "#FFFFFF", 1, "#1C1C1E", 1},       {"card", "#F5F5F7", 1, "#2C2C2E", 1},
    {"cardHover", "#EEEEF1", 1, "#333335", 1},     {"well", "#FAFAFC", 1, "#242426", 1},
    {"sep", "#000000", 0.09, "#FFFFFF", 0.09},     {"sep2", "#000000", 0.055, "#FFFFFF", 0.055},
    {"label", "#000000", 1, "#FFFFFF", 1},         {"label2", "#000000", 0.64, "#FFFFFF", 0.66},
    {"label3", "#000000", 0.58, "#FFFFFF", 0.56},  {"btn", "#000000", 0.06, "#FFFFFF", 0.11},
    {"btnHover", "#000000", 0.1, "#FFFFFF", 0.17}, {"accent", "#007AFF", 1, "#0A84FF", 1},
    {"accentHover", "#0A6FE0", 1, "#3D9DFF", 1},   {"accentTint", "#007AFF", 0.12, "#0A84FF", 0.16},
    {"red", "#FF3B30", 1, "#FF453A", 1},           {"redHover", "#E32A20", 1, "#FF6259", 1},
    {"green", "#34C759", 1, "#30D158", 1},         {"amber", "#FF9F0A", 1, "#FFD60A", 1},
    {"sheet", "#F2F2F5", 1, "#3A3A3C", 1},         {"scrim", "#000000", 0.24, "#000000", 0.42},
};

void expectColor(const Palette& palette, const Written& row, const char* rgb, double opacity)
{
    const auto color = palette.property(row.field).value<QColor>();
    EXPECT_EQ(color.name(QColor::HexRgb).toUpper(), QString::fromLatin1(rgb)) << row.field;
    EXPECT_NEAR(static_cast<double>(color.alphaF()), opacity, 1.0 / 65535) << row.field;
}

} // namespace

TEST(Palettes, EveryColourOfTheLightThemeIsTheWrittenOne)
{
    const Palette palette(Palette::Kind::Light);
    for (const Written& row : written)
        expectColor(palette, row, row.light, row.lightOpacity);
}

TEST(Palettes, EveryColourOfTheDarkThemeIsTheWrittenOne)
{
    const Palette palette(Palette::Kind::Dark);
    for (const Written& row : written)
        expectColor(palette, row, row.dark, row.darkOpacity);
}

TEST(Palettes, TheFieldsAreTheWrittenTwentyTwoInTheirOrderAndNeverChange)
{
    const QMetaObject& type = Palette::staticMetaObject;
    ASSERT_EQ(type.propertyCount() - type.propertyOffset(), static_cast<int>(std::size(written)));
    for (int i = 0; i < static_cast<int>(std::size(written)); ++i) {
        const QMetaProperty property = type.property(type.propertyOffset() + i);
        EXPECT_STREQ(property.name(), written[i].field);
        EXPECT_TRUE(property.isConstant());
        EXPECT_FALSE(property.isWritable());
    }
}

TEST(Palettes, TheThemeHandsOutTheSameTwoWheneverItChanges)
{
    Theme theme;
    int changes = 0;
    QObject::connect(&theme, &Theme::lightChanged, &theme, [&] { ++changes; });
    const Palette* light = theme.palette();
    theme.setLight(false);
    const Palette* dark = theme.palette();
    EXPECT_NE(light, dark);
    EXPECT_EQ(dark->win(), QColor(0x1C, 0x1C, 0x1E));
    theme.setLight(true);
    EXPECT_EQ(theme.palette(), light);
    EXPECT_EQ(changes, 2);
}

TEST(Palettes, ToSetTheThemeThatIsSetTellsNobody)
{
    Theme theme;
    int changes = 0;
    QObject::connect(&theme, &Theme::lightChanged, &theme, [&] { ++changes; });
    theme.setLight(true);
    EXPECT_EQ(changes, 0);
}

} // namespace zolva
