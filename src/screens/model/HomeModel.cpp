#include "screens/model/HomeModel.h"

#include "removal/runs/RunMessages.h"
#include "removal/runs/RunSelection.h"

#include "screens/model/NavItem.h"
#include "screens/model/ShownText.h"

#include <algorithm>
#include <string_view>

namespace zolva {

namespace {

QString symbolOf(std::string_view screen)
{
    const auto* const found =
        std::find_if(navItems.begin(), navItems.end(),
                     [screen](const NavItem& item) { return item.id == screen; });
    return found == navItems.end() ? QString() : QString::fromUtf8(found->symbol);
}

QString scanning()
{
    return QStringLiteral("Scanning…");
}

template <typename T>
std::int64_t countOf(const std::vector<T>& rows)
{
    return static_cast<std::int64_t>(rows.size());
}

} // namespace

HomeModel::HomeModel(AppModel& model, QObject* parent) : QAbstractListModel(parent), m_model(model)
{
    connect(&model.live(), &LiveData::cleanChanged, this, &HomeModel::recountClean);
    connect(&model.live(), &LiveData::purgeChanged, this, &HomeModel::recountPurge);
    connect(&model.live(), &LiveData::appsChanged, this, &HomeModel::recountApps);
    connect(&model.lists(), &AppLists::installersChanged, this, &HomeModel::recountInstallers);
    connect(&model.exclusions(), &Exclusions::whitelistChanged, this, &HomeModel::recountClean);
    connect(&model.exclusions(), &Exclusions::whitelistChanged, this, &HomeModel::recountPurge);
    recountClean();
    recountPurge();
    recountInstallers();
    recountApps();
}

bool HomeModel::isWelcome() const
{
    return m_model.live().clean().isIdle();
}

bool HomeModel::counting() const
{
    return !m_model.live().clean().isLoaded() || !m_model.live().purge().isLoaded() ||
           m_model.lists().installerState().isLoading();
}

QString HomeModel::heading() const
{
    return counting() ? QStringLiteral("Counting what you\ncan reclaim…")
                      : QStringLiteral("You can reclaim\n") +
                            shownSize(m_installerBytes + m_cleanBytes + m_purgeBytes) +
                            QStringLiteral(" today");
}

void HomeModel::scanAll()
{
    m_model.scanAll();
}

int HomeModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_cards.size());
}

QVariant HomeModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    const HomeCard& card = m_cards.at(static_cast<std::size_t>(index.row()));
    switch (role) {
    case NameRole:
        return card.name;
    case SubRole:
        return card.sub;
    case SizeRole:
        return card.size;
    case MutedRole:
        return card.muted;
    case SymbolRole:
        return symbolOf(card.go);
    case GoRole:
        return QString::fromUtf8(card.go);
    default:
        return {};
    }
}

QHash<int, QByteArray> HomeModel::roleNames() const
{
    return {{NameRole, "name"},   {SubRole, "sub"},       {SizeRole, "size"},
            {MutedRole, "muted"}, {SymbolRole, "symbol"}, {GoRole, "goTo"}};
}

void HomeModel::recountClean()
{
    HomeCard card{QStringLiteral("Clean"), QStringLiteral("Rebuildable caches and logs"),
                  scanning(), true, "clean"};
    m_cleanBytes = m_model.removal().cleanableBytes();
    if (const auto* const found = m_model.live().clean().value()) {
        card.sub = countedCategories(countOf(*found)) + QStringLiteral(" of rebuildable files");
        card.size = shownSize(m_cleanBytes);
        card.muted = false;
    }
    setCard(CleanPlace, card);
}

void HomeModel::recountPurge()
{
    HomeCard card{QStringLiteral("Purge"), QStringLiteral("Project build artifacts"), scanning(),
                  true, "purge"};
    m_purgeBytes = m_model.removal().removableProjectBytes();
    if (const auto* const found = m_model.live().purge().value()) {
        card.sub = counted(countOf(*found), "project build folder");
        card.size = shownSize(m_purgeBytes);
        card.muted = false;
    }
    setCard(PurgePlace, card);
}

void HomeModel::recountInstallers()
{
    const std::vector<InstallerItem>& found = m_model.lists().installerList();
    m_installerBytes = bytesOf(found);
    setCard(InstallerPlace,
            {QStringLiteral("Installers"), counted(countOf(found), "disk image or package"),
             shownSize(m_installerBytes), false, "installer"});
}

void HomeModel::recountApps()
{
    const auto* const found = m_model.live().apps().value();
    setCard(UninstallPlace, {QStringLiteral("Uninstall"),
                             found ? counted(countOf(*found), "app") + QStringLiteral(" installed")
                                   : QStringLiteral("Installed applications"),
                             QStringLiteral("—"), true, "uninstall"});
}

void HomeModel::setCard(Place place, const HomeCard& card)
{
    HomeCard& held = m_cards.at(place);
    if (held != card) {
        held = card;
        const QModelIndex row = index(static_cast<int>(place));
        Q_EMIT dataChanged(row, row, {SubRole, SizeRole, MutedRole});
    }
    Q_EMIT changed(); // the sum, or whether it is still being counted
}

} // namespace zolva
