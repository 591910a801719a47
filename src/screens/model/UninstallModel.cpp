#include "screens/model/UninstallModel.h"

#include "async/Unawaited.h"

#include "screens/model/AppMessages.h"
#include "screens/model/ShownText.h"

namespace zolva {

namespace {

constexpr auto screenId = "uninstall";

} // namespace

UninstallModel::UninstallModel(AppModel& model, QObject* parent)
    : QObject(parent), m_model(model), m_rows(model), m_detail(model),
      m_sort(model, screenId, {SortKey::SizeDesc, SortKey::NameAsc})
{
    connect(&model.live(), &LiveData::appsChanged, this, &UninstallModel::pageChanged);
    connect(&model, &AppModel::queryChanged, this, &UninstallModel::queryChanged);
    connect(&m_rows, &AppRows::shownChanged, this, &UninstallModel::changed);
    connect(&m_rows, &AppRows::ticksChanged, this, &UninstallModel::changed);
    connect(&model.settings(), &AppSettings::keepInTrashChanged, this,
            &UninstallModel::noteChanged);
}

UninstallModel::Page UninstallModel::page() const
{
    switch (m_model.live().apps().state()) {
    case LoadState::Loading:
        return Scanning;
    case LoadState::Loaded:
        return List;
    case LoadState::Failed:
        return Failed;
    case LoadState::Idle:
        break;
    }
    return Welcome;
}

QString UninstallModel::failure() const
{
    const std::string* const error = m_model.live().apps().error();
    return error != nullptr ? shownText(*error) : QString();
}

QString UninstallModel::query() const
{
    return QString::fromStdString(m_model.queryOf(screenId));
}

void UninstallModel::setQuery(const QString& text)
{
    m_model.setQuery(screenId, text.toStdString());
}

QString UninstallModel::countText() const
{
    return countedApps(m_rows.size());
}

QString UninstallModel::tickedText() const
{
    return m_rows.allTicked() > 0
               ? QString::number(m_rows.allTicked()) + QStringLiteral(" selected")
               : QString();
}

QString UninstallModel::selectWord() const
{
    return m_rows.selectWord();
}

QString UninstallModel::note() const
{
    return uninstallNote(m_model.settings().keepInTrash());
}

QString UninstallModel::buttonTitle() const
{
    return uninstallTitle(m_rows.allTicked());
}

bool UninstallModel::canUninstall() const
{
    return m_rows.allTicked() > 0;
}

void UninstallModel::scan()
{
    unawaited(m_model.live().loadApps());
}

void UninstallModel::rescan()
{
    m_model.live().forgetApps();
    scan();
}

void UninstallModel::show(const QString& id)
{
    if (const UninstallApp* const app = m_rows.appOf(ListRows::keyOf(id))) {
        unawaited(m_model.live().focusApp(*app));
    }
}

void UninstallModel::pick(const QString& id, bool shift)
{
    const std::string row = ListRows::keyOf(id);
    if (m_rows.find(row) != nullptr) {
        m_model.live().pickApp(row, m_rows.order(), shift);
    }
}

void UninstallModel::toggleAll()
{
    const bool ticked = !m_rows.isAllTicked();
    m_model.live().setApps(m_rows.keysOfAll(ticked), ticked);
}

void UninstallModel::uninstall()
{
    m_model.raiseSheet(screenId);
}

} // namespace zolva
