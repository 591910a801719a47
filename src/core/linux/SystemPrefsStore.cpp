#include "core/SystemPrefsStore.h"

#include "core/JsonPrefsStore.h"
#include "files/HomeFolder.h"
#include "files/PathText.h"

#include <cstdlib>
#include <string>

namespace zolva {

std::unique_ptr<PrefsStore> systemPrefsStore()
{
    const char* configured = std::getenv("XDG_CONFIG_HOME");
    // A relative path there is to be taken as none.
    const std::string base = configured != nullptr && *configured == '/'
                                 ? std::string(configured)
                                 : joinedPath(homeFolder(), ".config");
    return std::make_unique<JsonPrefsStore>(joinedPath(base, "zolva/preferences.json"));
}

} // namespace zolva
