#pragma once

#include "core/AppModel.h"

#include "screens/model/RowChange.h"

#include <QAbstractListModel>
#include <QList>
#include <QQmlEngine>
#include <QString>

#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace zolva {

/// The installed applications as the Uninstall screen shows them: those that are searched for, in
/// its order. Rows come and go by themselves where that is few of them. Main thread; the model
/// outlives it.
class AppRows final : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("belongs to the UninstallModel")

public:
    enum Role
    {
        RowIdRole = Qt::UserRole + 1, ///< "rowId"
        NameRole,                     ///< "name"
        SizeRole,                     ///< "size", a text
        TickedRole,                   ///< "ticked"
        InFocusRole,                  ///< "inFocus": its leftovers are on show
        ValueRole,                    ///< "spokenValue"
    };

    explicit AppRows(AppModel& model, QObject* parent = nullptr);

    /// The ids of the rows as they are shown.
    [[nodiscard]] const std::vector<std::string>& order() const { return m_order; }
    /// Of the row with that id; null where none is shown.
    [[nodiscard]] const UninstallApp* find(const std::string& id) const;
    /// Of all applications, those that are not shown too.
    [[nodiscard]] std::size_t tickedCount() const { return m_tickedCount; }
    /// Of those that are shown; no row is not all.
    [[nodiscard]] bool isAllTicked() const;
    /// The place of the application whose leftovers are on show; -1 where it is not among the rows.
    [[nodiscard]] int focusedRow() const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void shownChanged(); ///< which rows there are
    void ticksChanged();

private:
    struct Row
    {
        UninstallApp app;
        std::string id;
        QString form; ///< of the name, to be searched in; made at the first search
        bool isTicked = false;
    };
    using Rows = std::vector<std::shared_ptr<Row>>;

    void reload();
    void reorder();
    void refilter();
    void followTicks();
    void followFocus();

    void take(std::vector<UninstallApp> apps);
    void recountTicks();
    [[nodiscard]] Rows searched() const;
    [[nodiscard]] static std::vector<std::string> idsOf(const Rows& rows);
    void show(Rows rows);
    void change(const RowChange& how, const Rows& rows);
    void tell(std::size_t first, std::size_t last, const QList<int>& roles);

    AppModel& m_model;
    Rows m_rows;                      ///< all of them, in the order of the screen
    Rows m_shown;                     ///< those of them that are searched for
    std::vector<std::string> m_order; ///< beside the shown ones
    std::size_t m_tickedCount = 0;
    SortKey m_key;       ///< the order of the rows
    std::string m_focus; ///< as it was told last; empty for none
};

} // namespace zolva
