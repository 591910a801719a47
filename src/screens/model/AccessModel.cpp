#include "screens/model/AccessModel.h"

#include "screens/model/AccessMessages.h"

namespace zolva {

AccessModel::AccessModel(AppModel& model, QObject* parent) : QObject(parent), m_model(model)
{
    connect(&model, &AppModel::showAccessIntroChanged, this, &AccessModel::introShownChanged);
    connect(&model, &AppModel::blockedLocationsChanged, this, &AccessModel::changed);
}

bool AccessModel::introShown() const
{
    return m_model.showAccessIntro();
}

QString AccessModel::introText() const
{
    return accessIntroText(m_model.blockedLocations());
}

QString AccessModel::introSpoken() const
{
    return accessIntroSpoken(m_model.blockedLocations());
}

bool AccessModel::noticeShown() const
{
    return !m_model.blockedLocations().empty();
}

QString AccessModel::noticeTitle() const
{
    return accessNoticeTitle(m_model.blockedLocations());
}

QString AccessModel::noticeSpoken() const
{
    return accessNoticeSpoken(m_model.blockedLocations());
}

void AccessModel::dismissIntro(bool openSettings)
{
    m_model.dismissAccessIntro(openSettings);
}

void AccessModel::openSettings()
{
    m_model.openAccessSettings();
}

} // namespace zolva
