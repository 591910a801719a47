#include "app/DrawingChoice.h"

#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QQuickWindow>

#include <algorithm>
#include <array>
#include <string>

namespace zolva {

namespace {

/// Empty where there is no OpenGL.
std::string rendererName()
{
    QOffscreenSurface surface;
    surface.create();
    QOpenGLContext context;
    if (!context.create() || !context.makeCurrent(&surface)) {
        return {};
    }
    const GLubyte* const name = context.functions()->glGetString(GL_RENDERER);
    return name != nullptr ? reinterpret_cast<const char*>(name) : "";
}

} // namespace

void chooseDrawing()
{
    if (!isDrawingChosen() && needsPainter(rendererName())) {
        QQuickWindow::setGraphicsApi(QSGRendererInterface::Software);
    }
}

bool needsPainter(std::string_view renderer)
{
    return renderer.empty() || isSoftwareRenderer(renderer);
}

bool isDrawingChosen()
{
    return qEnvironmentVariableIsSet("QT_QUICK_BACKEND") ||
           qEnvironmentVariableIsSet("QSG_RHI_BACKEND") ||
           QQuickWindow::graphicsApi() != QSGRendererInterface::OpenGL;
}

bool isSoftwareRenderer(std::string_view name)
{
    constexpr std::array<std::string_view, 3> known = {"llvmpipe", "softpipe", "swrast"};
    return std::any_of(known.begin(), known.end(), [name](std::string_view one) {
        return name.find(one) != std::string_view::npos;
    });
}

} // namespace zolva
