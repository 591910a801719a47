#include "screens/model/MenuPanelModel.h"

#include "screens/model/MenuMessages.h"
#include "screens/model/ShownText.h"

#include <utility>

namespace zolva {

namespace {

const auto trashId = QStringLiteral("trash");

} // namespace

MenuPanelModel::MenuPanelModel(AppModel& model, QObject* parent)
    : QAbstractListModel(parent), m_model(model)
{
    const auto follow = [this](auto* sender, auto signal) {
        connect(sender, signal, this, &MenuPanelModel::recount);
    };
    follow(&model.live(), &LiveData::cleanChanged);
    follow(&model.live(), &LiveData::purgeChanged);
    follow(&model.lists(), &AppLists::installersChanged);
    follow(&model.exclusions(), &Exclusions::whitelistChanged);
    follow(&model.removal().trash(), &TrashMeter::trashChanged);
    FreeSpaceMeter* const space = &model.removal().space();
    connect(space, &FreeSpaceMeter::freeSpaceChanged, this, &MenuPanelModel::diskChanged);
    connect(space, &FreeSpaceMeter::volumeTotalChanged, this, &MenuPanelModel::diskChanged);
    readVolumeName();
    recount();
}

QString MenuPanelModel::fullText() const
{
    const FreeSpaceMeter& space = m_model.removal().space();
    return percentFull(space.freeSpace(), space.volumeTotal());
}

QString MenuPanelModel::freeText() const
{
    return shownSize(m_model.removal().space().freeSpace());
}

QString MenuPanelModel::ofTotalText() const
{
    return freeOfTotal(m_model.removal().space().volumeTotal());
}

QString MenuPanelModel::spokenDisk() const
{
    const FreeSpaceMeter& space = m_model.removal().space();
    return spokenDiskText(m_volumeName, space.freeSpace(), space.volumeTotal());
}

bool MenuPanelModel::scanning() const
{
    return !m_model.live().clean().isLoaded();
}

QString MenuPanelModel::totalText() const
{
    return shownSize(m_total);
}

QString MenuPanelModel::keptText() const
{
    return keptNote(m_kept);
}

QString MenuPanelModel::itemLabel() const
{
    return trayLabel(m_total);
}

QString MenuPanelModel::itemToolTip() const
{
    return trayToolTip(m_total);
}

void MenuPanelModel::opened()
{
    readVolumeName();
    m_model.scanForMenu();
}

void MenuPanelModel::rescan()
{
    m_model.scanAll();
}

void MenuPanelModel::chooseRow(int row)
{
    const ReclaimRow& chosen = m_rows.at(static_cast<std::size_t>(row)).reclaim;
    if (chosen.screen) {
        openMain(*chosen.screen);
    } else if (chosen.id == trashId) {
        openMain();
        m_model.askEmptyTrash();
    }
}

void MenuPanelModel::runCommand(int row)
{
    switch (MenuCommands::deedOf(row)) {
    case MenuCommands::Deed::Open:
        openMain();
        break;
    case MenuCommands::Deed::Status:
        openMain(QStringLiteral("status"));
        break;
    case MenuCommands::Deed::Settings:
        openMain(QStringLiteral("settings"));
        break;
    case MenuCommands::Deed::Quit:
        quit();
        break;
    }
}

void MenuPanelModel::quit()
{
    Q_EMIT quitWanted();
}

void MenuPanelModel::openMain()
{
    Q_EMIT mainWanted();
}

void MenuPanelModel::openMain(const QString& screen)
{
    m_model.go(screen.toStdString());
    openMain();
}

int MenuPanelModel::rowCount(const QModelIndex& parent) const
{
    return parent.isValid() ? 0 : static_cast<int>(m_rows.size());
}

QVariant MenuPanelModel::data(const QModelIndex& index, int role) const
{
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) {
        return {};
    }
    const Row& row = m_rows.at(static_cast<std::size_t>(index.row()));
    switch (role) {
    case LabelRole:
        return row.reclaim.label;
    case SymbolRole:
        return row.reclaim.symbol;
    case CountRole:
        return countOf(row);
    case SizeRole:
        return sizeOf(row);
    case SpokenRole:
        return spokenOf(row);
    case HintRole:
        return row.reclaim.id == trashId
                   ? QStringLiteral("Empties the Trash, after confirming")
                   : QStringLiteral("Opens ") + row.reclaim.label + QStringLiteral(" in Zolva");
    default:
        return {};
    }
}

QHash<int, QByteArray> MenuPanelModel::roleNames() const
{
    return {{LabelRole, "label"}, {SymbolRole, "symbol"}, {CountRole, "count"},
            {SizeRole, "size"},   {SpokenRole, "spoken"}, {HintRole, "hint"}};
}

void MenuPanelModel::readVolumeName()
{
    const QString read = shownLine(m_model.volumeName());
    const QString name = read.isEmpty() ? QString::fromUtf8(menuwords::unnamedVolume) : read;
    if (std::exchange(m_volumeName, name) != name) {
        Q_EMIT diskChanged();
    }
}

void MenuPanelModel::recount()
{
    const std::array<ReclaimRow, 4> rows = m_model.removal().reclaimRows();
    m_total = 0;
    for (std::size_t place = 0; place < rows.size(); ++place) {
        const Row now{rows.at(place),
                      rows.at(place).id == trashId && m_model.removal().trash().trashUnreadable()};
        const Row old = std::exchange(m_rows.at(place), now);
        m_total += now.reclaim.bytes;
        if (old.reclaim.bytes != now.reclaim.bytes || old.reclaim.count != now.reclaim.count ||
            old.isUnreadable != now.isUnreadable) {
            const QModelIndex at = index(static_cast<int>(place));
            Q_EMIT dataChanged(at, at, {CountRole, SizeRole, SpokenRole});
        }
    }
    m_kept = keptBytes();
    Q_EMIT reclaimChanged();
}

std::int64_t MenuPanelModel::keptBytes() const
{
    std::int64_t kept = -m_model.removal().cleanableBytes();
    if (const auto* const categories = m_model.live().clean().value()) {
        for (const Category& category : *categories) {
            kept += totalBytes(category);
        }
    }
    kept -= m_model.removal().removableProjectBytes();
    if (const auto* const projects = m_model.live().purge().value()) {
        for (const Project& project : *projects) {
            kept += project.b;
        }
    }
    return kept;
}

QString MenuPanelModel::countOf(const Row& row) const
{
    return row.isUnreadable ? QString::fromUtf8(menuwords::accessNeeded)
                            : reclaimCount(row.reclaim.count, row.reclaim.noun);
}

QString MenuPanelModel::sizeOf(const Row& row) const
{
    return row.isUnreadable ? QString() : shownSize(row.reclaim.bytes);
}

QString MenuPanelModel::spokenOf(const Row& row) const
{
    return row.isUnreadable ? QStringLiteral("Trash, access needed. macOS is blocking access.")
                            : row.reclaim.label + QStringLiteral(", ") + countOf(row) +
                                  QStringLiteral(", ") + sizeOf(row);
}

} // namespace zolva
