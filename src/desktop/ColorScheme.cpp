#include "desktop/ColorScheme.h"

namespace zolva {

bool isDarkPalette(const QPalette& palette)
{
    return palette.color(QPalette::WindowText).lightness() >
           palette.color(QPalette::Window).lightness();
}

} // namespace zolva
