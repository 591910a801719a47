#include "desktop/OpenPlaces.h"

#include "files/DisplayPath.h"

namespace zolva {

QString cannotOpen(const char* words, const std::string& path)
{
    return QString::fromUtf8(words) + QString::fromStdString(displayLine(tildePath(path))) +
           QStringLiteral(".");
}

QString cannotOpenPage(const std::string& url)
{
    return QString::fromUtf8(placewords::page) + QString::fromStdString(displayLine(url));
}

} // namespace zolva
