#include "screens/model/PurgeModel.h"

#include "async/Unawaited.h"
#include "removal/runs/RunMessages.h"

#include "screens/model/PurgeRows.h"

namespace zolva {

PurgeModel::PurgeModel(AppModel& model, QObject* parent)
    : ListScreenModel(
          model, std::make_unique<PurgeRows>(model),
          {"purge", "purge", "Purge", {SortKey::SizeDesc, SortKey::AgeDesc, SortKey::NameAsc}},
          parent)
{
    connect(&model.live(), &LiveData::purgeChanged, this, &PurgeModel::followState);
    connect(&model.settings(), &AppSettings::keepInTrashChanged, this, &PurgeModel::changed);
}

LoadState PurgeModel::state() const
{
    return model().live().purge().state();
}

QString PurgeModel::subtitle() const
{
    return QStringLiteral("Build artifacts in your project folders. Anything touched in the last "
                          "week is found but left unselected.");
}

QString PurgeModel::note() const
{
    return model().settings().keepInTrash()
               ? QStringLiteral("Moved to the Trash, your next build will recreate them.")
               : QStringLiteral("Removed for good, your next build will recreate them.");
}

QString PurgeModel::countText() const
{
    return selectedBytes() >= 1
               ? counted(rows()->tickedCount(), "project") + QStringLiteral(" selected")
               : QString();
}

void PurgeModel::scan()
{
    unawaited(model().scanPurge(false));
}

void PurgeModel::rescan()
{
    unawaited(model().scanPurge(true));
}

void PurgeModel::pickRow(const std::string& key, const Keys& order, bool shift)
{
    model().lists().pickPurge(key, order, shift);
}

void PurgeModel::setAll(const Keys& keys, bool ticked)
{
    model().lists().setPurge(keys, ticked);
}

} // namespace zolva
