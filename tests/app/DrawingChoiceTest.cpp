#include "app/DrawingChoice.h"

#include <gtest/gtest.h>

#include <QQuickWindow>

namespace zolva::test {

namespace {

/// The toolkit would draw by OpenGL, and nothing in the environment is set.
class DrawingChoice : public ::testing::Test
{
protected:
    DrawingChoice()
    {
        qunsetenv("QT_QUICK_BACKEND");
        qunsetenv("QSG_RHI_BACKEND");
        QQuickWindow::setGraphicsApi(QSGRendererInterface::OpenGL);
    }
    ~DrawingChoice() override
    {
        restore("QT_QUICK_BACKEND", m_backend, m_hadBackend);
        restore("QSG_RHI_BACKEND", m_rhi, m_hadRhi);
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    }
    DrawingChoice(const DrawingChoice&) = delete;
    DrawingChoice& operator=(const DrawingChoice&) = delete;

private:
    static void restore(const char* name, const QByteArray& value, bool had)
    {
        if (had) {
            qputenv(name, value);
        } else {
            qunsetenv(name);
        }
    }

    bool m_hadBackend = qEnvironmentVariableIsSet("QT_QUICK_BACKEND");
    bool m_hadRhi = qEnvironmentVariableIsSet("QSG_RHI_BACKEND");
    QByteArray m_backend = qgetenv("QT_QUICK_BACKEND");
    QByteArray m_rhi = qgetenv("QSG_RHI_BACKEND");
};

TEST(DrawingChoiceByName, IsTheToolkitsPainterWhereOpenGlIsDrawnByTheProcessorOrIsNotThere)
{
    EXPECT_TRUE(needsPainter("llvmpipe (LLVM 15.0.6, 256 bits)"));
    EXPECT_TRUE(needsPainter(""));
}

TEST(DrawingChoiceByName, IsOpenGlWhereHardwareDrawsIt)
{
    EXPECT_FALSE(needsPainter("Mesa Intel(R) UHD Graphics 620 (KBL GT2)"));
}

TEST_F(DrawingChoice, IsLeftToAnEnvironmentThatChooses)
{
    qputenv("QSG_RHI_BACKEND", "opengl");
    EXPECT_TRUE(isDrawingChosen());
    qunsetenv("QSG_RHI_BACKEND");
    EXPECT_FALSE(isDrawingChosen());
    qputenv("QT_QUICK_BACKEND", "rhi");
    EXPECT_TRUE(isDrawingChosen());
}

TEST_F(DrawingChoice, IsLeftToASystemThatDrawsByAnotherInterface)
{
    QQuickWindow::setGraphicsApi(QSGRendererInterface::Vulkan);
    EXPECT_TRUE(isDrawingChosen());
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
