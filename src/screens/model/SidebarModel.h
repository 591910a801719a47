#pragma once

#include "core/AppModel.h"

#include "screens/model/NavItem.h"

#include <QAbstractListModel>
#include <QQmlEngine>
#include <QString>

#include <array>
#include <string>

namespace zolva {

/// The rows of the sidebar, and its footer. A row's chip is empty where none is shown. Main thread;
/// the model outlives it.
class SidebarModel final : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("belongs to the ScreenModel")
    Q_PROPERTY(bool hasTrash READ hasTrash NOTIFY trashChanged)
    Q_PROPERTY(QString trashText READ trashText NOTIFY trashChanged)
    Q_PROPERTY(QString versionLine READ versionLine CONSTANT)
    Q_PROPERTY(QString toolLine READ toolLine CONSTANT)

public:
    enum Role
    {
        ItemIdRole = Qt::UserRole + 1, ///< "itemId"
        LabelRole,                     ///< "label"
        SymbolRole,                    ///< "symbol"
        HeadRole,                      ///< "head", in upper case; empty without one
        ChipRole,                      ///< "chip"
        ActiveRole,                    ///< "active"
    };

    explicit SidebarModel(AppModel& model, QObject* parent = nullptr);

    [[nodiscard]] bool hasTrash() const;     ///< at least one item lies in it
    [[nodiscard]] QString trashText() const; ///< its size
    [[nodiscard]] QString versionLine() const;
    [[nodiscard]] QString toolLine() const;

    /// The confirmation of emptying the Trash, while there is anything in it.
    Q_INVOKABLE void askEmptyTrash();

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void trashChanged();

private:
    void recountClean();
    void recountPurge();
    void recountInstallers();
    void setChip(std::string_view id, const QString& chip);
    void followScreen();

    AppModel& m_model;
    std::array<QString, navItems.size()> m_chips; ///< added up once per change
    std::string m_screen;
};

} // namespace zolva
