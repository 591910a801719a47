#include "screens/model/CleanRows.h"

#include "core/SortedRows.h"
#include "removal/runs/RunMessages.h"

#include "screens/model/ShownText.h"

#include <algorithm>
#include <numeric>
#include <unordered_map>
#include <utility>

namespace zolva {

namespace {

constexpr auto screenId = "clean";

} // namespace

CleanRows::CleanRows(AppModel& model, QObject* parent)
    : QAbstractListModel(parent), m_model(model), m_key(model.sortOf(screenId))
{
    connect(&model.lists(), &AppLists::liveCatsChanged, this, &CleanRows::reload);
    connect(&model, &AppModel::sortChanged, this, &CleanRows::reorder);
    connect(&model.exclusions(), &Exclusions::whitelistChanged, this, &CleanRows::recount);
    connect(&model.lists(), &AppLists::selChanged, this, &CleanRows::followTicks);
    connect(&model.lists(), &AppLists::openCatChanged, this, &CleanRows::followOpen);
    reload();
}

std::vector<std::string> CleanRows::order() const
{
    std::vector<std::string> ids;
    ids.reserve(m_rows.size());
    for (const Category& row : m_rows) {
        ids.push_back(row.id);
    }
    return ids;
}

bool CleanRows::isTickable(const std::string& id) const
{
    const auto found = std::find_if(m_rows.begin(), m_rows.end(),
                                    [&id](const Category& row) { return row.id == id; });
    return found != m_rows.end() &&
           m_sums[static_cast<std::size_t>(found - m_rows.begin())].isTickable;
}

std::int64_t CleanRows::tickedBytes() const
{
    std::int64_t bytes = 0;
    for (std::size_t row = 0; row < m_rows.size(); ++row) {
        bytes += m_ticks[row] ? m_sums[row].removable : 0;
    }
    return bytes;
}

std::int64_t CleanRows::protectedPaths() const
{
    return std::accumulate(
        m_sums.begin(), m_sums.end(), std::int64_t{0},
        [](std::int64_t count, const Sums& sums) { return count + sums.protectedPaths; });
}

bool CleanRows::isAllTicked() const
{
    return !m_ticks.empty() && std::find(m_ticks.begin(), m_ticks.end(), false) == m_ticks.end();
}

int CleanRows::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant CleanRows::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    const auto place = static_cast<std::size_t>(index.row());
    const Category& row = m_rows[place];
    switch (role) {
    case RowIdRole:
        return QString::fromStdString(row.id);
    case NameRole:
        return shownText(row.name);
    case DescRole:
        return shownText(row.desc);
    case TickedRole:
        return m_ticks[place] && m_sums[place].isTickable;
    case TickableRole:
        return m_sums[place].isTickable;
    case TrailingRole:
        return trailing(place);
    case TrailingKindRole:
        return static_cast<int>(trailingKind(place));
    case DetailRole:
        return detail(place);
    case OpenRole:
        return isOpen(place);
    case ValueRole:
        return spokenValue(place);
    case LinesRole:
        return QVariant::fromValue(isOpen(place) ? lines(row) : QList<PathLine>());
    case MoreRole:
        return isOpen(place) ? more(row) : QString();
    default:
        return {};
    }
}

QHash<int, QByteArray> CleanRows::roleNames() const
{
    return {{RowIdRole, "rowId"},
            {NameRole, "name"},
            {DescRole, "desc"},
            {TickedRole, "ticked"},
            {TickableRole, "tickable"},
            {TrailingRole, "trailing"},
            {TrailingKindRole, "trailingKind"},
            {DetailRole, "detail"},
            {OpenRole, "open"},
            {ValueRole, "spokenValue"},
            {LinesRole, "lines"},
            {MoreRole, "more"}};
}

void CleanRows::reload()
{
    beginResetModel();
    const auto& found = m_model.lists().liveCats();
    m_rows = found ? sortedCategories(*found, m_key) : std::vector<Category>();
    takeSums();
    m_ticks = ticksNow();
    m_open = m_model.lists().openCat().value_or(std::string());
    endResetModel();
    Q_EMIT shownChanged();
}

void CleanRows::reorder()
{
    const SortKey key = m_model.sortOf(screenId);
    if (std::exchange(m_key, key) == key) {
        return; // another screen's
    }
    Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
    const std::vector<std::string> before = order();
    const std::vector<Sums> sums = std::move(m_sums);
    m_rows = sortedCategories(std::move(m_rows), key);
    std::unordered_map<std::string, std::size_t> places;
    for (std::size_t row = 0; row < before.size(); ++row) {
        places[before[row]] = row;
    }
    m_sums.clear();
    std::vector<int> moved(before.size());
    for (std::size_t row = 0; row < m_rows.size(); ++row) {
        const std::size_t old = places.at(m_rows[row].id);
        m_sums.push_back(sums[old]);
        moved[old] = static_cast<int>(row);
    }
    m_ticks = ticksNow();
    for (const QModelIndex& held : persistentIndexList()) {
        changePersistentIndex(held, index(moved[static_cast<std::size_t>(held.row())]));
    }
    Q_EMIT layoutChanged({}, VerticalSortHint);
}

void CleanRows::recount()
{
    takeSums();
    if (!m_rows.empty()) {
        tell(0, m_rows.size() - 1,
             {TickedRole, TickableRole, TrailingRole, TrailingKindRole, DetailRole, ValueRole,
              LinesRole});
    }
    Q_EMIT shownChanged();
}

void CleanRows::followTicks()
{
    const std::vector<bool> before = std::exchange(m_ticks, ticksNow());
    for (std::size_t row = 0; row < m_rows.size(); ++row) {
        if (before[row] == m_ticks[row]) {
            continue;
        }
        const std::size_t first = row;
        while (row + 1 < m_rows.size() && before[row + 1] != m_ticks[row + 1]) {
            ++row;
        }
        tell(first, row, {TickedRole, ValueRole});
    }
    Q_EMIT ticksChanged();
}

void CleanRows::followOpen()
{
    const std::string before =
        std::exchange(m_open, m_model.lists().openCat().value_or(std::string()));
    for (std::size_t row = 0; row < m_rows.size(); ++row) {
        if (m_rows[row].id == before || isOpen(row)) {
            tell(row, row, {OpenRole, LinesRole, MoreRole});
        }
    }
}

void CleanRows::takeSums()
{
    m_sums.clear();
    m_sums.reserve(m_rows.size());
    const ExclusionRules rules(m_model.exclusions().whitelist());
    for (const Category& row : m_rows) {
        m_sums.push_back(sumsOf(row, rules));
    }
}

std::vector<bool> CleanRows::ticksNow() const
{
    const PickMap& picks = m_model.lists().sel();
    std::vector<bool> ticks;
    ticks.reserve(m_rows.size());
    for (const Category& row : m_rows) {
        const auto pick = picks.find(row.id);
        ticks.push_back(pick != picks.end() && pick->second);
    }
    return ticks;
}

void CleanRows::tell(std::size_t first, std::size_t last, const QList<int>& roles)
{
    Q_EMIT dataChanged(index(static_cast<int>(first)), index(static_cast<int>(last)), roles);
}

bool CleanRows::isOpen(std::size_t row) const
{
    return !m_open.empty() && m_rows[row].id == m_open;
}

bool CleanRows::isRemovable(const CatPath& path, const ExclusionRules& rules)
{
    return !path.prot && !rules.covers(path.p);
}

CleanRows::Sums CleanRows::sumsOf(const Category& row, const ExclusionRules& rules)
{
    Sums sums;
    for (const CatPath& path : row.paths) {
        if (isRemovable(path, rules)) {
            sums.removable += path.b;
            sums.isTickable = true;
        } else {
            sums.protectedBytes += path.b;
            ++sums.protectedPaths;
        }
    }
    return sums;
}

CleanRows::Trailing CleanRows::trailingKind(std::size_t row) const
{
    if (m_rows[row].sudo) {
        return NeedsPassword;
    }
    return m_sums[row].isTickable ? Size : AllProtected;
}

QString CleanRows::trailing(std::size_t row) const
{
    switch (trailingKind(row)) {
    case NeedsPassword:
        return QStringLiteral("Needs password");
    case AllProtected:
        return QStringLiteral("All ") + shownSize(m_sums[row].protectedBytes) +
               QStringLiteral(" protected");
    case Size:
        break;
    }
    return shownSize(m_sums[row].removable);
}

QString CleanRows::detail(std::size_t row) const
{
    const Sums& sums = m_sums[row];
    const QString removable = shownSize(sums.removable) + QStringLiteral(" removable");
    return sums.protectedPaths > 0
               ? removable + QStringLiteral(", ") + shownSize(sums.protectedBytes) +
                     QStringLiteral(" protected")
               : removable;
}

QString CleanRows::spokenValue(std::size_t row) const
{
    if (!m_sums[row].isTickable) {
        return QStringLiteral("Protected, cannot be selected");
    }
    return m_ticks[row] ? QStringLiteral("Selected, ") + shownSize(m_sums[row].removable) +
                              QStringLiteral(" will be deleted")
                        : QStringLiteral("Not selected");
}

QList<PathLine> CleanRows::lines(const Category& row) const
{
    const ExclusionRules rules(m_model.exclusions().whitelist());
    QList<PathLine> lines;
    const std::size_t count = std::min(row.paths.size(), lineLimit);
    for (std::size_t place = 0; place < count; ++place) {
        const CatPath& path = row.paths[place];
        PathLine line{shortenedPath(path.p), shownText(path.p), {}, false};
        if (!isRemovable(path, rules)) {
            line.trailing = QStringLiteral("Protected");
        } else if (path.sudo) {
            line.trailing = QStringLiteral("Needs password");
        } else {
            line.trailing = shownSize(path.b);
            line.isSize = true;
        }
        lines.push_back(line);
    }
    return lines;
}

QString CleanRows::more(const Category& row)
{
    if (row.paths.size() <= lineLimit) {
        return {};
    }
    return QStringLiteral("+ ") +
           counted(static_cast<std::int64_t>(row.paths.size() - lineLimit), "smaller path") +
           QStringLiteral(", also included");
}

} // namespace zolva
