// What the window costs, one figure a line:
//
//   window-figures first-frame           from BENCH_BEGAN (nanoseconds of the clock) on
//   window-figures memory                at rest, and after going about and scanning
//   window-figures scan-gap              the event loop while everything is scanned
//   window-figures idle SECONDS STATE    STATE is visible, status (that screen, with a reading each
//                                        second), minimised or hidden
//   window-figures scroll                through ten thousand rows
//
// In the home, and on the display and the bus, of the environment.

#include "app/ZolvaApp.h"
#include "core/SystemPrefsStore.h"
#include "desktop/SingleInstance.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QGuiApplication>
#include <QQuickItem>
#include <QQuickWindow>
#include <QTimer>

#include <sys/resource.h>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <fstream>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace zolva {

namespace {

using Milliseconds = std::chrono::duration<double, std::milli>;

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

ScreenModel& modelOf(const QQuickWindow& window)
{
    auto* const model = window.property("model").value<ScreenModel*>();
    if (model == nullptr) {
        std::fprintf(stderr, "window-figures: the window has no model\n");
        std::exit(1);
    }
    return *model;
}

void turnUntilDrawn(QQuickWindow& window)
{
    QEventLoop loop;
    QObject::connect(&window, &QQuickWindow::frameSwapped, &loop, &QEventLoop::quit);
    window.update();
    loop.exec();
}

/// Kilobytes of memory that are this process's share.
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

void scanAll(ScreenModel& model)
{
    model.home()->scanAll();
    turnUntil([&model] { return !model.home()->counting(); });
}

int firstFrame()
{
    const char* const began = std::getenv("BENCH_BEGAN");
    if (began == nullptr) {
        return 2;
    }
    const std::chrono::nanoseconds from(std::strtoll(began, nullptr, 10));
    const auto place = systemSingleInstance();
    (void)place->claim({});
    ZolvaApp zolva;
    if (!zolva.showWindow()) {
        return 1;
    }
    QObject::connect(
        &shownWindow(), &QQuickWindow::frameSwapped, &zolva,
        [from] {
            const auto now = std::chrono::system_clock::now().time_since_epoch();
            std::printf("%.1f\n", Milliseconds(now - from).count());
            std::fflush(stdout);
            std::_Exit(0);
        },
        Qt::DirectConnection);
    return QGuiApplication::exec();
}

int memory()
{
    ZolvaApp zolva;
    if (!zolva.showWindow()) {
        return 1;
    }
    QQuickWindow& window = shownWindow();
    ScreenModel& model = modelOf(window);
    turnUntilDrawn(window);
    turnFor(2000);
    const long start = sharedOut();
    const QStringList screens = {"clean",   "purge",  "installer", "uninstall",
                                 "analyze", "status", "settings",  "home"};
    for (int i = 0; i < 100; ++i) {
        model.go(screens[i % screens.size()]);
        turnUntilDrawn(window);
    }
    turnFor(1000);
    const long gone = sharedOut();
    scanAll(model);
    turnFor(1000);
    const long once = sharedOut();
    for (int i = 0; i < 19; ++i) {
        scanAll(model);
    }
    turnFor(1000);
    std::printf(
        "at rest %.1f MiB, after 100 screens %+.1f, after a scan %+.1f, after 19 more %+.1f\n",
        static_cast<double>(start) / 1024, static_cast<double>(gone - start) / 1024,
        static_cast<double>(once - gone) / 1024, static_cast<double>(sharedOut() - once) / 1024);
    return 0;
}

int scanGap()
{
    ZolvaApp zolva;
    if (!zolva.showWindow()) {
        return 1;
    }
    QQuickWindow& window = shownWindow();
    turnUntilDrawn(window);
    turnFor(1000);
    QTimer timer;
    timer.setTimerType(Qt::PreciseTimer);
    timer.setInterval(1);
    QElapsedTimer lap;
    qint64 longest = 0;
    lap.start();
    QObject::connect(&timer, &QTimer::timeout,
                     [&] { longest = std::max(longest, lap.nsecsElapsed()), lap.start(); });
    timer.start();
    QElapsedTimer whole;
    whole.start();
    scanAll(modelOf(window));
    std::printf("scanned in %lld ms, longest gap %.1f ms\n",
                static_cast<long long>(whole.elapsed()), static_cast<double>(longest) / 1e6);
    return 0;
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

int idle(int seconds, std::string_view state)
{
    ZolvaApp zolva;
    if (!zolva.showWindow()) {
        return 1;
    }
    QQuickWindow& window = shownWindow();
    turnUntilDrawn(window);
    turnFor(1000);
    if (state == "minimised") {
        window.showMinimized();
    } else if (state == "hidden") {
        window.hide();
    } else if (state == "status") {
        StatusModel& status = *modelOf(window).status();
        // No warning comes in between, whatever else the machine does.
        modelOf(window).settings()->setThreshold(100);
        modelOf(window).go("status");
        turnUntil([&status] { return status.page() == StatusModel::Live; });
    }
    turnFor(2000);
    const bool active = window.isActive();
    const double before = secondsOfWork();
    int frames = 0;
    QObject::connect(&window, &QQuickWindow::frameSwapped, &window, [&frames] { ++frames; });
    turnFor(seconds * 1000);
    const double spent = secondsOfWork() - before;
    std::printf("%.*s (%s): %.2f %% of a core over %d s, %d frames\n",
                static_cast<int>(state.size()), state.data(), active ? "active" : "inactive",
                100 * spent / seconds, seconds, frames);
    return 0;
}

std::vector<Category> manyCategories()
{
    std::vector<Category> all(10000);
    for (std::size_t i = 0; i < all.size(); ++i) {
        Category& one = all[i];
        one.id = one.name = "Category " + std::to_string(i);
        one.desc = "What it holds is made anew when it is needed";
        one.items = 1;
        CatPath path;
        path.p = "~/Library/Caches/" + one.id;
        path.b = static_cast<std::int64_t>(20000 - i) * 1000000;
        one.paths.push_back(std::move(path));
    }
    return all;
}

QQuickItem* longList(QQuickItem& item)
{
    if (item.inherits("QQuickListView") && item.property("count").toInt() >= 10000) {
        return &item;
    }
    const auto children = item.childItems();
    for (QQuickItem* const child : children) {
        if (QQuickItem* const found = longList(*child)) {
            return found;
        }
    }
    return nullptr;
}

int scroll()
{
    SystemClock clock;
    const auto prefs = systemPrefsStore();
    AppDependencies all = liveDependencies(clock, *prefs);
    all.scans.clean = []() -> QCoro::Task<std::vector<Category>> { co_return manyCategories(); };
    AppModel app(std::move(all));
    ScreenModel model(app, clock);
    QQmlApplicationEngine engine;
    engine.addImportPath(QStringLiteral("qrc:/qml"));
    engine.setInitialProperties({{QStringLiteral("model"), QVariant::fromValue(&model)}});
    engine.load(QUrl(QStringLiteral("qrc:/qml/Zolva/Root/MainWindow.qml")));
    QQuickWindow& window = shownWindow();
    window.show();
    model.go("clean");
    turnUntilDrawn(window);
    model.clean()->scan();
    turnUntil([&model] { return model.clean()->page() == CleanModel::List; });
    turnFor(1000);
    QQuickItem* const list = longList(*window.contentItem());
    if (list == nullptr) {
        std::fprintf(stderr, "window-figures: the list is not there\n");
        return 1;
    }
    std::vector<double> frames;
    for (int i = 0; i < 1000; ++i) {
        QElapsedTimer time;
        time.start();
        list->setProperty("contentY", 50.0 * (i + 1));
        turnUntilDrawn(window);
        frames.push_back(static_cast<double>(time.nsecsElapsed()) / 1e6);
    }
    std::sort(frames.begin(), frames.end());
    std::printf("p50 %.1f ms, p99 %.1f ms, slowest %.1f ms of %zu frames\n",
                frames[frames.size() / 2], frames[frames.size() * 99 / 100], frames.back(),
                frames.size());
    return 0;
}

int measure(const std::vector<std::string_view>& words)
{
    if (words.size() == 3 && words[0] == "idle") {
        return idle(std::atoi(words[1].data()), words[2]);
    }
    const std::string_view what = words.size() == 1 ? words[0] : "";
    return what == "first-frame" ? firstFrame()
           : what == "memory"    ? memory()
           : what == "scan-gap"  ? scanGap()
           : what == "scroll"    ? scroll()
                                 : 2;
}

} // namespace

} // namespace zolva

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    const int code = zolva::measure({argv + 1, argv + argc});
    // As the program ends: what still runs is dropped.
    std::fflush(stdout);
    std::_Exit(code);
}
