#include "screens/model/CleanModel.h"

#include "async/Unawaited.h"
#include "removal/runs/RunSelection.h"

#include "screens/model/ShownText.h"

#include <utility>

namespace zolva {

CleanModel::CleanModel(AppModel& model, QObject* parent)
    : CleanModel(model, std::make_unique<CleanRows>(model), parent)
{}

CleanModel::CleanModel(AppModel& model, std::unique_ptr<CleanRows> rows, QObject* parent)
    : ListScreenModel(model, std::move(rows),
                      {"clean", "erase", "Clean", {SortKey::SizeDesc, SortKey::NameAsc}}, parent),
      m_categories(static_cast<const CleanRows&>(*this->rows()))
{
    connect(&model.live(), &LiveData::cleanChanged, this, &CleanModel::followState);
    connect(this->rows(), &ListRows::shownChanged, this, &CleanModel::refreshNote);
    connect(&model.settings(), &AppSettings::keepInTrashChanged, this, &CleanModel::refreshNote);
    refreshNote();
}

LoadState CleanModel::state() const
{
    return model().live().clean().state();
}

QString CleanModel::subtitle() const
{
    return model().settings().keepInTrash()
               ? QStringLiteral("Caches and build artifacts your Mac rebuilds on its own. These go "
                                "to the Trash, so you can put them back.")
               : QStringLiteral("Caches and build artifacts your Mac rebuilds on its own. Cleaning "
                                "deletes them for good, so the space comes back straight away.");
}

QString CleanModel::selectedSize() const
{
    return shownSize(selectedBytes());
}

QString CleanModel::selectedCount() const
{
    return QString::number(model().removal().selectedCategoryCount()) + QStringLiteral(" of ") +
           countedCategories(static_cast<std::int64_t>(rows()->size())) +
           QStringLiteral(" selected");
}

QString CleanModel::note() const
{
    return m_note;
}

void CleanModel::scan()
{
    unawaited(model().scanClean(false));
}

void CleanModel::rescan()
{
    model().rescanClean();
}

void CleanModel::pickRow(const std::string& key, const Keys& order, bool shift)
{
    model().lists().pickClean(key, order, shift);
}

void CleanModel::setAll(const Keys& keys, bool ticked)
{
    model().lists().setClean(keys, ticked);
}

void CleanModel::toggleOpen(const QString& id)
{
    AppLists& lists = model().lists();
    std::optional<std::string> row = ListRows::keyOf(id);
    lists.setOpenCat(lists.openCat() == row ? std::nullopt : std::move(row));
}

void CleanModel::refreshNote()
{
    m_note = cleanNote(m_categories.protectedPaths(), model().settings().keepInTrash());
    Q_EMIT changed();
}

} // namespace zolva
