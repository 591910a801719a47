#include "screens/model/ListScreenModel.h"

#include "screens/model/ShownText.h"

#include <utility>

namespace zolva {

ListScreenModel::ListScreenModel(AppModel& model, std::unique_ptr<ListRows> rows, Kind kind,
                                 QObject* parent)
    : QObject(parent), m_model(model), m_kind(std::move(kind)), m_rows(std::move(rows)),
      m_sort(model, m_kind.screen, m_kind.orders), m_selectedBytes(m_rows->tickedBytes())
{
    connect(m_rows.get(), &ListRows::shownChanged, this, &ListScreenModel::recount);
    connect(m_rows.get(), &ListRows::ticksChanged, this, &ListScreenModel::recount);
}

ListScreenModel::Page ListScreenModel::pageOf(LoadState state)
{
    switch (state) {
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

bool ListScreenModel::isEmpty() const
{
    return page() == List && m_rows->size() == 0;
}

QString ListScreenModel::countText() const
{
    return {};
}

QString ListScreenModel::selectWord() const
{
    return m_rows->selectWord();
}

QString ListScreenModel::buttonTitle() const
{
    return QString::fromUtf8(m_kind.verb) + QStringLiteral(" ") + shownSize(m_selectedBytes);
}

void ListScreenModel::pick(const QString& id, bool shift)
{
    const std::string row = ListRows::keyOf(id);
    if (m_rows->isTickable(row)) {
        pickRow(row, m_rows->order(), shift);
    }
}

void ListScreenModel::toggleAll()
{
    const bool ticked = !m_rows->isAllTicked();
    setAll(m_rows->keysOfAll(ticked), ticked);
}

void ListScreenModel::remove()
{
    m_model.raiseSheet(m_kind.sheet);
}

void ListScreenModel::followState()
{
    Q_EMIT pageChanged();
    Q_EMIT changed();
}

void ListScreenModel::recount()
{
    m_selectedBytes = m_rows->tickedBytes();
    Q_EMIT changed();
}

} // namespace zolva
