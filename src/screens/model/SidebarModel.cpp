#include "screens/model/SidebarModel.h"

#include "removal/runs/RunSelection.h"

#include "screens/model/ShownText.h"
#include "screens/model/ToolText.h"

#include <algorithm>
#include <utility>

namespace zolva {

namespace {

/// -1 for a screen that no row stands for.
int rowOf(std::string_view id)
{
    const auto* const found = std::find_if(navItems.begin(), navItems.end(),
                                           [id](const NavItem& item) { return item.id == id; });
    return found == navItems.end() ? -1 : static_cast<int>(found - navItems.begin());
}

} // namespace

SidebarModel::SidebarModel(AppModel& model, QObject* parent)
    : QAbstractListModel(parent), m_model(model), m_screen(model.screen())
{
    connect(&model, &AppModel::screenChanged, this, &SidebarModel::followScreen);
    connect(&model.live(), &LiveData::cleanChanged, this, &SidebarModel::recountClean);
    connect(&model.live(), &LiveData::purgeChanged, this, &SidebarModel::recountPurge);
    connect(&model.exclusions(), &Exclusions::whitelistChanged, this, &SidebarModel::recountClean);
    connect(&model.exclusions(), &Exclusions::whitelistChanged, this, &SidebarModel::recountPurge);
    connect(&model.lists(), &AppLists::installersChanged, this, &SidebarModel::recountInstallers);
    connect(&model.removal().trash(), &TrashMeter::trashChanged, this, &SidebarModel::trashChanged);
    recountClean();
    recountPurge();
    recountInstallers();
}

bool SidebarModel::hasTrash() const
{
    return m_model.removal().trash().trashCount() >= 1;
}

QString SidebarModel::trashText() const
{
    return shownSize(m_model.removal().trash().trashBytes());
}

QString SidebarModel::versionLine() const
{
    return QStringLiteral("Zolva " ZOLVA_VERSION);
}

QString SidebarModel::toolLine() const
{
    const LiveData& live = m_model.live();
    const QString version = live.moVersion() ? shownText(*live.moVersion()) : QStringLiteral("—");
    return QStringLiteral("mo ") + version + QStringLiteral(" · ") + toolSource(live.moKind());
}

void SidebarModel::askEmptyTrash()
{
    m_model.askEmptyTrash();
}

int SidebarModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(navItems.size());
}

QVariant SidebarModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    const auto row = static_cast<std::size_t>(index.row());
    const NavItem& item = navItems.at(row);
    switch (role) {
    case ItemIdRole:
        return QString::fromUtf8(item.id);
    case LabelRole:
        return QString::fromUtf8(item.label);
    case SymbolRole:
        return QString::fromUtf8(item.symbol);
    case HeadRole:
        return QString::fromUtf8(item.head).toUpper();
    case ChipRole:
        return m_chips.at(row);
    case ActiveRole:
        return m_model.screen() == item.id;
    default:
        return {};
    }
}

QHash<int, QByteArray> SidebarModel::roleNames() const
{
    return {{ItemIdRole, "itemId"}, {LabelRole, "label"}, {SymbolRole, "symbol"},
            {HeadRole, "head"},     {ChipRole, "chip"},   {ActiveRole, "active"}};
}

void SidebarModel::recountClean()
{
    setChip("clean", m_model.live().clean().isLoaded()
                         ? shownSize(m_model.removal().cleanableBytes())
                         : QString());
}

void SidebarModel::recountPurge()
{
    setChip("purge", m_model.live().purge().isLoaded()
                         ? shownSize(m_model.removal().removableProjectBytes())
                         : QString());
}

void SidebarModel::recountInstallers()
{
    const std::int64_t bytes = bytesOf(m_model.lists().installerList());
    setChip("installer", bytes < 1 ? QString() : shownSize(bytes));
}

void SidebarModel::setChip(std::string_view id, const QString& chip)
{
    const int row = rowOf(id);
    QString& held = m_chips.at(static_cast<std::size_t>(row));
    if (held != chip) {
        held = chip;
        Q_EMIT dataChanged(index(row), index(row), {ChipRole});
    }
}

void SidebarModel::followScreen()
{
    for (const int row : {rowOf(std::exchange(m_screen, m_model.screen())), rowOf(m_screen)}) {
        if (row >= 0) {
            Q_EMIT dataChanged(index(row), index(row), {ActiveRole});
        }
    }
}

} // namespace zolva
