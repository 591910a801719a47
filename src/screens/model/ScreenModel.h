#pragma once

#include "core/AppModel.h"

#include "screens/model/AccessModel.h"
#include "screens/model/AnalyzeModel.h"
#include "screens/model/BulkModel.h"
#include "screens/model/CleanModel.h"
#include "screens/model/ConfirmModel.h"
#include "screens/model/HomeModel.h"
#include "screens/model/InstallerModel.h"
#include "screens/model/MenuPanelModel.h"
#include "screens/model/PurgeModel.h"
#include "screens/model/QuitModel.h"
#include "screens/model/SettingsModel.h"
#include "screens/model/SidebarModel.h"
#include "screens/model/StatusModel.h"
#include "screens/model/UninstallModel.h"
#include "screens/model/UpdateModel.h"

#include <QAbstractItemModel>
#include <QObject>
#include <QQmlEngine>
#include <QString>

namespace zolva {

/// The application model as the screens see it: texts ready to be shown and what can be done, one
/// part per screen. It keeps no state of its own. Main thread; the model outlives it.
class ScreenModel final : public QObject
{
    Q_OBJECT
    QML_ELEMENT
    QML_UNCREATABLE("made by the program")
    Q_PROPERTY(QString screen READ screen NOTIFY screenChanged)
    Q_PROPERTY(bool lightTheme READ lightTheme NOTIFY lightThemeChanged)
    Q_PROPERTY(zolva::SidebarModel* sidebar READ sidebar CONSTANT)
    Q_PROPERTY(zolva::HomeModel* home READ home CONSTANT)
    Q_PROPERTY(zolva::CleanModel* clean READ clean CONSTANT)
    Q_PROPERTY(zolva::PurgeModel* purge READ purge CONSTANT)
    Q_PROPERTY(zolva::InstallerModel* installer READ installer CONSTANT)
    Q_PROPERTY(zolva::UninstallModel* uninstall READ uninstall CONSTANT)
    Q_PROPERTY(zolva::AnalyzeModel* analyze READ analyze CONSTANT)
    Q_PROPERTY(zolva::StatusModel* status READ status CONSTANT)
    Q_PROPERTY(zolva::SettingsModel* settings READ settings CONSTANT)
    Q_PROPERTY(zolva::ConfirmModel* confirm READ confirm CONSTANT)
    Q_PROPERTY(zolva::BulkModel* bulk READ bulk CONSTANT)
    Q_PROPERTY(zolva::AccessModel* access READ access CONSTANT)
    Q_PROPERTY(zolva::UpdateModel* updates READ updates CONSTANT)
    Q_PROPERTY(zolva::QuitModel* quit READ quit CONSTANT)
    Q_PROPERTY(zolva::MenuPanelModel* menu READ menu CONSTANT)
    /// Rows with `toastId`, `kind` ("info", "warning", "success"), `text` and `actionTitle`.
    Q_PROPERTY(QAbstractItemModel* toasts READ toasts CONSTANT)

public:
    ScreenModel(AppModel& model, Clock& clock, QObject* parent = nullptr);

    [[nodiscard]] QString screen() const;
    [[nodiscard]] bool lightTheme() const;
    [[nodiscard]] SidebarModel* sidebar() { return &m_sidebar; }
    [[nodiscard]] HomeModel* home() { return &m_home; }
    [[nodiscard]] CleanModel* clean() { return &m_clean; }
    [[nodiscard]] PurgeModel* purge() { return &m_purge; }
    [[nodiscard]] InstallerModel* installer() { return &m_installer; }
    [[nodiscard]] UninstallModel* uninstall() { return &m_uninstall; }
    [[nodiscard]] AnalyzeModel* analyze() { return &m_analyze; }
    [[nodiscard]] StatusModel* status() { return &m_status; }
    [[nodiscard]] SettingsModel* settings() { return &m_settings; }
    [[nodiscard]] ConfirmModel* confirm() { return &m_confirm; }
    [[nodiscard]] BulkModel* bulk() { return &m_bulk; }
    [[nodiscard]] AccessModel* access() { return &m_access; }
    [[nodiscard]] UpdateModel* updates() { return &m_updates; }
    [[nodiscard]] QuitModel* quit() { return &m_quit; }
    [[nodiscard]] MenuPanelModel* menu() { return &m_menu; }
    [[nodiscard]] QAbstractItemModel* toasts() { return &m_model.toasts(); }

    Q_INVOKABLE void go(const QString& screen);
    Q_INVOKABLE void runToast(const QUuid& id);
    Q_INVOKABLE void dismissToast(const QUuid& id);

Q_SIGNALS:
    void screenChanged();
    void lightThemeChanged();

private:
    AppModel& m_model;
    SidebarModel m_sidebar;
    HomeModel m_home;
    CleanModel m_clean;
    PurgeModel m_purge;
    InstallerModel m_installer;
    UninstallModel m_uninstall;
    AnalyzeModel m_analyze;
    StatusModel m_status;
    SettingsModel m_settings;
    ConfirmModel m_confirm;
    BulkModel m_bulk;
    AccessModel m_access;
    UpdateModel m_updates;
    QuitModel m_quit;
    MenuPanelModel m_menu;
};

} // namespace zolva
