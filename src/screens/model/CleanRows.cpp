#include "screens/model/CleanRows.h"

#include "core/SortedRows.h"
#include "removal/runs/RunMessages.h"

#include "screens/model/ShownText.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace zolva {

/// A category, and what the exclusion list leaves of it, added up once per change.
struct CleanRows::Row final : ListRow
{
    Category category;
    std::int64_t protectedBytes = 0;
    std::int64_t protectedPaths = 0;
};

CleanRows::CleanRows(AppModel& model, QObject* parent) : ListRows(model, "clean", parent)
{
    connect(&model.lists(), &AppLists::liveCatsChanged, this, &CleanRows::takeList);
    connect(&model.exclusions(), &Exclusions::whitelistChanged, this, &CleanRows::reload);
    connect(&model.lists(), &AppLists::selChanged, this, &CleanRows::followTicks);
    connect(&model.lists(), &AppLists::openCatChanged, this, &CleanRows::followOpen);
    takeList();
}

std::int64_t CleanRows::protectedPaths() const
{
    return std::accumulate(rows().begin(), rows().end(), std::int64_t{0},
                           [](std::int64_t count, const auto& row) {
                               return count + static_cast<const Row&>(*row).protectedPaths;
                           });
}

QHash<int, QByteArray> CleanRows::roleNames() const
{
    QHash<int, QByteArray> names = ListRows::roleNames();
    names.insert({{TrailingKindRole, "trailingKind"},
                  {DetailRole, "detail"},
                  {OpenRole, "open"},
                  {LinesRole, "lines"},
                  {MoreRole, "more"}});
    return names;
}

ListRows::Rows CleanRows::build() const
{
    Rows rows;
    if (const auto& found = model().lists().liveCats()) {
        const ExclusionRules rules(model().exclusions().whitelist());
        for (Category& category : sortedCategories(*found, sortKey())) {
            rows.push_back(rowOf(std::move(category), rules));
        }
    }
    return rows;
}

bool CleanRows::isPicked(const std::string& key) const
{
    const PickMap& picks = model().lists().sel();
    const auto pick = picks.find(key);
    return pick != picks.end() && pick->second;
}

QVariant CleanRows::read(const ListRow& listed, int role) const
{
    const Row& row = static_cast<const Row&>(listed);
    switch (role) {
    case NameRole:
        return shownLine(row.category.name);
    case DescRole:
        return shownLine(row.category.desc);
    case TickedRole:
        return row.isTicked && row.isTickable;
    case TrailingRole:
        return trailing(row);
    case TrailingKindRole:
        return static_cast<int>(trailingKind(row));
    case DetailRole:
        return detail(row);
    case OpenRole:
        return isOpen(row);
    case LinesRole:
        return QVariant::fromValue(isOpen(row) ? lines(row.category) : QList<PathLine>());
    case MoreRole:
        return isOpen(row) ? more(row.category) : QString();
    default:
        return {};
    }
}

void CleanRows::takeList()
{
    m_open = model().lists().openCat().value_or(std::string());
    reload();
}

void CleanRows::followOpen()
{
    const std::string before =
        std::exchange(m_open, model().lists().openCat().value_or(std::string()));
    for (std::size_t row = 0; row < size(); ++row) {
        if (rows()[row]->key == before || isOpen(*rows()[row])) {
            tell(row, row, {OpenRole, LinesRole, MoreRole});
        }
    }
}

bool CleanRows::isOpen(const ListRow& row) const
{
    return !m_open.empty() && row.key == m_open;
}

bool CleanRows::isRemovable(const CatPath& path, const ExclusionRules& rules)
{
    return !path.prot && !rules.covers(path.p);
}

std::unique_ptr<CleanRows::Row> CleanRows::rowOf(Category category, const ExclusionRules& rules)
{
    auto row = std::make_unique<Row>();
    row->key = category.id;
    row->isTickable = false;
    for (const CatPath& path : category.paths) {
        if (isRemovable(path, rules)) {
            row->bytes += path.b;
            row->isTickable = true;
        } else {
            row->protectedBytes += path.b;
            ++row->protectedPaths;
        }
    }
    row->category = std::move(category);
    return row;
}

CleanRows::Trailing CleanRows::trailingKind(const Row& row)
{
    if (row.category.sudo) {
        return NeedsPassword;
    }
    return row.isTickable ? Size : AllProtected;
}

QString CleanRows::trailing(const Row& row)
{
    switch (trailingKind(row)) {
    case NeedsPassword:
        return QStringLiteral("Needs password");
    case AllProtected:
        return QStringLiteral("All ") + shownSize(row.protectedBytes) +
               QStringLiteral(" protected");
    case Size:
        break;
    }
    return shownSize(row.bytes);
}

QString CleanRows::detail(const Row& row)
{
    const QString removable = shownSize(row.bytes) + QStringLiteral(" removable");
    return row.protectedPaths > 0 ? removable + QStringLiteral(", ") +
                                        shownSize(row.protectedBytes) + QStringLiteral(" protected")
                                  : removable;
}

QList<PathLine> CleanRows::lines(const Category& category) const
{
    const ExclusionRules rules(model().exclusions().whitelist());
    QList<PathLine> lines;
    const std::size_t count = std::min(category.paths.size(), lineLimit);
    for (std::size_t place = 0; place < count; ++place) {
        const CatPath& path = category.paths[place];
        PathLine line{shortenedPath(path.p), shownLine(path.p), {}, false};
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

QString CleanRows::more(const Category& category)
{
    if (category.paths.size() <= lineLimit) {
        return {};
    }
    return QStringLiteral("+ ") +
           counted(static_cast<std::int64_t>(category.paths.size() - lineLimit), "smaller path") +
           QStringLiteral(", also included");
}

} // namespace zolva
