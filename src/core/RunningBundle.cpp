#include "core/RunningBundle.h"

#include "core/Resources.h"

#include <string>

namespace zolva {

AppBundle runningBundle()
{
    return {.shortVersion = ZOLVA_VERSION,
            .version = std::to_string(ZOLVA_BUILD),
            .resourceFolders = resourceFolders(),
            .checksForUpdates = ZOLVA_UPDATE_CHECK != 0};
}

} // namespace zolva
