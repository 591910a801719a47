#pragma once

#include "core/AppModel.h"
#include "files/ExclusionRules.h"

#include <QAbstractListModel>
#include <QList>
#include <QQmlEngine>
#include <QString>

#include <cstdint>
#include <string>
#include <vector>

namespace zolva {

/// One line under an open category.
class PathLine
{
    Q_GADGET
    QML_VALUE_TYPE(pathLine)
    Q_PROPERTY(QString text MEMBER text)
    Q_PROPERTY(QString fullText MEMBER fullText)
    Q_PROPERTY(QString trailing MEMBER trailing)
    Q_PROPERTY(bool isSize MEMBER isSize)

public:
    QString text;     ///< the path, shortened
    QString fullText; ///< the whole path, for a tool tip
    QString trailing; ///< its size, or why it stays
    bool isSize = false;

    friend bool operator==(const PathLine&, const PathLine&) = default;
};

/// The categories as the Clean screen shows them, in its order. Rows change in place; a new order
/// moves them. Main thread; the model outlives it.
class CleanRows final : public QAbstractListModel
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("belongs to the CleanModel")

public:
    enum Trailing
    {
        Size,
        AllProtected,
        NeedsPassword
    };
    Q_ENUM(Trailing)

    enum Role
    {
        RowIdRole = Qt::UserRole + 1, ///< "rowId"
        NameRole,                     ///< "name"
        DescRole,                     ///< "desc"
        TickedRole,                   ///< "ticked"
        TickableRole,                 ///< "tickable"
        TrailingRole,                 ///< "trailing", a text
        TrailingKindRole,             ///< "trailingKind"
        DetailRole,                   ///< "detail": "S removable, P protected"
        OpenRole,                     ///< "open"
        ValueRole,                    ///< "spokenValue"
        LinesRole,                    ///< "lines": list of PathLine, of an open row alone
        MoreRole,                     ///< "more": "+ N smaller paths, also included", or empty
    };

    /// Under an open row.
    static constexpr std::size_t lineLimit = 15;

    explicit CleanRows(AppModel& model, QObject* parent = nullptr);

    /// The ids of the rows as they are shown.
    [[nodiscard]] std::vector<std::string> order() const;
    [[nodiscard]] const std::vector<Category>& shown() const { return m_rows; }
    /// Of the row with that id; false where there is none.
    [[nodiscard]] bool isTickable(const std::string& id) const;
    /// What the ticked rows would give back.
    [[nodiscard]] std::int64_t tickedBytes() const;
    /// The paths of all rows that stay, being protected or excluded.
    [[nodiscard]] std::int64_t protectedPaths() const;
    /// Also the rows of which nothing can go count here; no row is not all.
    [[nodiscard]] bool isAllTicked() const;

    [[nodiscard]] int rowCount(const QModelIndex& parent = {}) const override;
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override;
    [[nodiscard]] QHash<int, QByteArray> roleNames() const override;

Q_SIGNALS:
    void shownChanged(); ///< the rows, or what of them may go
    void ticksChanged();

private:
    /// What the exclusion list leaves of a category; added up once per change.
    struct Sums
    {
        std::int64_t removable = 0;
        std::int64_t protectedBytes = 0;
        std::int64_t protectedPaths = 0;
        bool isTickable = false;
    };

    void reload();
    void reorder();
    void recount();
    void followTicks();
    void followOpen();
    void takeSums();
    [[nodiscard]] std::vector<bool> ticksNow() const;
    void tell(std::size_t first, std::size_t last, const QList<int>& roles);
    [[nodiscard]] bool isOpen(std::size_t row) const;
    [[nodiscard]] static bool isRemovable(const CatPath& path, const ExclusionRules& rules);
    [[nodiscard]] static Sums sumsOf(const Category& row, const ExclusionRules& rules);
    [[nodiscard]] Trailing trailingKind(std::size_t row) const;
    [[nodiscard]] QString trailing(std::size_t row) const;
    [[nodiscard]] QString detail(std::size_t row) const;
    [[nodiscard]] QString spokenValue(std::size_t row) const;
    [[nodiscard]] QList<PathLine> lines(const Category& row) const;
    [[nodiscard]] static QString more(const Category& row);

    AppModel& m_model;
    std::vector<Category> m_rows;
    std::vector<Sums> m_sums;  ///< beside the rows
    std::vector<bool> m_ticks; ///< beside the rows, as they were told last
    SortKey m_key;             ///< the order of the rows
    std::string m_open;        ///< as it was told last; empty for none
};

} // namespace zolva
