#include "screens/model/AppMessages.h"

#include "removal/runs/RunMessages.h"
#include "scanners/LeftoverScan.h"

#include "screens/model/MediumDate.h"
#include "screens/model/ShownText.h"

#include <QStringList>

namespace zolva {

namespace {

/// No singular: that of every count is the plural here.
QString filesText(std::int64_t count)
{
    return QString::number(count) + QStringLiteral(" files");
}

LeftoverLine leftoverLine(const ResidueRow& row)
{
    LeftoverLine line;
    line.place = shownLine(row.loc);
    line.path = shownLine(row.p);
    line.files = filesText(row.n);
    line.size = shownSize(row.b);
    line.spoken = line.files + QStringLiteral(", ") + line.size + QStringLiteral(". ") + line.path;
    if (row.shared) {
        const bool isKnown = row.sharedWith.has_value();
        line.tag = QStringLiteral("shared with ") +
                   (isKnown ? shownLine(*row.sharedWith) : QStringLiteral("another app"));
        line.kept =
            QStringLiteral("Kept: ") +
            (isKnown ? shownLine(*row.sharedWith) : QStringLiteral("another installed app")) +
            QStringLiteral(" uses this same path.");
        line.spoken += QStringLiteral(". ") + line.tag + QStringLiteral(". ") + line.kept;
    }
    return line;
}

} // namespace

QList<LeftoverLine> leftoverLines(const Leftovers& rows)
{
    QList<LeftoverLine> lines;
    lines.reserve(static_cast<qsizetype>(rows.size()));
    for (const ResidueRow& row : rows) {
        lines.push_back(leftoverLine(row));
    }
    return lines;
}

QString appMeta(const UninstallApp& app, const QLocale& locale)
{
    QStringList parts;
    if (app.version) {
        parts.push_back(QStringLiteral("Version ") + shownLine(*app.version));
    }
    if (app.installedDate) {
        parts.push_back(QStringLiteral("Installed ") + mediumDate(*app.installedDate, locale));
    }
    return parts.join(QStringLiteral(" · "));
}

std::int64_t bytesWithLeftovers(const UninstallApp& app, const Leftovers& rows)
{
    std::int64_t bytes = app.bundleBytes.value_or(0);
    for (const ResidueRow& row : rows) {
        if (row.loc != bundleLabel || !app.bundleBytes) {
            bytes += row.b;
        }
    }
    return bytes;
}

QString leftoverSummary(const UninstallApp& app, const Leftovers& rows)
{
    std::int64_t files = 0;
    for (const ResidueRow& row : rows) {
        files += row.n;
    }
    return filesText(files) + QStringLiteral(" in ") + QString::number(rows.size()) +
           QStringLiteral(" locations · ") + shownSize(bytesWithLeftovers(app, rows)) +
           QStringLiteral(" including leftovers");
}

QString appSize(const UninstallApp& app)
{
    return app.bundleBytes ? shownSize(*app.bundleBytes) : shownLine(app.size);
}

QString countedApps(std::size_t count)
{
    return counted(static_cast<std::int64_t>(count), QStringLiteral("application"));
}

QString uninstallNote(bool keepInTrash)
{
    return keepInTrash
               ? QStringLiteral("Checked apps go to the Trash, along with their leftover files.")
               : QStringLiteral(
                     "Checked apps are removed for good, along with their leftover files.");
}

QString uninstallTitle(std::size_t ticked)
{
    return ticked == 1
               ? QStringLiteral("Uninstall")
               : QStringLiteral("Uninstall ") + QString::number(ticked) + QStringLiteral(" apps");
}

} // namespace zolva
