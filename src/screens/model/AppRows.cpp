#include "screens/model/AppRows.h"

#include "core/SortedRows.h"

#include "screens/model/AppMessages.h"
#include "screens/model/SearchText.h"
#include "screens/model/ShownText.h"

#include <algorithm>
#include <utility>

namespace zolva {

namespace {

constexpr auto screenId = "uninstall";

} // namespace

struct AppRows::Listed
{
    UninstallApp app;
    std::string id;
    QString form; ///< of the name, to be searched in; made at the first search
};

struct AppRows::Row final : ListRow
{
    std::shared_ptr<Listed> listed;
};

AppRows::AppRows(AppModel& model, QObject* parent)
    : ListRows(model, screenId, parent),
      m_focus(model.live().selectedAppID().value_or(std::string()))
{
    connect(&model.live(), &LiveData::appsChanged, this, &AppRows::takeApps);
    connect(&model.live(), &LiveData::checkedAppsChanged, this, &AppRows::tickRows);
    connect(&model.live(), &LiveData::selectedAppIDChanged, this, &AppRows::followFocus);
    connect(&model, &AppModel::queryChanged, this, &AppRows::reload);
    connect(this, &AppRows::shownChanged, this, &AppRows::focusCame);
    connect(&model, &AppModel::sortChanged, this, &AppRows::focusCame);
    takeApps();
}

const UninstallApp* AppRows::appOf(const std::string& key) const
{
    const ListRow* const row = find(key);
    return row != nullptr ? &static_cast<const Row*>(row)->listed->app : nullptr;
}

int AppRows::focusedRow() const
{
    const auto found = std::find_if(rows().begin(), rows().end(),
                                    [this](const auto& row) { return row->key == m_focus; });
    return found == rows().end() ? -1 : static_cast<int>(found - rows().begin());
}

QHash<int, QByteArray> AppRows::roleNames() const
{
    QHash<int, QByteArray> names = ListRows::roleNames();
    names.insert(InFocusRole, "inFocus");
    return names;
}

AppRows::Rows AppRows::build() const
{
    if (m_listedBy != sortKey()) {
        list();
    }
    const QLocale locale;
    const QString wanted = searchForm(QString::fromStdString(model().queryOf(screenId)), locale);
    Rows found;
    for (const std::shared_ptr<Listed>& listed : m_listed) {
        if (!wanted.isEmpty() && listed->form.isNull()) {
            listed->form = searchForm(shownLine(listed->app.name), locale);
        }
        if (wanted.isEmpty() || listed->form.contains(wanted)) {
            auto row = std::make_unique<Row>();
            row->key = listed->id;
            row->bytes = listed->app.bundleBytes.value_or(0);
            row->listed = listed;
            found.push_back(std::move(row));
        }
    }
    return found;
}

bool AppRows::isPicked(const std::string& key) const
{
    return model().live().checkedApps().contains(key);
}

QVariant AppRows::read(const ListRow& row, int role) const
{
    const UninstallApp& app = static_cast<const Row&>(row).listed->app;
    switch (role) {
    case NameRole:
        return shownLine(app.name);
    case TrailingRole:
        return appSize(app);
    case ValueRole:
        return row.isTicked ? QStringLiteral("Selected for removal")
                            : QStringLiteral("Not selected");
    case InFocusRole:
        return row.key == m_focus;
    default:
        return {};
    }
}

void AppRows::takeApps()
{
    list();
    countTicks();
    reload();
}

void AppRows::list() const
{
    m_listed.clear();
    m_listedBy = sortKey();
    if (const auto* const apps = model().live().apps().value()) {
        m_listed.reserve(apps->size());
        for (UninstallApp& app : sortedApps(*apps, m_listedBy)) {
            std::string id = app.id();
            m_listed.push_back(
                std::make_shared<Listed>(Listed{std::move(app), std::move(id), QString()}));
        }
    }
}

void AppRows::countTicks()
{
    m_allTicked = static_cast<std::size_t>(
        std::count_if(m_listed.begin(), m_listed.end(),
                      [this](const auto& listed) { return isPicked(listed->id); }));
}

void AppRows::tickRows()
{
    countTicks();
    followTicks();
}

void AppRows::followFocus()
{
    const int before = focusedRow();
    m_focus = model().live().selectedAppID().value_or(std::string());
    for (const int row : {before, focusedRow()}) {
        if (row >= 0) {
            tell(static_cast<std::size_t>(row), static_cast<std::size_t>(row), {InFocusRole});
        }
    }
    Q_EMIT focusCame();
}

} // namespace zolva
