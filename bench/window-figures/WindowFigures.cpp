// What the window costs, one figure a line:
//
//   window-figures first-frame           from BENCH_BEGAN (nanoseconds of the clock) on
//   window-figures memory                at rest, and after going about and scanning
//   window-figures scan-gap              the event loop while everything is scanned
//   window-figures analyze-gap           the event loop with a hundred thousand entries
//   window-figures idle SECONDS STATE    STATE is visible, status (that screen, with a reading each
//                                        second), minimised, hidden, or closed on that screen with
//                                        the item of the tray left
//   window-figures lists                 with ten thousand rows each
//   window-figures panel                 from a click on the tray's item to the panel
//
// In the home, and on the display and the bus, of the environment.

#include "LongListFigures.h"
#include "PanelFigures.h"
#include "WindowStage.h"
#include "app/DrawingChoice.h"
#include "app/ZolvaApp.h"
#include "async/Background.h"
#include "desktop/SingleInstance.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QGuiApplication>
#include <QQuickWindow>
#include <QTimer>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <cstdlib>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace zolva {

namespace {

using Milliseconds = std::chrono::duration<double, std::milli>;

ScreenModel& modelOf(const QQuickWindow& window)
{
    auto* const model = window.property("model").value<ScreenModel*>();
    if (model == nullptr) {
        std::fprintf(stderr, "window-figures: the window has no model\n");
        std::exit(1);
    }
    return *model;
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
    const long rest = sharedOut();
    const QStringList screens = {"clean",   "purge",  "installer", "uninstall",
                                 "analyze", "status", "settings",  "home"};
    const auto goThrough = [&](int times) {
        for (int i = 0; i < times; ++i) {
            model.go(screens[i % screens.size()]);
            turnUntilDrawn(window);
        }
        turnFor(1000);
    };
    const auto scan = [&model](int times) {
        for (int i = 0; i < times; ++i) {
            scanAll(model);
        }
        turnFor(1000);
    };
    // Every screen and every list once.
    goThrough(static_cast<int>(screens.size()));
    scan(1);
    goThrough(static_cast<int>(screens.size()));
    const long warm = sharedOut();
    goThrough(100);
    const long gone = sharedOut();
    scan(20);
    std::printf(
        "at rest %.1f MiB, with every screen seen and one scan %+.1f, after 100 screens more "
        "%+.1f, after 20 scans more %+.1f\n",
        static_cast<double>(rest) / 1024, static_cast<double>(warm - rest) / 1024,
        static_cast<double>(gone - warm) / 1024, static_cast<double>(sharedOut() - gone) / 1024);
    return 0;
}

/// The longest time that the event loop was kept by one thing.
class Gap
{
public:
    Gap()
    {
        m_timer.setTimerType(Qt::PreciseTimer);
        m_timer.setInterval(1);
        QObject::connect(&m_timer, &QTimer::timeout, &m_timer, [this] { note(); });
        m_lap.start();
        m_timer.start();
    }

    [[nodiscard]] double longest()
    {
        note();
        return static_cast<double>(m_longest) / 1e6;
    }

private:
    void note()
    {
        m_longest = std::max(m_longest, m_lap.nsecsElapsed());
        m_lap.start();
    }

    QTimer m_timer;
    QElapsedTimer m_lap;
    qint64 m_longest = 0; ///< nanoseconds
};

int scanGap()
{
    ZolvaApp zolva;
    if (!zolva.showWindow()) {
        return 1;
    }
    QQuickWindow& window = shownWindow();
    turnUntilDrawn(window);
    turnFor(1000);
    Gap gap;
    QElapsedTimer whole;
    whole.start();
    scanAll(modelOf(window));
    std::printf("scanned in %lld ms, longest gap %.1f ms\n",
                static_cast<long long>(whole.elapsed()), gap.longest());
    return 0;
}

/// A place with a hundred thousand folders.
Analysis manyEntries(const std::string& path)
{
    AnalyzeResult all;
    all.path = path;
    for (int i = 0; i < 100000; ++i) {
        const std::string name =
            "a folder of some name, number " + std::to_string(i * 7919 % 100000);
        all.entries.push_back({name, path + "/" + name, 200000 - i, true, std::nullopt});
        all.totalSize += all.entries.back().size;
    }
    return {std::move(all)};
}

int analyzeGap()
{
    WindowStage stage([](AppDependencies& all) {
        all.scans.analyze = [](const std::string& path) { return background(manyEntries, path); };
    });
    QQuickWindow& window = stage.window();
    ScreenModel& model = stage.model();
    model.go("analyze");
    turnUntilDrawn(window);
    turnFor(1000);
    AnalyzeModel& analyze = *model.analyze();
    const auto measured = [&analyze](const char* what, const auto& deed) {
        Gap gap;
        deed();
        turnUntil([&analyze] { return analyze.page() == AnalyzeModel::Loaded; });
        turnFor(1000);
        std::printf("%s %.1f ms", what, gap.longest());
    };
    measured("longest gap of the first place", [&analyze] { analyze.scan(); });
    measured(", by name", [&analyze] { analyze.sort()->choose(2); });
    measured(", smallest first", [&analyze] { analyze.sort()->choose(1); });
    measured(", of the next place", [&analyze] { analyze.open(50000); });
    measured(", and of the way back", [&analyze] { analyze.goUp(); });
    std::printf("\n");
    return 0;
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

int measure(const std::vector<std::string_view>& words)
{
    if (words.size() == 3 && words[0] == "idle" && words[2] == "closed") {
        return closedFigures(std::atoi(words[1].data()));
    }
    if (words.size() == 3 && words[0] == "idle") {
        return idle(std::atoi(words[1].data()), words[2]);
    }
    const std::string_view what = words.size() == 1 ? words[0] : "";
    return what == "first-frame"   ? firstFrame()
           : what == "memory"      ? memory()
           : what == "scan-gap"    ? scanGap()
           : what == "lists"       ? longListFigures()
           : what == "analyze-gap" ? analyzeGap()
           : what == "panel"       ? panelFigures()
                                   : 2;
}

} // namespace

} // namespace zolva

int main(int argc, char** argv)
{
    const QGuiApplication application(argc, argv);
    QGuiApplication::setQuitOnLastWindowClosed(false);
    zolva::chooseDrawing();
    const int code = zolva::measure({argv + 1, argv + argc});
    // As the program ends: what still runs is dropped.
    std::fflush(stdout);
    std::_Exit(code);
}
