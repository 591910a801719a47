#include "screens/model/StatusTileRows.h"

#include "screens/model/ShownText.h"

namespace zolva {

namespace {

QString spokenText(const StatusTile& tile)
{
    // The sign of percent clings to its number, a word does not.
    const QString unit =
        tile.unit == "%" ? shownText(tile.unit) : QLatin1Char(' ') + shownText(tile.unit);
    const QString value = shownText(tile.value) + unit;
    return tile.sub.empty() ? value : value + QStringLiteral(". ") + shownText(tile.sub);
}

QList<int> changedRoles(const StatusTile& before, const StatusTile& now)
{
    using Rows = StatusTileRows;
    QList<int> roles;
    if (before.label != now.label) {
        roles.push_back(Rows::LabelRole);
    }
    if (before.value != now.value) {
        roles.push_back(Rows::ValueRole);
    }
    if (before.unit != now.unit) {
        roles.push_back(Rows::UnitRole);
    }
    if (before.sub != now.sub) {
        roles.push_back(Rows::SubRole);
    }
    if (!roles.isEmpty()) {
        roles.push_back(Rows::SpokenRole);
    }
    return roles;
}

} // namespace

void StatusTileRows::show(const StatusTiles& tiles)
{
    for (std::size_t row = 0; row < m_tiles.size(); ++row) {
        const QList<int> roles = changedRoles(m_tiles.at(row), tiles.at(row));
        if (!roles.isEmpty()) {
            m_tiles.at(row) = tiles.at(row);
            const QModelIndex place = index(static_cast<int>(row));
            Q_EMIT dataChanged(place, place, roles);
        }
    }
}

int StatusTileRows::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_tiles.size());
}

QVariant StatusTileRows::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    const StatusTile& tile = m_tiles.at(static_cast<std::size_t>(index.row()));
    switch (role) {
    case LabelRole:
        return shownText(tile.label);
    case ValueRole:
        return shownText(tile.value);
    case UnitRole:
        return shownText(tile.unit);
    case SubRole:
        return shownText(tile.sub);
    case SpokenRole:
        return spokenText(tile);
    default:
        return {};
    }
}

QHash<int, QByteArray> StatusTileRows::roleNames() const
{
    return {{LabelRole, "label"},
            {ValueRole, "figure"},
            {UnitRole, "unit"},
            {SubRole, "sub"},
            {SpokenRole, "spoken"}};
}

} // namespace zolva
