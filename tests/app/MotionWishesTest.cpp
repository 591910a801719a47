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

} // namespace

} // namespace zolva::test
