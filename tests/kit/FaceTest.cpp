#include "screens/kit/Face.h"

#include <QFile>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QGlyphRun>
#include <QRawFont>
#include <QTextLayout>

#include <gtest/gtest.h>

#include <set>

namespace zolva {
namespace {

constexpr int weights[] = {QFont::Normal, QFont::Medium, QFont::DemiBold, QFont::Bold};

qreal widthOf(const QFont& font, const char* text)
{
    return QFontMetricsF(font).horizontalAdvance(QString::fromUtf8(text));
}

QList<quint32> glyphsOf(const QFont& font, const QString& text)
{
    QTextLayout layout(text, font);
    layout.beginLayout();
    layout.createLine();
    layout.endLayout();
    QList<quint32> glyphs;
    for (const QGlyphRun& run : layout.glyphRuns())
        glyphs += run.glyphIndexes();
    return glyphs;
}

} // namespace

TEST(Faces, AllDigitsOfTheTextFaceAreOfOneWidthAtEveryWeight)
{
    const Face face;
    for (const int weight : weights) {
        for (const qreal size : {11.5, 13.0, 28.0}) {
            const QFont font = face.text(size, weight);
            for (const char* digit : {"1", "2", "3", "4", "5", "6", "7", "8", "9"})
                EXPECT_EQ(widthOf(font, digit), widthOf(font, "0")) << digit << " at " << weight;
        }
    }
}

TEST(Faces, TwoNumbersOfAsManyDigitsAreOfOneWidth)
{
    const Face face;
    for (const int weight : weights)
        EXPECT_EQ(widthOf(face.text(12.5, weight), "11.17 GB"),
                  widthOf(face.text(12.5, weight), "84.90 GB"));
}

TEST(Faces, LettersOfTheTextFaceAreNotAllOfOneWidth)
{
    const QFont font = Face().text(13);
    EXPECT_LT(widthOf(font, "iiii"), widthOf(font, "mmmm"));
}

TEST(Faces, AllLettersOfTheMonoFaceAreOfOneWidth)
{
    const QFont font = Face().mono(11.5);
    EXPECT_EQ(widthOf(font, "iiii"), widthOf(font, "mmmm"));
}

TEST(Faces, AHalfPixelOfSizeIsSeen)
{
    const Face face;
    const char* text = "Rebuildable caches and logs";
    for (const int weight : weights) {
        EXPECT_LT(widthOf(face.text(12, weight), text), widthOf(face.text(12.5, weight), text));
        EXPECT_LT(widthOf(face.text(12.5, weight), text), widthOf(face.text(13, weight), text));
    }
    EXPECT_LT(widthOf(face.mono(11), text), widthOf(face.mono(11.5), text));
    EXPECT_LT(widthOf(face.mono(11.5), text), widthOf(face.mono(12), text));
}

TEST(Faces, TextIsAsLargeAsItsSizeToATwentiethOfAPixel)
{
    // All sizes that the screens use, by the height of a line; which is some 1.2 times the size.
    const Face face;
    const qreal line = QFontMetricsF(face.text(100)).height() / 100;
    const qreal width = widthOf(face.text(100), "Reclaim") / 100;
    for (const qreal size : {10.0, 11.5, 12.0, 12.5, 13.0, 13.5, 14.0, 15.0, 28.0, 40.0}) {
        EXPECT_NEAR(widthOf(face.text(size), "Reclaim") / width, size, 0.06) << size;
        EXPECT_NEAR(QFontMetricsF(face.text(size)).height() / line, size, 0.9) << size;
    }
}

TEST(Faces, TheFourWeightsAreFourFonts)
{
    const Face face;
    std::set<QString> styles;
    std::set<qreal> widths;
    for (const int weight : weights) {
        styles.insert(QRawFont::fromFont(face.text(13, weight)).styleName());
        widths.insert(widthOf(face.text(40, weight), "Reclaim"));
    }
    EXPECT_EQ(styles.size(), std::size(weights));
    EXPECT_EQ(widths.size(), std::size(weights));
}

TEST(Faces, TheProgramsOwnFacesAreUsed)
{
    EXPECT_EQ(QFontInfo(Face().text(13)).family(), QStringLiteral("Zolva Text"));
    EXPECT_EQ(QFontInfo(Face().mono(13)).family(), QStringLiteral("Zolva Mono"));
}

TEST(Faces, TrackingIsAddedAfterEachLetter)
{
    const Face face;
    EXPECT_NEAR(widthOf(face.text(28, QFont::Bold, -0.6), "Clean"),
                widthOf(face.text(28, QFont::Bold), "Clean") - 5 * 0.6, 0.05);
}

TEST(Faces, WhatIsWrittenIsShownSignBySign)
{
    const Face face;
    const auto text = QStringLiteral("a->b--c != 10x20 www ===");
    for (const QFont& font : {face.text(13), face.mono(13)}) {
        QList<quint32> written;
        for (const QChar sign : text)
            written += glyphsOf(font, QString(sign));
        EXPECT_EQ(glyphsOf(font, text), written);
    }
}

TEST(Faces, TheFontsComeWithTheirLicences)
{
    const auto text = [](const char* name) {
        QFile file(QStringLiteral(":/kit/fonts/%1.txt").arg(QLatin1String(name)));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    };
    EXPECT_TRUE(text("fonts-inter").contains("Open Font License"));
    EXPECT_TRUE(text("fonts-jetbrains-mono").contains("Apache License, Version 2.0"));
    EXPECT_TRUE(text("licenses-Apache-2.0").contains("TERMS AND CONDITIONS"));
}

} // namespace zolva
