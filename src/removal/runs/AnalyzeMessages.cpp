#include "removal/runs/AnalyzeMessages.h"

#include "files/DisplayPath.h"
#include "files/SizeText.h"

namespace zolva {

namespace {

QString shown(const std::string& bytes)
{
    return QString::fromStdString(displayLine(bytes));
}

} // namespace

QString cannotMoveText(const std::string& refusal)
{
    return QStringLiteral("Can't move that to the Trash: ") + shown(refusal);
}

QString neverTouchText(const std::string& name)
{
    return shown(name) + " is in your \"Never touch these\" list.";
}

QString isGoneText(const std::string& name)
{
    return shown(name) + " is already gone";
}

QString moveFailedText(const std::string& name, const std::string& error)
{
    return QStringLiteral("Couldn't move ") + shown(name) + " to the Trash: " + shown(error);
}

QString movedToTrashText(std::int64_t bytes)
{
    return QStringLiteral("Moved ") + QString::fromStdString(sizeText(bytes)) + " to the Trash";
}

QString cannotPutBackText()
{
    return QStringLiteral("That item can no longer be put back");
}

QString leftTheTrashText(const std::string& name)
{
    return shown(name) + " is no longer in the Trash, so it can't be put back";
}

QString placeTakenText(const std::string& path, const std::string& name)
{
    return QStringLiteral("Something else is already at ") + shown(path) + ", so " + shown(name) +
           " stayed in the Trash";
}

QString putBackFailedText(const std::string& name, const std::string& error)
{
    return QStringLiteral("Couldn't put ") + shown(name) + " back: " + shown(error);
}

} // namespace zolva
