#pragma once

#include "files/Records.h"
#include "scanners/AppInventory.h"

#include <QList>
#include <QObject>
#include <QQmlEngine>
#include <QString>

#include <cstdint>
#include <vector>

/// The words of the confirmations. Pure. `keepInTrash` tells whether removals go to the Trash.
namespace zolva {

/// One line of the list in the confirmation.
class ConfirmRow
{
    Q_GADGET
    QML_VALUE_TYPE(confirmRow)
    Q_PROPERTY(QString label MEMBER label)
    Q_PROPERTY(QString size MEMBER size)
    Q_PROPERTY(QString fullText MEMBER fullText)

public:
    QString label;    ///< a path, shortened
    QString size;     ///< as text; empty where it has none
    QString fullText; ///< the whole path, on one line

    friend bool operator==(const ConfirmRow&, const ConfirmRow&) = default;
};

struct ConfirmWords
{
    /// How many rows are shown.
    static constexpr int rowLimit = 14;

    QString title;
    QString body;
    QString symbol = QStringLiteral("sparkles");
    QString button;
    QList<ConfirmRow> rows; ///< at most `rowLimit`
    QString more;           ///< "and K more", or empty

    friend bool operator==(const ConfirmWords&, const ConfirmWords&) = default;
};

[[nodiscard]] ConfirmWords eraseWords(const std::vector<CatPath>& paths, std::int64_t categories,
                                      bool keepInTrash);
[[nodiscard]] ConfirmWords purgeWords(const std::vector<Project>& projects, bool keepInTrash);
[[nodiscard]] ConfirmWords installerWords(const std::vector<InstallerItem>& installers,
                                          bool keepInTrash);
[[nodiscard]] ConfirmWords uninstallWords(const std::vector<UninstallApp>& apps, bool keepInTrash);
[[nodiscard]] ConfirmWords emptyTrashWords(std::int64_t count, std::int64_t bytes);

} // namespace zolva
