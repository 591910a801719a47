#include "screens/model/CleanModel.h"

#include "async/Unawaited.h"
#include "removal/runs/RunSelection.h"

#include "screens/model/ShownText.h"

namespace zolva {

CleanModel::CleanModel(AppModel& model, QObject* parent)
    : QObject(parent), m_model(model), m_rows(model),
      m_sort(model, "clean", {SortKey::SizeDesc, SortKey::NameAsc})
{
    connect(&model.live(), &LiveData::cleanChanged, this, &CleanModel::pageChanged);
    connect(&model.live(), &LiveData::cleanChanged, this, &CleanModel::changed);
    connect(&m_rows, &CleanRows::shownChanged, this, &CleanModel::recount);
    connect(&m_rows, &CleanRows::ticksChanged, this, &CleanModel::refreshTicks);
    connect(&model.settings(), &AppSettings::keepInTrashChanged, this, &CleanModel::refreshNote);
    recount();
}

CleanModel::Page CleanModel::page() const
{
    return pageOf(m_model.live().clean().state());
}

CleanModel::Page CleanModel::pageOf(LoadState clean)
{
    switch (clean) {
    case LoadState::Loading:
        return Scanning;
    case LoadState::Loaded:
        return List;
    case LoadState::Idle:
    case LoadState::Failed:
        break;
    }
    return Welcome;
}

QString CleanModel::subtitle() const
{
    return m_model.settings().keepInTrash()
               ? QStringLiteral("Caches and build artifacts your Mac rebuilds on its own. These go "
                                "to the Trash, so you can put them back.")
               : QStringLiteral("Caches and build artifacts your Mac rebuilds on its own. Cleaning "
                                "deletes them for good, so the space comes back straight away.");
}

QString CleanModel::selectedSize() const
{
    return shownSize(m_selectedBytes);
}

QString CleanModel::selectedCount() const
{
    return QString::number(m_selectedCategories) + QStringLiteral(" of ") +
           countedCategories(static_cast<std::int64_t>(m_rows.shown().size())) +
           QStringLiteral(" selected");
}

bool CleanModel::isEmpty() const
{
    return page() == List && m_rows.shown().empty();
}

QString CleanModel::selectWord() const
{
    return m_rows.isAllTicked() ? QStringLiteral("Deselect all") : QStringLiteral("Select all");
}

QString CleanModel::note() const
{
    return m_note;
}

QString CleanModel::buttonTitle() const
{
    return QStringLiteral("Clean ") + selectedSize();
}

bool CleanModel::canClean() const
{
    return m_selectedBytes != 0;
}

void CleanModel::scan()
{
    unawaited(m_model.scanClean(false));
}

void CleanModel::rescan()
{
    m_model.rescanClean();
}

void CleanModel::pick(const QString& id, bool shift)
{
    const std::string row = id.toStdString();
    if (m_rows.isTickable(row)) {
        m_model.lists().pickClean(row, m_rows.order(), shift);
    }
}

void CleanModel::toggleOpen(const QString& id)
{
    AppLists& lists = m_model.lists();
    std::optional<std::string> row = id.toStdString();
    lists.setOpenCat(lists.openCat() == row ? std::nullopt : std::move(row));
}

void CleanModel::toggleAll()
{
    m_model.lists().setClean(m_rows.order(), !m_rows.isAllTicked());
}

void CleanModel::clean()
{
    m_model.raiseSheet("erase");
}

void CleanModel::recount()
{
    refreshTicks();
    refreshNote();
}

void CleanModel::refreshNote()
{
    m_note = cleanNote(m_rows.protectedPaths(), m_model.settings().keepInTrash());
    Q_EMIT changed();
}

void CleanModel::refreshTicks()
{
    m_selectedBytes = m_rows.tickedBytes();
    m_selectedCategories = m_model.removal().selectedCategoryCount();
    Q_EMIT changed();
}

} // namespace zolva
