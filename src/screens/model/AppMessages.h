#pragma once

#include "files/Records.h"
#include "scanners/AppInventory.h"

#include <QList>
#include <QLocale>
#include <QQmlEngine>
#include <QString>

#include <cstddef>
#include <cstdint>
#include <vector>

/// The words about installed applications and what they leave behind. Pure.
namespace zolva {

/// One place where an application has left something.
class LeftoverLine
{
    Q_GADGET
    QML_VALUE_TYPE(leftoverLine)
    Q_PROPERTY(QString place MEMBER place)
    Q_PROPERTY(QString tag MEMBER tag)
    Q_PROPERTY(QString path MEMBER path)
    Q_PROPERTY(QString kept MEMBER kept)
    Q_PROPERTY(QString files MEMBER files)
    Q_PROPERTY(QString size MEMBER size)
    Q_PROPERTY(QString spoken MEMBER spoken)

public:
    QString place;
    QString tag; ///< who shares it; empty where nobody does, like `kept`
    QString path;
    QString kept;
    QString files;
    QString size;
    QString spoken; ///< all of it but the place

    friend bool operator==(const LeftoverLine&, const LeftoverLine&) = default;
};

using Leftovers = std::vector<ResidueRow>;

[[nodiscard]] QList<LeftoverLine> leftoverLines(const Leftovers& rows);

/// Version and day of installation, as far as they are known.
[[nodiscard]] QString appMeta(const UninstallApp& app, const QLocale& locale = QLocale());

/// The bundle, counted once, and everything else.
[[nodiscard]] std::int64_t bytesWithLeftovers(const UninstallApp& app, const Leftovers& rows);
/// "N files in M locations · S including leftovers"
[[nodiscard]] QString leftoverSummary(const UninstallApp& app, const Leftovers& rows);

/// The size of the bundle; the tool's own word where it was not measured.
[[nodiscard]] QString appSize(const UninstallApp& app);
[[nodiscard]] QString countedApps(std::size_t count); ///< "1 application", "2 applications"
/// Under the list.
[[nodiscard]] QString uninstallNote(bool keepInTrash);
[[nodiscard]] QString uninstallTitle(std::size_t ticked); ///< of the button

} // namespace zolva
