#include "screens/model/ExclusionRows.h"

#include "screens/model/ShownText.h"

#include <algorithm>

namespace zolva {

ExclusionRows::ExclusionRows(Exclusions& exclusions, QObject* parent)
    : QAbstractListModel(parent), m_exclusions(exclusions), m_shown(exclusions.whitelist())
{
    connect(&exclusions, &Exclusions::whitelistChanged, this, &ExclusionRows::follow);
}

void ExclusionRows::remove(int row)
{
    if (row >= 0 && row < rowCount()) {
        // Not by reference: the rows change under it.
        const std::string entry = m_shown.at(static_cast<std::size_t>(row));
        m_exclusions.removeExclusion(entry);
    }
}

int ExclusionRows::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_shown.size());
}

QVariant ExclusionRows::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid) || role != PathRole) {
        return {};
    }
    return shownLine(m_shown.at(static_cast<std::size_t>(index.row())));
}

QHash<int, QByteArray> ExclusionRows::roleNames() const
{
    return {{PathRole, "path"}};
}

void ExclusionRows::follow()
{
    const std::vector<std::string> now = m_exclusions.whitelist();
    dropGone(now);
    // Entries only ever come at the end; another order is another list.
    if (std::equal(m_shown.begin(), m_shown.end(), now.begin(),
                   now.begin() +
                       static_cast<std::ptrdiff_t>(std::min(m_shown.size(), now.size())))) {
        addNew(now);
    } else {
        beginResetModel();
        m_shown = now;
        endResetModel();
    }
}

void ExclusionRows::dropGone(const std::vector<std::string>& now)
{
    for (std::size_t row = m_shown.size(); row > 0; --row) {
        const std::size_t place = row - 1;
        if (std::find(now.begin(), now.end(), m_shown.at(place)) == now.end()) {
            beginRemoveRows({}, static_cast<int>(place), static_cast<int>(place));
            m_shown.erase(m_shown.begin() + static_cast<std::ptrdiff_t>(place));
            endRemoveRows();
        }
    }
}

void ExclusionRows::addNew(const std::vector<std::string>& now)
{
    if (now.size() > m_shown.size()) {
        beginInsertRows({}, rowCount(), static_cast<int>(now.size()) - 1);
        m_shown = now;
        endInsertRows();
    }
}

} // namespace zolva
