#include "desktop/FakePortal.h"
#include "desktop/PrivateBus.h"
#include "desktop/linux/PortalReducedMotion.h"
#include "support/qt/EventLoop.h"

#include <gtest/gtest.h>

namespace zolva::test {

namespace {

const auto appearance = QStringLiteral("org.freedesktop.appearance");
const auto reduced = QStringLiteral("reduced-motion");
const auto interface = QStringLiteral("org.gnome.desktop.interface");
const auto animations = QStringLiteral("enable-animations");

class ReducedMotionWish : public ::testing::Test
{
protected:
    void set(const QString& space, const QString& key, const QVariant& value)
    {
        portal.set(space + QLatin1Char(' ') + key, value);
    }

    PrivateBus bus;
    FakePortal portal{bus.connection()};
};

TEST_F(ReducedMotionWish, IsNotThereWithoutAPortal)
{
    EXPECT_FALSE(PortalReducedMotion(noBus()).isReduced());
    EXPECT_FALSE(PortalReducedMotion(bus.connection()).isReduced());
}

TEST_F(ReducedMotionWish, IsNotWaitedFor)
{
    portal.appear();
    set(interface, animations, false);
    const PortalReducedMotion motion(bus.connection());
    EXPECT_FALSE(motion.isReduced());
    pumpUntil([&] { return motion.isReduced(); });
}

TEST_F(ReducedMotionWish, ComesFromTheSettingOfAllDesktopsToo)
{
    portal.appear();
    set(appearance, reduced, QVariant::fromValue(1U));
    set(interface, animations, true);
    const PortalReducedMotion motion(bus.connection());
    pumpUntil([&] { return motion.isReduced(); });
}

TEST_F(ReducedMotionWish, FollowsTheDesktopAndTellsOnlyChanges)
{
    portal.appear();
    const PortalReducedMotion motion(bus.connection());
    pumpUntil([&] { return portal.reads() == 2; });
    int changes = 0;
    QObject context;
    QObject::connect(&motion, &ReducedMotion::changed, &context, [&changes] { ++changes; });
    portal.tellChange(interface, animations, true);
    portal.tellChange(interface, animations, false);
    portal.tellChange(appearance, reduced, QVariant::fromValue(1U));
    portal.tellChange(interface, animations, true);
    portal.tellChange(appearance, reduced, QVariant::fromValue(0U));
    pumpUntil([&] { return changes == 2; });
    EXPECT_FALSE(motion.isReduced());
}

TEST_F(ReducedMotionWish, IsNotReadFromGarbage)
{
    portal.appear();
    const PortalReducedMotion motion(bus.connection());
    int changes = 0;
    QObject context;
    QObject::connect(&motion, &ReducedMotion::changed, &context, [&changes] { ++changes; });
    for (const QVariant& garbage :
         {QVariant(QStringLiteral("false")), QVariant(0), QVariant(0.0), QVariant(QStringList())}) {
        portal.tellChange(interface, animations, garbage);
        portal.tellChange(appearance, reduced, garbage);
    }
    portal.tellChange(appearance, reduced, QVariant(true));
    portal.tellChange(interface, animations, false); // comes after the others
    pumpUntil([&] { return motion.isReduced(); });
    EXPECT_EQ(changes, 1);
}

TEST_F(ReducedMotionWish, IsAskedForAgainWhenThePortalAppears)
{
    const PortalReducedMotion motion(bus.connection());
    set(interface, animations, false);
    portal.appear();
    pumpUntil([&] { return motion.isReduced(); });
}

} // namespace

} // namespace zolva::test
