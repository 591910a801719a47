#include "removal/TrashMessages.h"

#include "removal/runs/RunMessages.h"

namespace zolva {

QString newItemsText()
{
    return QStringLiteral("New items in the Trash, empty it to reclaim the space.");
}

QString trashUnreadableText()
{
    return QStringLiteral("Zolva can't read the Trash. Grant Full Disk Access in System Settings.");
}

QString trashAlreadyEmptyText()
{
    return QStringLiteral("The Trash is already empty.");
}

QString trashEmptiedText(std::int64_t emptied, std::int64_t failed)
{
    if (failed == 0) {
        return QStringLiteral("Trash emptied.");
    }
    return QStringLiteral("Emptied ") + counted(emptied, "item") + ", " + QString::number(failed) +
           " could not be removed.";
}

} // namespace zolva
