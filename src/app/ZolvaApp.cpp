#include "app/ZolvaApp.h"

#include "app/MotionWishes.h"
#include "core/Resources.h"
#include "core/RunningBundle.h"
#include "core/SystemPrefsStore.h"
#include "desktop/ColorScheme.h"
#include "desktop/OpenPlaces.h"
#include "desktop/TrayItem.h"
#include "files/HomeFolder.h"
#include "platform/SystemTrash.h"
#include "updates/LiveUpdateCheck.h"

#include <QGuiApplication>
#include <QQuickWindow>
#include <QSessionManager>

namespace zolva {

ZolvaApp::ZolvaApp(QObject* parent)
    : QObject(parent), m_prefs(systemPrefsStore()), m_appearance(systemColorScheme()),
      m_reducedMotion(systemReducedMotion()), m_model(dependencies()), m_screens(m_model, m_clock),
      m_delegate(m_clock), m_menuBar(systemTrayItem(), m_screens, m_engine, m_clock)
{
    // Not quit(), which would ask again.
    connect(&m_delegate, &AppDelegate::terminate, this, [] { QCoreApplication::exit(0); });
    connect(&m_signals, &QuitSignals::asked, &m_delegate, &AppDelegate::shouldTerminate);
    MenuPanelModel* const menu = m_screens.menu();
    connect(menu, &MenuPanelModel::mainWanted, &m_delegate, &AppDelegate::shouldHandleReopen);
    connect(menu, &MenuPanelModel::quitWanted, &m_delegate, &AppDelegate::shouldTerminate);
    followSession();
}

AppDependencies ZolvaApp::dependencies()
{
    AppDependencies all = liveDependencies(m_clock, *m_prefs);
    all.appearance = m_appearance.get();
    all.updates = {runningBundle(), liveUpdateCheck(m_clock)};
    // A door is opened by the model, so that it is there when one tells something.
    const auto tell = [this](const QString& text) {
        m_model.toasts().addToast(BannerKind::Warning, text);
    };
    all.doors = systemDoors(
        {homeTrashFolder(homeFolder()), all.logFolder, tell, toolLicense(resourceFolders())});
    return all;
}

void ZolvaApp::followSession()
{
    auto* const application = qobject_cast<QGuiApplication*>(QGuiApplication::instance());
    connect(
        application, &QGuiApplication::commitDataRequest, this,
        [this](QSessionManager& session) {
            if (!m_delegate.mayEndSession() && session.allowsInteraction()) {
                session.cancel();
            }
        },
        Qt::DirectConnection);
}

void ZolvaApp::startMenuBar(const QQuickWindow& window)
{
    connect(&m_menuBar, &MenuBarExtra::shownChanged, &m_delegate,
            [this] { m_delegate.setHasTray(m_menuBar.isShown()); });
    const auto followDesktop = [this] { m_menuBar.setOnDark(m_model.systemIsDark()); };
    connect(&m_model, &AppModel::systemIsDarkChanged, this, followDesktop);
    followDesktop();
    // The window comes first.
    connect(
        &window, &QQuickWindow::frameSwapped, this, [this] { m_menuBar.start(); },
        static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection));
}

bool ZolvaApp::showWindow()
{
    m_engine.addImportPath(QStringLiteral("qrc:/qml"));
    m_engine.setInitialProperties({{QStringLiteral("model"), QVariant::fromValue(&m_screens)}});
    m_engine.load(QUrl(QStringLiteral("qrc:/qml/Zolva/Root/MainWindow.qml")));
    const QList<QObject*> roots = m_engine.rootObjects();
    auto* const window = roots.isEmpty() ? nullptr : qobject_cast<QQuickWindow*>(roots.front());
    auto* const motion =
        m_engine.singletonInstance<Motion*>(qmlTypeId("Zolva.Kit", 1, 0, "Motion"));
    if (window == nullptr || motion == nullptr) {
        return false;
    }
    followMotion(*motion, *m_reducedMotion, *window);
    m_delegate.setWindow(window);
    // The window's own signal, for its keys and buttons.
    connect(window, SIGNAL(closeWanted()), &m_delegate, SLOT(shouldClose()));
    m_delegate.setModel(&m_screens);
    // Closed it keeps nothing of what it is drawn with.
    window->setPersistentGraphics(false);
    window->setPersistentSceneGraph(false);
    startMenuBar(*window);
    // Nothing of it may keep the window waiting.
    connect(
        window, &QQuickWindow::frameSwapped, this, [this] { m_model.checkForUpdatesIfDue(); },
        static_cast<Qt::ConnectionType>(Qt::QueuedConnection | Qt::SingleShotConnection));
    window->show();
    return true;
}

} // namespace zolva
