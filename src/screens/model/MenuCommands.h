#pragma once

#include <QAbstractListModel>
#include <QQmlEngine>
#include <QString>

namespace zolva {

/// The commands below the panel of the menu bar, in their order. Main thread.
class MenuCommands final : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("belongs to the MenuPanelModel")

public:
    enum Role
    {
        SymbolRole = Qt::UserRole + 1, ///< "symbol"
        TitleRole,                     ///< "title"
        KeysRole,                      ///< "keys", for a shortcut; empty without one
        ShortcutRole,                  ///< "shortcut", the same as this system writes it
    };
    enum class Deed
    {
        Open,
        Status,
        Settings,
        Quit
    };

    explicit MenuCommands(QObject* parent);

    [[nodiscard]] static Deed deedOf(int row);

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;
};

} // namespace zolva
