#include "desktop/Display.h"

namespace zolva {

bool hasDisplay()
{
    return true;
}

} // namespace zolva
