#include "desktop/ColorScheme.h"
#include "desktop/FakePortal.h"
#include "desktop/PrivateBus.h"
#include "desktop/linux/PortalColorScheme.h"
#include "support/qt/EventLoop.h"

#include <gtest/gtest.h>

#include <QGuiApplication>

#include <chrono>
#include <functional>
#include <optional>

namespace zolva::test {

namespace {

const auto space = QStringLiteral("org.freedesktop.appearance");
const auto key = QStringLiteral("color-scheme");
const auto full = QStringLiteral("org.freedesktop.appearance color-scheme");

QVariant number(uint value)
{
    return QVariant::fromValue(value);
}

/// The program's palette, as long as it lives.
class ScopedPalette
{
public:
    ScopedPalette(const QColor& text, const QColor& window) : m_before(QGuiApplication::palette())
    {
        QPalette palette = m_before;
        palette.setColor(QPalette::WindowText, text);
        palette.setColor(QPalette::Window, window);
        QGuiApplication::setPalette(palette);
        pumpOnce();
    }
    ~ScopedPalette() { QGuiApplication::setPalette(m_before); }
    ScopedPalette(const ScopedPalette&) = delete;
    ScopedPalette& operator=(const ScopedPalette&) = delete;

private:
    QPalette m_before;
};

class ColorScheme : public ::testing::Test
{
protected:
    ScopedPalette lightPalette{Qt::black, Qt::white};
    PrivateBus bus;
    FakePortal portal{bus.connection()};
};

/// How often it told a change.
int changesDuring(PortalColorScheme& scheme, const std::function<void()>& what)
{
    int count = 0;
    QObject context;
    QObject::connect(&scheme, &SystemAppearance::changed, &context, [&count] { ++count; });
    what();
    return count;
}

TEST_F(ColorScheme, IsKnownFromTheFirstMomentWhereThePortalRuns)
{
    portal.appear();
    portal.set(full, number(1));
    EXPECT_EQ(PortalColorScheme(bus.connection()).isDark(), true);
    portal.set(full, number(2));
    const ScopedPalette dark(Qt::white, Qt::black);
    EXPECT_EQ(PortalColorScheme(bus.connection()).isDark(), false);
}

TEST_F(ColorScheme, WithoutAPreferenceIsThatOfThePalette)
{
    portal.appear();
    portal.set(full, number(0));
    EXPECT_EQ(PortalColorScheme(bus.connection()).isDark(), false);
    const ScopedPalette dark(Qt::white, Qt::black);
    EXPECT_EQ(PortalColorScheme(bus.connection()).isDark(), true);
}

TEST_F(ColorScheme, WithoutAPortalIsThatOfThePalette)
{
    EXPECT_EQ(PortalColorScheme(bus.connection()).isDark(), false);
    EXPECT_EQ(PortalColorScheme(noBus()).isDark(), false);
    const ScopedPalette dark(Qt::white, Qt::black);
    EXPECT_EQ(PortalColorScheme(bus.connection()).isDark(), true);
    EXPECT_EQ(PortalColorScheme(noBus()).isDark(), true);
    EXPECT_EQ(portal.reads(), 0);
}

TEST_F(ColorScheme, IsNotReadFromAnswersThatAreNoNumberOfThePortal)
{
    portal.appear();
    for (const QVariant& garbage :
         {QVariant(QStringLiteral("1")), QVariant(true), QVariant(-1), number(3),
          QVariant(QVariantList{1}), QVariant(1.0), number(0xFFFFFFFF)}) {
        portal.set(full, garbage);
        EXPECT_EQ(PortalColorScheme(bus.connection()).isDark(), false) << garbage.typeName();
    }
}

TEST_F(ColorScheme, IsThatOfThePaletteWhereThePortalDoesNotKnowTheSetting)
{
    portal.appear();
    const ScopedPalette dark(Qt::white, Qt::black);
    EXPECT_EQ(PortalColorScheme(bus.connection()).isDark(), true);
    EXPECT_GE(portal.reads(), 1);
}

TEST_F(ColorScheme, IsWaitedForNoLongerThanAMoment)
{
    portal.appear();
    portal.setSilent(true);
    const auto begin = std::chrono::steady_clock::now();
    const PortalColorScheme scheme(bus.connection());
    const auto took = std::chrono::steady_clock::now() - begin;
    EXPECT_EQ(scheme.isDark(), false);
    // A tenth of a second, and what a busy machine adds.
    EXPECT_LT(took, std::chrono::seconds(2));
    EXPECT_GE(portal.reads(), 1);
}

TEST_F(ColorScheme, FollowsTheDesktop)
{
    portal.appear();
    portal.set(full, number(2));
    PortalColorScheme scheme(bus.connection());
    EXPECT_EQ(changesDuring(scheme,
                            [&] {
                                portal.tellChange(space, key, number(1));
                                pumpUntil([&] { return scheme.isDark() == true; });
                            }),
              1);
    EXPECT_EQ(changesDuring(scheme,
                            [&] {
                                portal.tellChange(space, key, number(0));
                                pumpUntil([&] { return scheme.isDark() == false; });
                            }),
              1);
}

TEST_F(ColorScheme, TellsNothingWhereNothingChanged)
{
    portal.appear();
    portal.set(full, number(2));
    PortalColorScheme scheme(bus.connection());
    EXPECT_EQ(changesDuring(scheme,
                            [&] {
                                portal.tellChange(space, key, number(2));
                                portal.tellChange(space, QStringLiteral("contrast"), number(1));
                                portal.tellChange(QStringLiteral("org.other"), key, number(1));
                                portal.tellChange(space, key, QStringLiteral("dark"));
                                portal.tellChange(space, key, number(1)); // comes after the others
                                pumpUntil([&] { return scheme.isDark() == true; });
                            }),
              1);
}

TEST_F(ColorScheme, IsAskedAgainWhenThePortalAppears)
{
    PortalColorScheme scheme(bus.connection());
    EXPECT_EQ(scheme.isDark(), false);
    portal.set(full, number(1));
    EXPECT_EQ(changesDuring(scheme,
                            [&] {
                                portal.appear();
                                pumpUntil([&] { return scheme.isDark() == true; });
                            }),
              1);
}

TEST_F(ColorScheme, StaysWhenThePortalVanishes)
{
    portal.appear();
    portal.set(full, number(1));
    const PortalColorScheme scheme(bus.connection());
    portal.vanish();
    pumpOnce();
    EXPECT_EQ(scheme.isDark(), true);
}

TEST_F(ColorScheme, FollowsThePaletteWhereOnlyThatTells)
{
    PortalColorScheme scheme(noBus());
    {
        std::optional<ScopedPalette> dark;
        EXPECT_EQ(changesDuring(scheme, [&dark] { dark.emplace(Qt::white, Qt::black); }), 1);
        EXPECT_EQ(scheme.isDark(), true);
        EXPECT_EQ(changesDuring(scheme, [&dark] { dark.reset(); }), 1);
    }
    EXPECT_EQ(scheme.isDark(), false);
}

TEST(DarkPalette, HasTextLighterThanItsGround)
{
    EXPECT_TRUE(isDarkPalette(QPalette(Qt::white, Qt::gray, Qt::gray, Qt::gray, Qt::gray, Qt::white,
                                       Qt::white, Qt::black, Qt::black)));
    QPalette palette;
    palette.setColor(QPalette::WindowText, QColor(20, 20, 20));
    palette.setColor(QPalette::Window, QColor(240, 240, 240));
    EXPECT_FALSE(isDarkPalette(palette));
    palette.setColor(QPalette::WindowText, QColor(240, 240, 240));
    EXPECT_FALSE(isDarkPalette(palette)) << "one colour is not dark";
}

} // namespace

} // namespace zolva::test
