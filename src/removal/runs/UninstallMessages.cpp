#include "removal/runs/UninstallMessages.h"

#include "removal/runs/RunMessages.h"

namespace zolva {

QString stillRunningText(std::int64_t apps)
{
    return QStringLiteral("Couldn't quit ") + counted(apps, "app") +
           " to uninstall it. Quit it manually and try again.";
}

QString needsPasswordText(std::int64_t apps)
{
    return QStringLiteral("Couldn't uninstall ") + counted(apps, "app") +
           ". It may need an administrator password.";
}

QString uninstalledText(std::int64_t apps)
{
    return QStringLiteral("Uninstalled ") + counted(apps, "app");
}

QString stillStuckText(std::int64_t apps)
{
    return QStringLiteral("Still couldn't uninstall ") + counted(apps, "app") +
           ". The authentication may have been canceled.";
}

} // namespace zolva
