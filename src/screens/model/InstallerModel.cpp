#include "screens/model/InstallerModel.h"

#include "removal/runs/RunMessages.h"

#include "screens/model/ShownText.h"

#include <utility>

namespace zolva {

InstallerModel::InstallerModel(AppModel& model, QObject* parent)
    : InstallerModel(model, std::make_unique<InstallerRows>(model), parent)
{}

InstallerModel::InstallerModel(AppModel& model, std::unique_ptr<InstallerRows> rows,
                               QObject* parent)
    : ListScreenModel(model, std::move(rows),
                      {"installer",
                       "installer",
                       "Remove",
                       {SortKey::SizeDesc, SortKey::AgeDesc, SortKey::NameAsc}},
                      parent),
      m_items(static_cast<const InstallerRows&>(*this->rows()))
{
    connect(&model.lists(), &AppLists::installersChanged, this, &InstallerModel::followState);
}

LoadState InstallerModel::state() const
{
    return model().lists().installerState().state();
}

QString InstallerModel::subtitle() const
{
    return QStringLiteral("Disk images and packages you already installed from. You can download "
                          "them again if you ever need to.");
}

QString InstallerModel::note() const
{
    return {};
}

QString InstallerModel::countText() const
{
    return counted(rows()->tickedCount(), "file") + QStringLiteral(" selected · ") +
           shownSize(selectedBytes());
}

void InstallerModel::scan()
{
    model().scanInstallers();
}

void InstallerModel::rescan()
{
    model().scanInstallers();
}

void InstallerModel::removeOne(const QString& id)
{
    if (const InstallerItem* const item = m_items.item(ListRows::keyOf(id))) {
        // A copy: the row goes as the run starts.
        model().removeInstaller(InstallerItem(*item));
    }
}

void InstallerModel::reveal(const QString& id)
{
    model().reveal(ListRows::keyOf(id));
}

void InstallerModel::pickRow(const std::string& key, const Keys& order, bool shift)
{
    model().lists().pickInstaller(key, order, shift);
}

void InstallerModel::setAll(const Keys& keys, bool ticked)
{
    model().lists().setInstallers(keys, ticked);
}

} // namespace zolva
