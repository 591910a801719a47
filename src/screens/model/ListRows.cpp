#include "screens/model/ListRows.h"

#include "screens/model/ShownText.h"

#include <algorithm>
#include <iterator>
#include <numeric>
#include <string_view>
#include <utility>

namespace zolva {

namespace {

/// From one row to another, both included.
struct Piece
{
    std::size_t first = 0;
    std::size_t last = 0;
};

/// The rows that are marked, in as few pieces as possible.
std::vector<Piece> piecesOf(const std::vector<bool>& marked)
{
    std::vector<Piece> pieces;
    for (std::size_t row = 0; row < marked.size(); ++row) {
        if (!marked[row]) {
            continue;
        }
        if (!pieces.empty() && pieces.back().last + 1 == row) {
            pieces.back().last = row;
        } else {
            pieces.push_back({row, row});
        }
    }
    return pieces;
}

using Places = std::vector<std::optional<std::size_t>>;

/// Those that stay do so in the order that they had.
bool isInOrder(const Places& from)
{
    std::size_t next = 0;
    for (const std::optional<std::size_t>& place : from) {
        if (place && *place < next) {
            return false;
        }
        next = place ? *place + 1 : next;
    }
    return next > 0;
}

std::vector<bool> goneFrom(std::size_t count, const Places& from)
{
    std::vector<bool> gone(count, true);
    for (const std::optional<std::size_t>& place : from) {
        if (place) {
            gone[*place] = false;
        }
    }
    return gone;
}

std::vector<bool> newIn(const Places& from)
{
    std::vector<bool> isNew(from.size());
    std::transform(from.begin(), from.end(), isNew.begin(),
                   [](const std::optional<std::size_t>& place) { return !place; });
    return isNew;
}

auto placeIn(std::size_t row)
{
    return static_cast<std::ptrdiff_t>(row);
}

} // namespace

ListRows::ListRows(AppModel& model, std::string screen, QObject* parent)
    : QAbstractListModel(parent), m_model(model), m_screen(std::move(screen)),
      m_sortKey(model.sortOf(m_screen))
{
    connect(&model, &AppModel::sortChanged, this, &ListRows::reorder);
}

QString ListRows::idOf(const std::string& key)
{
    return QString::fromLatin1(key.data(), static_cast<qsizetype>(key.size()));
}

std::string ListRows::keyOf(const QString& id)
{
    return id.toLatin1().toStdString();
}

std::vector<std::string> ListRows::order() const
{
    std::vector<std::string> keys;
    keys.reserve(m_rows.size());
    for (const auto& row : m_rows) {
        keys.push_back(row->key);
    }
    return keys;
}

const ListRow* ListRows::find(const std::string& key) const
{
    const auto found = std::find_if(m_rows.begin(), m_rows.end(),
                                    [&key](const auto& row) { return row->key == key; });
    return found == m_rows.end() ? nullptr : found->get();
}

bool ListRows::isTickable(const std::string& key) const
{
    const ListRow* const row = find(key);
    return row != nullptr && row->isTickable;
}

std::int64_t ListRows::tickedBytes() const
{
    return std::accumulate(m_rows.begin(), m_rows.end(), std::int64_t{0},
                           [](std::int64_t sum, const auto& row) {
                               return sum + (row->isTicked && row->isTickable ? row->bytes : 0);
                           });
}

std::int64_t ListRows::tickedCount() const
{
    return std::count_if(m_rows.begin(), m_rows.end(),
                         [](const auto& row) { return row->isTicked && row->isTickable; });
}

bool ListRows::isAllTicked() const
{
    bool isAny = false;
    for (const auto& row : m_rows) {
        if (isMeantByAll(*row)) {
            isAny = true;
            if (!row->isTicked) {
                return false;
            }
        }
    }
    return isAny;
}

QString ListRows::selectWord() const
{
    return isAllTicked() ? QStringLiteral("Deselect all") : QStringLiteral("Select all");
}

std::vector<std::string> ListRows::keysOfAll(bool ticked) const
{
    std::vector<std::string> keys;
    for (const auto& row : m_rows) {
        if (!ticked || isMeantByAll(*row)) {
            keys.push_back(row->key);
        }
    }
    return keys;
}

int ListRows::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant ListRows::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    const ListRow& row = *m_rows[static_cast<std::size_t>(index.row())];
    QVariant own = read(row, role);
    if (own.isValid()) {
        return own;
    }
    switch (role) {
    case RowIdRole:
        return idOf(row.key);
    case TickedRole:
        return row.isTicked;
    case TickableRole:
        return row.isTickable;
    case ValueRole:
        return spokenValue(row);
    default:
        return {};
    }
}

QHash<int, QByteArray> ListRows::roleNames() const
{
    return {{RowIdRole, "rowId"},      {NameRole, "name"},         {DescRole, "desc"},
            {TickedRole, "ticked"},    {TickableRole, "tickable"}, {TrailingRole, "trailing"},
            {ValueRole, "spokenValue"}};
}

void ListRows::reload()
{
    Rows rows = build();
    tickAsPicked(rows);
    const Places from = placesOf(rows);
    const std::size_t pieces =
        piecesOf(newIn(from)).size() + piecesOf(goneFrom(m_rows.size(), from)).size();
    if (isInOrder(from) && pieces <= pieceLimit) {
        takeOver(std::move(rows), from);
    } else {
        reset(std::move(rows));
    }
    Q_EMIT shownChanged();
}

void ListRows::reorder()
{
    const SortKey key = m_model.sortOf(m_screen);
    if (std::exchange(m_sortKey, key) == key) {
        return; // another screen's
    }
    Rows rows = build();
    tickAsPicked(rows);
    const Places from = placesOf(rows);
    move(std::move(rows), from);
}

void ListRows::followTicks()
{
    std::vector<bool> changed(m_rows.size());
    for (std::size_t row = 0; row < m_rows.size(); ++row) {
        const bool isTicked = isPicked(m_rows[row]->key);
        changed[row] = std::exchange(m_rows[row]->isTicked, isTicked) != isTicked;
    }
    for (const Piece& piece : piecesOf(changed)) {
        tell(piece.first, piece.last, {TickedRole, ValueRole});
    }
    Q_EMIT ticksChanged();
}

void ListRows::tell(std::size_t first, std::size_t last, const QList<int>& roles)
{
    Q_EMIT dataChanged(index(static_cast<int>(first)), index(static_cast<int>(last)), roles);
}

void ListRows::tickAsPicked(const Rows& rows) const
{
    for (const auto& row : rows) {
        row->isTicked = isPicked(row->key);
    }
}

ListRows::Places ListRows::placesOf(const Rows& rows) const
{
    std::unordered_map<std::string_view, std::size_t> places;
    places.reserve(m_rows.size());
    for (std::size_t row = 0; row < m_rows.size(); ++row) {
        places[m_rows[row]->key] = row;
    }
    Places from;
    from.reserve(rows.size());
    for (const auto& row : rows) {
        // Taken out, so that no two rows of one key claim the same place.
        const auto found = places.extract(row->key);
        from.push_back(found.empty() ? std::nullopt : std::optional(found.mapped()));
    }
    return from;
}

void ListRows::move(Rows rows, const Places& from)
{
    Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
    std::vector<int> moved(m_rows.size(), -1);
    for (std::size_t row = 0; row < from.size(); ++row) {
        if (from[row]) {
            moved[*from[row]] = static_cast<int>(row);
        }
    }
    m_rows = std::move(rows);
    for (const QModelIndex& held : persistentIndexList()) {
        const int row = moved[static_cast<std::size_t>(held.row())];
        changePersistentIndex(held, row < 0 ? QModelIndex() : index(row));
    }
    Q_EMIT layoutChanged({}, VerticalSortHint);
}

/// From the back, so that the places before a piece stay good; then what is new from the front.
void ListRows::takeOver(Rows rows, const Places& from)
{
    const std::vector<Piece> gone = piecesOf(goneFrom(m_rows.size(), from));
    std::for_each(gone.rbegin(), gone.rend(), [this](const Piece& piece) {
        beginRemoveRows({}, static_cast<int>(piece.first), static_cast<int>(piece.last));
        m_rows.erase(m_rows.begin() + placeIn(piece.first),
                     m_rows.begin() + placeIn(piece.last + 1));
        endRemoveRows();
    });
    for (const Piece& piece : piecesOf(newIn(from))) {
        beginInsertRows({}, static_cast<int>(piece.first), static_cast<int>(piece.last));
        m_rows.insert(m_rows.begin() + placeIn(piece.first),
                      std::move_iterator(rows.begin() + placeIn(piece.first)),
                      std::move_iterator(rows.begin() + placeIn(piece.last + 1)));
        endInsertRows();
    }
    for (std::size_t row = 0; row < rows.size(); ++row) {
        if (rows[row]) {
            m_rows[row] = std::move(rows[row]);
        }
    }
    tell(0, m_rows.size() - 1, {});
}

void ListRows::reset(Rows rows)
{
    beginResetModel();
    m_rows = std::move(rows);
    endResetModel();
}

QString ListRows::spokenValue(const ListRow& row)
{
    if (!row.isTickable) {
        return QStringLiteral("Protected, cannot be selected");
    }
    return row.isTicked ? QStringLiteral("Selected, ") + shownSize(row.bytes) +
                              QStringLiteral(" will be deleted")
                        : QStringLiteral("Not selected");
}

} // namespace zolva
