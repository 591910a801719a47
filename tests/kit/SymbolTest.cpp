#include "screens/kit/Symbol.h"
#include "screens/kit/BlurredSymbol.h"
#include "screens/kit/NoiseOverlay.h"
#include "screens/kit/Shadow.h"
#include "screens/kit/SymbolImage.h"

#include <QQuickRenderControl>
#include <QQuickRenderTarget>
#include <QQuickWindow>

#include <gtest/gtest.h>

namespace zolva {
namespace {

/// A window of a screen of this ratio that draws into an image.
class Stage
{
public:
    Stage() : m_window(&m_control)
    {
        m_window.setGeometry(0, 0, side, side);
        m_window.contentItem()->setSize(QSizeF(side, side));
        m_window.setColor(Qt::transparent);
    }

    QQuickItem* ground() { return m_window.contentItem(); }

    QImage shown(qreal ratio)
    {
        const int pixels = qRound(side * ratio);
        QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(ratio);
        image.fill(Qt::transparent);
        QQuickRenderTarget target = QQuickRenderTarget::fromPaintDevice(&image);
        target.setDevicePixelRatio(ratio);
        m_window.setRenderTarget(target);
        Q_EMIT m_window.screenChanged(m_window.screen()); // as when it is dragged to another
        m_control.polishItems();
        m_control.beginFrame();
        m_control.sync();
        m_control.render();
        m_control.endFrame();
        image.setDevicePixelRatio(1);
        return image;
    }

    static constexpr int side = 60;

private:
    QQuickRenderControl m_control;
    QQuickWindow m_window;
};

QImage drawn(const QString& name, int pixels, int weight = QFont::Normal)
{
    return symbolImage({name, pixels, weight, Qt::red});
}

int inkOf(const QImage& image)
{
    int ink = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            ink += qAlpha(image.pixel(x, y));
    return ink;
}

} // namespace

TEST(Symbols, TheImageIsAsLargeAsAskedFor)
{
    for (const int pixels : {9, 13, 20, 39, 920})
        EXPECT_EQ(drawn(QStringLiteral("trash"), pixels).size(), QSize(pixels, pixels));
}

TEST(Symbols, OneOfTwiceTheSizeIsDrawnFinerNotStretched)
{
    const QImage small = drawn(QStringLiteral("gearshape"), 16);
    EXPECT_NE(drawn(QStringLiteral("gearshape"), 32),
              small.scaled(32, 32, Qt::KeepAspectRatio, Qt::SmoothTransformation));
}

TEST(Symbols, TheColourIsTheAskedOneWhereverThereIsInk)
{
    const QImage image = drawn(QStringLiteral("house"), 64);
    ASSERT_GT(inkOf(image), 0);
    for (int y = 0; y < 64; ++y) {
        for (int x = 0; x < 64; ++x) {
            const QColor color = image.pixelColor(x, y);
            if (color.alpha() != 0) {
                ASSERT_EQ(color.rgb(), qRgb(255, 0, 0)) << color.alpha();
            }
        }
    }
}

TEST(Symbols, AHeavierWeightHasMoreInk)
{
    int before = 0;
    for (const int weight : {QFont::Normal, QFont::Medium, QFont::DemiBold, QFont::Bold}) {
        const int ink = inkOf(drawn(QStringLiteral("chevron.right"), 48, weight));
        EXPECT_GT(ink, before) << weight;
        before = ink;
    }
}

TEST(Symbols, WhatWasDrawnLatelyIsKept)
{
    EXPECT_EQ(drawn(QStringLiteral("power"), 21).cacheKey(),
              drawn(QStringLiteral("power"), 21).cacheKey());
}

TEST(Symbols, WhatIsKeptHasABound)
{
    const qint64 first = drawn(QStringLiteral("power"), 22).cacheKey();
    for (int pixels = 500; pixels < 520; ++pixels) // over a million bytes each
        EXPECT_EQ(drawn(QStringLiteral("power"), pixels).width(), pixels);
    EXPECT_NE(drawn(QStringLiteral("power"), 22).cacheKey(), first);
}

TEST(Symbols, AnUnknownNameDrawsNothing)
{
    EXPECT_TRUE(drawn(QStringLiteral("no.such.symbol"), 16).isNull());
    EXPECT_TRUE(drawn(QString(), 16).isNull());
    EXPECT_TRUE(drawn(QStringLiteral("../fonts/fonts-inter.licence"), 16).isNull());
}

TEST(Symbols, AnUnknownNameIsWarnedAboutAndAnEmptyOneIsNot)
{
    static QStringList warnings;
    warnings.clear();
    const QtMessageHandler before = qInstallMessageHandler(
        [](QtMsgType, const QMessageLogContext&, const QString& text) { warnings << text; });
    Symbol symbol;
    symbol.setName(QStringLiteral("house"));
    symbol.setName(QString());
    EXPECT_TRUE(warnings.isEmpty());
    symbol.setName(QStringLiteral("no.such.symbol"));
    qInstallMessageHandler(before);
    EXPECT_EQ(warnings,
              QStringList(QStringLiteral("There is no icon for the symbol \"no.such.symbol\"")));
}

TEST(Symbols, OneIsAsLargeAsItsSizeUnlessToldOtherwise)
{
    Symbol symbol;
    symbol.setSize(12.5);
    EXPECT_EQ(symbol.implicitWidth(), 12.5);
    EXPECT_EQ(symbol.implicitHeight(), 12.5);
}

TEST(Symbols, EveryPixelOnTheScreenIsOneOfTheVectorsAtEveryRatio)
{
    Stage stage;
    Symbol symbol(stage.ground());
    symbol.setName(QStringLiteral("gearshape"));
    symbol.setColor(Qt::red);
    symbol.setSize(20);
    symbol.setPosition(QPointF(4, 8));
    for (const qreal ratio : {1.0, 1.5, 2.0, 3.0, 1.0}) {
        const int pixels = qRound(20 * ratio);
        const QImage seen =
            stage.shown(ratio).copy(qRound(4 * ratio), qRound(8 * ratio), pixels, pixels);
        EXPECT_EQ(seen, drawn(QStringLiteral("gearshape"), pixels)) << ratio;
    }
}

TEST(Symbols, OneStandsInTheMiddleOfALargerItemAtAWholePixel)
{
    Stage stage;
    Symbol symbol(stage.ground());
    symbol.setName(QStringLiteral("xmark"));
    symbol.setColor(Qt::red);
    symbol.setSize(13);
    symbol.setWidth(24);
    symbol.setHeight(30);
    const QImage seen = stage.shown(1);
    EXPECT_EQ(seen.copy(6, 9, 13, 13), drawn(QStringLiteral("xmark"), 13));
}

TEST(Symbols, AChangedNameIsShownAtOnce)
{
    Stage stage;
    Symbol symbol(stage.ground());
    symbol.setName(QStringLiteral("folder"));
    symbol.setColor(Qt::red);
    EXPECT_EQ(stage.shown(1).copy(0, 0, 16, 16), drawn(QStringLiteral("folder"), 16));
    symbol.setName(QStringLiteral("folder.fill"));
    EXPECT_EQ(stage.shown(1).copy(0, 0, 16, 16), drawn(QStringLiteral("folder.fill"), 16));
    symbol.setName(QString());
    EXPECT_EQ(inkOf(stage.shown(1)), 0);
}

TEST(BlurredSymbols, OneIsDrawnSmallAndSpreadsBeyondItsEdges)
{
    const BlurredImage blurred =
        blurredSymbolImage(QStringLiteral("gearshape.fill"), 460, 48, Qt::blue);
    EXPECT_LT(blurred.image.width(), 460);
    EXPECT_GT(blurred.margin, 2 * 48);
    EXPECT_GT(inkOf(blurred.image), 0);
    EXPECT_EQ(
        blurredSymbolImage(QStringLiteral("gearshape.fill"), 460, 48, Qt::blue).image.cacheKey(),
        blurred.image.cacheKey());
}

TEST(BlurredSymbols, AnUnknownNameDrawsNothing)
{
    EXPECT_TRUE(blurredSymbolImage(QStringLiteral("no.such"), 460, 48, Qt::blue).image.isNull());
}

TEST(BlurredSymbols, NoEdgeIsLeftToBeSeen)
{
    Stage stage;
    BlurredSymbol symbol(stage.ground());
    symbol.setName(QStringLiteral("externaldrive.fill"));
    symbol.setColor(Qt::black);
    symbol.setSize(60);
    symbol.setBlur(8);
    const QImage seen = stage.shown(1);
    ASSERT_GT(inkOf(seen), 0);
    for (int y = 0; y < Stage::side; ++y) {
        for (int x = 1; x < Stage::side; ++x)
            ASSERT_LT(std::abs(qAlpha(seen.pixel(x, y)) - qAlpha(seen.pixel(x - 1, y))), 24);
    }
}

TEST(Shadows, OneFadesAwayFromTheRectangleAsStrongAsAsked)
{
    Stage stage;
    Shadow shadow(stage.ground());
    shadow.setPosition(QPointF(20, 20));
    shadow.setSize(QSizeF(20, 20));
    shadow.setBlur(3);
    shadow.setRadius(4);
    shadow.setStrength(0.5);
    const QImage seen = stage.shown(1);
    EXPECT_NEAR(qAlpha(seen.pixel(30, 30)), 127, 3);
    EXPECT_NEAR(qAlpha(seen.pixel(19, 30)), 58, 12);
    EXPECT_EQ(qAlpha(seen.pixel(2, 30)), 0);
    for (int x = 2; x < 30; ++x)
        EXPECT_LE(qAlpha(seen.pixel(x - 1, 30)), qAlpha(seen.pixel(x, 30)));
}

TEST(Noise, TheWholeViewIsCovered)
{
    Stage stage;
    NoiseOverlay overlay(stage.ground());
    overlay.setSize(QSizeF(Stage::side, Stage::side));
    const QImage seen = stage.shown(1);
    EXPECT_EQ(seen, NoiseOverlay::tile().copy(0, 0, Stage::side, Stage::side));
}

} // namespace zolva
