#include "app/MotionWishes.h"

#include "app/DrawingChoice.h"

#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QSGRendererInterface>

namespace zolva {

namespace {

/// On the thread that draws, just after it got what it draws with.
bool isDrawnBySoftware(const QQuickWindow& window)
{
    const auto api = window.rendererInterface()->graphicsApi();
    if (api == QSGRendererInterface::Software) {
        return true;
    }
    QOpenGLContext* const context = QOpenGLContext::currentContext();
    if (api != QSGRendererInterface::OpenGL || context == nullptr) {
        return false;
    }
    const GLubyte* const name = context->functions()->glGetString(GL_RENDERER);
    return name != nullptr && isSoftwareRenderer(reinterpret_cast<const char*>(name));
}

} // namespace

void followMotion(Motion& motion, const ReducedMotion& wish, QQuickWindow& window)
{
    motion.setReduced(wish.isReduced());
    QObject::connect(&wish, &ReducedMotion::changed, &motion,
                     [&motion, &wish] { motion.setReduced(wish.isReduced()); });
    QObject::connect(
        &window, &QQuickWindow::sceneGraphInitialized, &motion,
        [&motion, &window] {
            const bool software = isDrawnBySoftware(window);
            QMetaObject::invokeMethod(
                &motion, [&motion, software] { motion.setSoftware(software); },
                Qt::QueuedConnection);
        },
        Qt::DirectConnection);
}

} // namespace zolva
