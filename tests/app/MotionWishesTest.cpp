#include "app/MotionWishes.h"
#include "support/qt/EventLoop.h"

#include <gtest/gtest.h>

namespace zolva::test {

namespace {

class ScriptedWish final : public ReducedMotion
{
public:
    [[nodiscard]] bool isReduced() const override { return m_reduced; }
    void set(bool reduced)
    {
        m_reduced = reduced;
        Q_EMIT changed();
    }

private:
    bool m_reduced = false;
};

class MotionWishes : public ::testing::Test
{
protected:
    MotionWishes() { QQuickWindow::setGraphicsApi(QSGRendererInterface::Software); }
};

TEST_F(MotionWishes, FollowTheDesktop)
{
    ScriptedWish wish;
    wish.set(true);
    Motion motion;
    QQuickWindow window;
    followMotion(motion, wish, window);
    EXPECT_TRUE(motion.isReduced());
    wish.set(false);
    EXPECT_FALSE(motion.isReduced());
    wish.set(true);
    EXPECT_TRUE(motion.isReduced());
}

TEST_F(MotionWishes, KnowTheWindowThatIsDrawnByTheProcessor)
{
    const ScriptedWish wish;
    Motion motion;
    QQuickWindow window;
    followMotion(motion, wish, window);
    EXPECT_FALSE(motion.isSoftware());
    window.resize(100, 100);
    window.show();
    pumpUntil([&motion] { return motion.isSoftware(); });
}

TEST(SoftwareRenderer, IsKnownByItsName)
{
    for (const char* name : {"llvmpipe (LLVM 15.0.6, 256 bits)", "softpipe", "Software swrast"}) {
        EXPECT_TRUE(isSoftwareRenderer(name)) << name;
    }
    for (const char* name : {"", "Mesa Intel(R) UHD Graphics 620 (KBL GT2)", "Apple M1", "virgl"}) {
        EXPECT_FALSE(isSoftwareRenderer(name)) << name;
    }
}

} // namespace

} // namespace zolva::test
