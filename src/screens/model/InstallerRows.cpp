#include "screens/model/InstallerRows.h"

#include "core/SortedRows.h"

#include "screens/model/ShownText.h"

#include <utility>

namespace zolva {

struct InstallerRows::Row final : ListRow
{
    InstallerItem item;
};

InstallerRows::InstallerRows(AppModel& model, QObject* parent)
    : ListRows(model, "installer", parent)
{
    connect(&model.lists(), &AppLists::installersChanged, this, &InstallerRows::reload);
    connect(&model.lists(), &AppLists::instPickedChanged, this, &InstallerRows::followTicks);
    reload();
}

const InstallerItem* InstallerRows::item(const std::string& key) const
{
    const ListRow* const row = find(key);
    return row == nullptr ? nullptr : &static_cast<const Row*>(row)->item;
}

ListRows::Rows InstallerRows::build() const
{
    Rows rows;
    const std::vector<InstallerItem>& found = model().lists().installerList();
    rows.reserve(found.size());
    for (InstallerItem& item : sortedInstallers(found, sortKey())) {
        auto row = std::make_unique<Row>();
        row->key = item.p;
        row->bytes = item.b;
        row->item = std::move(item);
        rows.push_back(std::move(row));
    }
    return rows;
}

bool InstallerRows::isPicked(const std::string& key) const
{
    return model().lists().instPicked().contains(key);
}

QVariant InstallerRows::read(const ListRow& listed, int role) const
{
    const InstallerItem& item = static_cast<const Row&>(listed).item;
    switch (role) {
    case NameRole:
        return shownLine(item.name);
    case DescRole: // the plural is kept for one day
        return shownLine(item.src) + QStringLiteral(" · ") + QString::number(item.age) +
               QStringLiteral(" days old");
    case TrailingRole:
        return shownSize(item.b);
    default:
        return {};
    }
}

} // namespace zolva
