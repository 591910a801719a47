#pragma once

#include "core/AppModel.h"

#include <QAbstractListModel>
#include <QList>
#include <QQmlEngine>
#include <QString>

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <unordered_map>
#include <vector>

namespace zolva {

/// What every list keeps of a row; a list adds its own by inheritance.
struct ListRow
{
    ListRow() = default;
    ListRow(const ListRow&) = delete;
    ListRow& operator=(const ListRow&) = delete;
    virtual ~ListRow() = default;

    std::string key;
    std::int64_t bytes = 0; ///< that go with its tick
    bool isTickable = true;
    bool isTicked = false; ///< as it was told last
};

/// The rows of a screen's list, in its order. A list says what its rows are; how they came to be so
/// is told from here: what is still there changes in place, what is gone goes alone, a new order
/// moves the rows. Main thread; the model outlives it.
class ListRows : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("belongs to its screen's model")

public:
    /// Roles that every list has; a list's own begin at `FirstOwnRole`.
    enum Role
    {
        RowIdRole = Qt::UserRole + 1, ///< "rowId"
        NameRole,                     ///< "name"
        DescRole,                     ///< "desc", under the name
        TickedRole,                   ///< "ticked"
        TickableRole,                 ///< "tickable"
        TrailingRole,                 ///< "trailing", a text
        ValueRole,                    ///< "spokenValue"
        FirstOwnRole
    };

    /// A key as QML holds it: every byte comes back, also of what is no text.
    [[nodiscard]] static QString idOf(const std::string& key);
    [[nodiscard]] static std::string keyOf(const QString& id);

    [[nodiscard]] std::size_t size() const { return m_rows.size(); }
    /// The keys of the rows as they are shown.
    [[nodiscard]] std::vector<std::string> order() const;
    /// Null where there is none with that key.
    [[nodiscard]] const ListRow* find(const std::string& key) const;
    /// Of the row with that key; false where there is none.
    [[nodiscard]] bool isTickable(const std::string& key) const;
    /// What the ticked rows would give back, and how many of them there are that can.
    [[nodiscard]] std::int64_t tickedBytes() const;
    [[nodiscard]] std::int64_t tickedCount() const;
    /// Of those that "Select all" means; none of them is not all.
    [[nodiscard]] bool isAllTicked() const;
    /// "Select all", or "Deselect all" once they are ticked.
    [[nodiscard]] QString selectWord() const;
    /// Whom "Select all" ticks, and "Deselect all" unticks.
    [[nodiscard]] std::vector<std::string> keysOfAll(bool ticked) const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void shownChanged(); ///< the rows, or what of them may go
    void ticksChanged();

protected:
    using Rows = std::vector<std::unique_ptr<ListRow>>;

    /// `screen` is that of the order.
    ListRows(AppModel& model, std::string screen, QObject* parent);

    /// All rows as they are now, in the order of `sortKey()`. Ticks are left to `isPicked`.
    [[nodiscard]] virtual Rows build() const = 0;
    [[nodiscard]] virtual bool isPicked(const std::string& key) const = 0;
    /// What a list says of a row; what it leaves invalid is said for it, as far as that goes.
    [[nodiscard]] virtual QVariant read(const ListRow& row, int role) const = 0;
    [[nodiscard]] virtual bool isMeantByAll(const ListRow& row) const { return row.isTickable; }

    /// To be connected to what the rows and the ticks follow from; `reload` once in a constructor.
    void reload();
    void followTicks();

    [[nodiscard]] AppModel& model() const { return m_model; }
    [[nodiscard]] SortKey sortKey() const { return m_sortKey; }
    [[nodiscard]] const Rows& rows() const { return m_rows; }
    void tell(std::size_t first, std::size_t last, const QList<int>& roles);

private:
    /// Where the rows to be shown stand now, by their place; none for one that is new.
    using Places = std::vector<std::optional<std::size_t>>;
    /// Beyond so many pieces it is cheaper to begin anew.
    static constexpr std::size_t pieceLimit = 32;

    void reorder();
    void tickAsPicked(const Rows& rows) const;
    [[nodiscard]] Places placesOf(const Rows& rows) const;
    void move(Rows rows, const Places& from);
    void takeOver(Rows rows, const Places& from);
    void reset(Rows rows);
    [[nodiscard]] static QString spokenValue(const ListRow& row);

    AppModel& m_model;
    std::string m_screen;
    SortKey m_sortKey; ///< the order of the rows
    Rows m_rows;
};

} // namespace zolva
