#include "desktop/Display.h"

#include <cstdlib>

namespace zolva {

namespace {

bool isSet(const char* name)
{
    const char* value = std::getenv(name);
    return value != nullptr && *value != '\0';
}

} // namespace

bool hasDisplay()
{
    // Who names a platform knows what it needs.
    return isSet("DISPLAY") || isSet("WAYLAND_DISPLAY") || isSet("QT_QPA_PLATFORM");
}

} // namespace zolva
