#include "screens/kit/FaceFamilies.h"

#include <QDirIterator>
#include <QFile>
#include <QFontDatabase>

namespace zolva {
namespace {

FaceFamilies load()
{
    QDirIterator files(QStringLiteral(":/kit/fonts"),
                       {QStringLiteral("*.otf"), QStringLiteral("*.ttf")});
    while (files.hasNext()) {
        QFile file(files.next());
        if (!file.open(QIODevice::ReadOnly) ||
            QFontDatabase::addApplicationFontFromData(file.readAll()) < 0)
            qWarning("The font %s cannot be used", qPrintable(file.fileName()));
    }
    return {{QStringLiteral("Zolva Text"), QStringLiteral("Zolva Text Half")},
            {QStringLiteral("Zolva Mono"), QStringLiteral("Zolva Mono Half")}};
}

} // namespace

const FaceFamilies& faceFamilies()
{
    static const FaceFamilies families = load();
    return families;
}

} // namespace zolva
