#include "screens/model/UpdateModel.h"

#include "screens/model/ShownText.h"

namespace zolva {

UpdateModel::UpdateModel(AppModel& model, QObject* parent) : QObject(parent), m_model(model)
{
    connect(&model.updates(), &UpdateController::changed, this, &UpdateModel::refresh);
    refresh();
}

QString UpdateModel::title() const
{
    return QStringLiteral("Zolva ") + shownText(m_model.updates().shortVersionText());
}

QString UpdateModel::versionText() const
{
    return shownText(m_model.updates().versionText());
}

bool UpdateModel::menuShown() const
{
    return !m_model.updates().isSwitchedOff();
}

QString UpdateModel::menuTitle() const
{
    return QStringLiteral("Check for Updates…");
}

bool UpdateModel::canCheck() const
{
    return m_model.updates().isConfigured() && !m_model.updates().isChecking();
}

void UpdateModel::act()
{
    if (m_words.isOffer) {
        open();
    } else {
        check();
    }
}

void UpdateModel::check()
{
    m_model.updates().checkNow();
}

void UpdateModel::open()
{
    m_model.updates().download();
}

void UpdateModel::refresh()
{
    const UpdateController& updates = m_model.updates();
    m_words = updateWords({.switchedOff = updates.isSwitchedOff(),
                           .configured = updates.isConfigured(),
                           .checking = updates.isChecking(),
                           .result = updates.lastResult()});
    Q_EMIT changed();
}

} // namespace zolva
