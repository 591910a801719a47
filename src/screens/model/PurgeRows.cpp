#include "screens/model/PurgeRows.h"

#include "core/SortedRows.h"
#include "files/ExclusionRules.h"

#include "screens/model/ShownText.h"

#include <utility>

namespace zolva {

struct PurgeRows::Row final : ListRow
{
    Project project;
};

PurgeRows::PurgeRows(AppModel& model, QObject* parent) : ListRows(model, "purge", parent)
{
    connect(&model.lists(), &AppLists::liveProjectsChanged, this, &PurgeRows::reload);
    connect(&model.exclusions(), &Exclusions::whitelistChanged, this, &PurgeRows::reload);
    connect(&model.lists(), &AppLists::projPickedChanged, this, &PurgeRows::followTicks);
    reload();
}

QHash<int, QByteArray> PurgeRows::roleNames() const
{
    QHash<int, QByteArray> names = ListRows::roleNames();
    names.insert({{SpokenNameRole, "spokenName"}, {RecentRole, "recent"}});
    return names;
}

ListRows::Rows PurgeRows::build() const
{
    Rows rows;
    if (const auto& found = model().lists().liveProjects()) {
        const ExclusionRules rules(model().exclusions().whitelist());
        rows.reserve(found->size());
        for (Project& project : sortedProjects(*found, sortKey())) {
            auto row = std::make_unique<Row>();
            row->key = projectKey(project);
            row->bytes = project.b;
            row->isTickable = !rules.covers(row->key);
            row->project = std::move(project);
            rows.push_back(std::move(row));
        }
    }
    return rows;
}

bool PurgeRows::isPicked(const std::string& key) const
{
    return model().lists().projPicked().contains(key);
}

QVariant PurgeRows::read(const ListRow& listed, int role) const
{
    const Row& row = static_cast<const Row&>(listed);
    switch (role) {
    case NameRole:
        return shownLine(row.project.p);
    case DescRole:
        return desc(row.project);
    case TrailingRole:
        return row.isTickable ? shownSize(row.bytes) : QStringLiteral("Protected");
    case SpokenNameRole:
        return shownLine(row.project.artifact) + QStringLiteral(" in ") + shownLine(row.project.p);
    case RecentRole:
        return isRecent(row.project);
    default:
        return {};
    }
}

bool PurgeRows::isRecent(const Project& project)
{
    return project.age < recentAge;
}

/// The plural is kept for one day.
QString PurgeRows::desc(const Project& project)
{
    const QString artifact = shownLine(project.artifact);
    const QString age = QString::number(project.age);
    return isRecent(project)
               ? artifact + QStringLiteral(" · modified ") + age + QStringLiteral(" days ago")
               : artifact + QStringLiteral(" · ") + age + QStringLiteral(" days old");
}

} // namespace zolva
