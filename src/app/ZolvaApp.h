#pragma once

#include "app/AppDelegate.h"
#include "app/MenuBarExtra.h"
#include "async/Clock.h"
#include "core/AppModel.h"
#include "core/PrefsStore.h"
#include "core/SystemAppearance.h"
#include "desktop/QuitSignals.h"
#include "desktop/ReducedMotion.h"
#include "screens/model/ScreenModel.h"

#include <QObject>
#include <QQmlApplicationEngine>
#include <QQuickWindow>
#include <QString>

#include <memory>

namespace zolva {

/// The program with the window: makes the one model, shows it, and ends when it may. What still
/// runs when it ends is dropped. Main thread, once, with a QGuiApplication.
class ZolvaApp final : public QObject
{
    Q_OBJECT

public:
    explicit ZolvaApp(QObject* parent = nullptr);

    /// Loads the window, and shows it with the next turns of the event loop. False if it is broken.
    [[nodiscard]] bool showWindow();
    /// Brings it back and to the front; the token is the desktop's leave for that.
    void reopen(const QString& token) { m_delegate.reopen(token); }

private:
    [[nodiscard]] AppDependencies dependencies();
    void followSession();
    void startMenuBar(const QQuickWindow& window);

    SystemClock m_clock;
    std::unique_ptr<PrefsStore> m_prefs;
    std::unique_ptr<SystemAppearance> m_appearance;
    std::unique_ptr<ReducedMotion> m_reducedMotion;
    AppModel m_model;
    ScreenModel m_screens;
    AppDelegate m_delegate;
    QuitSignals m_signals;
    QQmlApplicationEngine m_engine; ///< goes before the others: it shows them
    MenuBarExtra m_menuBar;
};

} // namespace zolva
