#pragma once

#include <string_view>

namespace zolva {

/// Where OpenGL is itself drawn by the processor, or is not there, lets the toolkit paint instead:
/// it paints anew only what has changed, for a quarter of the work. An environment that chooses
/// (QT_QUICK_BACKEND, QSG_RHI_BACKEND) is left its choice. On the main thread, between the making
/// of the application and that of its first window.
void chooseDrawing();

/// By the name of what OpenGL is drawn by; an empty one where there is no OpenGL.
[[nodiscard]] bool needsPainter(std::string_view renderer);

/// By the environment, or by a system that draws by another interface than OpenGL.
[[nodiscard]] bool isDrawingChosen();

/// Whether that is the name of a renderer that draws by the processor.
[[nodiscard]] bool isSoftwareRenderer(std::string_view name);

} // namespace zolva
