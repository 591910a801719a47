#include "WindowStage.h"

#include "app/MotionWishes.h"
#include "core/SystemPrefsStore.h"

#include <QEventLoop>
#include <QGuiApplication>
#include <QQuickItem>
#include <QTimer>

#include <sys/resource.h>

#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <string>

namespace zolva {

/// In a loop of its own: what is to be deleted later goes only there.
void turnUntil(const std::function<bool()>& holds)
{
    QEventLoop loop;
    QTimer look;
    look.setInterval(1);
    QObject::connect(&look, &QTimer::timeout, &loop, [&loop, &holds] {
        if (holds()) {
            loop.quit();
        }
    });
    look.start();
    loop.exec();
}

void turnFor(int ms)
{
    QEventLoop loop;
    QTimer::singleShot(ms, &loop, &QEventLoop::quit);
    loop.exec();
}

QQuickWindow& shownWindow()
{
    const auto windows = QGuiApplication::topLevelWindows();
    for (QWindow* const window : windows) {
        if (auto* const found = qobject_cast<QQuickWindow*>(window)) {
            return *found;
        }
    }
    std::fprintf(stderr, "window-figures: there is no window\n");
    std::exit(1);
}

void turnUntilDrawn(QQuickWindow& window)
{
    QEventLoop loop;
    QObject::connect(&window, &QQuickWindow::frameSwapped, &loop, &QEventLoop::quit);
    window.update();
    loop.exec();
}

double secondsOfWork()
{
    rusage used{};
    ::getrusage(RUSAGE_SELF, &used);
    const auto seconds = [](const timeval& time) {
        return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_usec) / 1e6;
    };
    return seconds(used.ru_utime) + seconds(used.ru_stime);
}

long sharedOut()
{
    std::ifstream rollup("/proc/self/smaps_rollup");
    for (std::string line; std::getline(rollup, line);) {
        if (line.starts_with("Pss:")) {
            return std::strtol(line.c_str() + 4, nullptr, 10);
        }
    }
    return -1;
}

namespace {

QQuickItem* listBelow(QQuickItem& item, int rows)
{
    if (item.inherits("QQuickListView") && item.property("count").toInt() >= rows) {
        return &item;
    }
    const auto children = item.childItems();
    for (QQuickItem* const child : children) {
        if (QQuickItem* const found = listBelow(*child, rows)) {
            return found;
        }
    }
    return nullptr;
}

} // namespace

WindowStage::WindowStage(const std::function<void(AppDependencies&)>& change)
    : m_prefs(systemPrefsStore())
{
    AppDependencies all = liveDependencies(m_clock, *m_prefs);
    change(all);
    m_app = std::make_unique<AppModel>(std::move(all));
    m_model = std::make_unique<ScreenModel>(*m_app, m_clock);
    m_engine.addImportPath(QStringLiteral("qrc:/qml"));
    m_engine.setInitialProperties({{QStringLiteral("model"), QVariant::fromValue(m_model.get())}});
    m_engine.load(QUrl(QStringLiteral("qrc:/qml/Zolva/Root/MainWindow.qml")));
    m_window = &shownWindow();
    m_wish = systemReducedMotion();
    followMotion(*m_engine.singletonInstance<Motion*>(qmlTypeId("Zolva.Kit", 1, 0, "Motion")),
                 *m_wish, *m_window);
    m_window->show();
}

WindowStage::~WindowStage() = default;

QQuickItem* WindowStage::longList(int rows) const
{
    return listBelow(*m_window->contentItem(), rows);
}

} // namespace zolva
