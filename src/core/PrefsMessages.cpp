#include "core/PrefsMessages.h"

#include "files/DisplayPath.h"

namespace zolva {

std::string prefsUnreadText(const std::string& reason)
{
    return "Zolva can't read your settings: " + reason +
           ". Nothing is cleaned, moved or uninstalled until it knows what "
           "never to touch.";
}

std::optional<std::string> prefsTroubleText(const PrefsTrouble& trouble)
{
    if (!trouble.unread.empty()) {
        return prefsUnreadText(trouble.unread);
    }
    if (!trouble.damaged.empty()) {
        return "Your settings were damaged, so nothing is listed under \"Never touch these\". "
               "The old file is " +
               displayLine(tildePath(trouble.damaged)) + ".";
    }
    return std::nullopt;
}

} // namespace zolva
