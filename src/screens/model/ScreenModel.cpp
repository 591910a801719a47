#include "screens/model/ScreenModel.h"

namespace zolva {

ScreenModel::ScreenModel(AppModel& model, Clock& clock, QObject* parent)
    : QObject(parent), m_model(model), m_sidebar(model), m_home(model), m_clean(model),
      m_purge(model), m_installer(model), m_uninstall(model), m_analyze(model), m_status(model),
      m_settings(model), m_confirm(model), m_bulk(model), m_access(model), m_updates(model),
      m_quit(model, clock), m_menu(model)
{
    connect(&model, &AppModel::screenChanged, this, &ScreenModel::screenChanged);
    connect(&model, &AppModel::isLightThemeChanged, this, &ScreenModel::lightThemeChanged);
}

QString ScreenModel::screen() const
{
    return QString::fromStdString(m_model.screen());
}

bool ScreenModel::lightTheme() const
{
    return m_model.isLightTheme();
}

void ScreenModel::go(const QString& screen)
{
    m_model.go(screen.toStdString());
}

void ScreenModel::runToast(const QUuid& id)
{
    m_model.toasts().runAction(id);
}

void ScreenModel::dismissToast(const QUuid& id)
{
    m_model.toasts().dismissToast(id);
}

} // namespace zolva
