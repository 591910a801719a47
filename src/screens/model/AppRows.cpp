#include "screens/model/AppRows.h"

#include "core/SortedRows.h"

#include "screens/model/AppMessages.h"
#include "screens/model/SearchText.h"
#include "screens/model/ShownText.h"

#include <algorithm>
#include <iterator>
#include <unordered_map>
#include <utility>

namespace zolva {

namespace {

constexpr auto screenId = "uninstall";

} // namespace

AppRows::AppRows(AppModel& model, QObject* parent)
    : QAbstractListModel(parent), m_model(model), m_key(model.sortOf(screenId))
{
    connect(&model.live(), &LiveData::appsChanged, this, &AppRows::reload);
    connect(&model.live(), &LiveData::checkedAppsChanged, this, &AppRows::followTicks);
    connect(&model.live(), &LiveData::selectedAppIDChanged, this, &AppRows::followFocus);
    connect(&model, &AppModel::sortChanged, this, &AppRows::reorder);
    connect(&model, &AppModel::queryChanged, this, &AppRows::refilter);
    m_focus = model.live().selectedAppID().value_or(std::string());
    reload();
}

const UninstallApp* AppRows::find(const std::string& id) const
{
    const auto found = std::find(m_order.begin(), m_order.end(), id);
    return found == m_order.end()
               ? nullptr
               : &m_shown[static_cast<std::size_t>(found - m_order.begin())]->app;
}

bool AppRows::isAllTicked() const
{
    return !m_shown.empty() &&
           std::all_of(m_shown.begin(), m_shown.end(),
                       [](const std::shared_ptr<Row>& row) { return row->isTicked; });
}

int AppRows::focusedRow() const
{
    const auto found = std::find(m_order.begin(), m_order.end(), m_focus);
    return found == m_order.end() ? -1 : static_cast<int>(found - m_order.begin());
}

int AppRows::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_shown.size());
}

QVariant AppRows::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    const Row& row = *m_shown[static_cast<std::size_t>(index.row())];
    switch (role) {
    case RowIdRole:
        return QString::fromStdString(row.id);
    case NameRole:
        return shownText(row.app.name);
    case SizeRole:
        return appSize(row.app);
    case TickedRole:
        return row.isTicked;
    case InFocusRole:
        return row.id == m_focus;
    case ValueRole:
        return row.isTicked ? QStringLiteral("Selected for removal")
                            : QStringLiteral("Not selected");
    default:
        return {};
    }
}

QHash<int, QByteArray> AppRows::roleNames() const
{
    return {{RowIdRole, "rowId"},   {NameRole, "name"},       {SizeRole, "size"},
            {TickedRole, "ticked"}, {InFocusRole, "inFocus"}, {ValueRole, "spokenValue"}};
}

void AppRows::reload()
{
    const std::vector<UninstallApp>* const apps = m_model.live().apps().value();
    take(apps != nullptr ? *apps : std::vector<UninstallApp>());
    show(searched());
}

void AppRows::reorder()
{
    const SortKey key = m_model.sortOf(screenId);
    if (std::exchange(m_key, key) == key) {
        return; // another screen's
    }
    Q_EMIT layoutAboutToBeChanged({}, VerticalSortHint);
    std::vector<UninstallApp> apps;
    apps.reserve(m_rows.size());
    for (const std::shared_ptr<Row>& row : m_rows) {
        apps.push_back(std::move(row->app));
    }
    take(std::move(apps));
    m_shown = searched();
    std::unordered_map<std::string, int> places;
    for (std::size_t row = 0; row < m_shown.size(); ++row) {
        places.emplace(m_shown[row]->id, static_cast<int>(row));
    }
    const std::vector<std::string> before = std::exchange(m_order, idsOf(m_shown));
    for (const QModelIndex& held : persistentIndexList()) {
        const auto place = places.find(before[static_cast<std::size_t>(held.row())]);
        changePersistentIndex(held, index(place->second));
    }
    Q_EMIT layoutChanged({}, VerticalSortHint);
}

void AppRows::refilter()
{
    show(searched());
}

void AppRows::followTicks()
{
    const PickSet& checked = m_model.live().checkedApps();
    for (std::size_t row = 0; row < m_shown.size(); ++row) {
        const std::size_t first = row;
        while (row < m_shown.size() && m_shown[row]->isTicked != checked.contains(m_order[row])) {
            m_shown[row]->isTicked = !m_shown[row]->isTicked;
            ++row;
        }
        if (row > first) {
            tell(first, row - 1, {TickedRole, ValueRole});
        }
    }
    recountTicks();
    Q_EMIT ticksChanged();
}

void AppRows::followFocus()
{
    const int before = focusedRow();
    m_focus = m_model.live().selectedAppID().value_or(std::string());
    for (const int row : {before, focusedRow()}) {
        if (row >= 0) {
            tell(static_cast<std::size_t>(row), static_cast<std::size_t>(row), {InFocusRole});
        }
    }
}

/// These in the order of the screen, in place of all rows.
void AppRows::take(std::vector<UninstallApp> apps)
{
    m_rows.clear();
    m_rows.reserve(apps.size());
    for (UninstallApp& app : sortedApps(std::move(apps), m_key)) {
        std::string id = app.id();
        m_rows.push_back(std::make_shared<Row>(Row{std::move(app), std::move(id), {}, false}));
    }
    recountTicks();
}

void AppRows::recountTicks()
{
    const PickSet& checked = m_model.live().checkedApps();
    m_tickedCount = 0;
    for (const std::shared_ptr<Row>& row : m_rows) {
        row->isTicked = checked.contains(row->id);
        m_tickedCount += row->isTicked ? 1 : 0;
    }
}

AppRows::Rows AppRows::searched() const
{
    const std::string query = m_model.queryOf(screenId);
    if (query.empty()) {
        return m_rows;
    }
    const QLocale locale;
    const QString wanted = searchForm(QString::fromStdString(query), locale);
    Rows found;
    for (const std::shared_ptr<Row>& row : m_rows) {
        if (row->form.isNull()) {
            row->form = searchForm(shownText(row->app.name), locale);
        }
        if (row->form.contains(wanted)) {
            found.push_back(row);
        }
    }
    return found;
}

std::vector<std::string> AppRows::idsOf(const Rows& rows)
{
    std::vector<std::string> ids;
    ids.reserve(rows.size());
    std::transform(rows.begin(), rows.end(), std::back_inserter(ids),
                   [](const std::shared_ptr<Row>& row) { return row->id; });
    return ids;
}

void AppRows::show(Rows rows)
{
    std::vector<std::string> ids = idsOf(rows);
    if (const std::optional<RowChange> how = rowChange(m_order, ids)) {
        change(*how, rows);
        m_shown = std::move(rows);
        m_order = std::move(ids);
        if (!m_shown.empty()) {
            tell(0, m_shown.size() - 1, {}); // what stayed may have become another
        }
    } else {
        beginResetModel();
        m_shown = std::move(rows);
        m_order = std::move(ids);
        endResetModel();
    }
    Q_EMIT shownChanged();
}

void AppRows::change(const RowChange& how, const Rows& rows)
{
    for (const RowSpan& span : how.removed) {
        beginRemoveRows({}, static_cast<int>(span.first), static_cast<int>(span.last));
        const auto first = m_shown.begin() + static_cast<std::ptrdiff_t>(span.first);
        m_shown.erase(first, first + static_cast<std::ptrdiff_t>(span.last - span.first + 1));
        endRemoveRows();
    }
    for (const RowSpan& span : how.inserted) {
        beginInsertRows({}, static_cast<int>(span.first), static_cast<int>(span.last));
        const auto first = static_cast<std::ptrdiff_t>(span.first);
        m_shown.insert(m_shown.begin() + first, rows.begin() + first,
                       rows.begin() + static_cast<std::ptrdiff_t>(span.last) + 1);
        endInsertRows();
    }
}

void AppRows::tell(std::size_t first, std::size_t last, const QList<int>& roles)
{
    Q_EMIT dataChanged(index(static_cast<int>(first)), index(static_cast<int>(last)), roles);
}

} // namespace zolva
