#include "PanelFigures.h"

#include "WindowStage.h"
#include "app/MenuBarExtra.h"

#include <QGuiApplication>

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <string>
#include <vector>

namespace zolva {

namespace {

/// In sight from the start, and clicked by the meter.
class ClickedItem final : public TrayItem
{
public:
    void start() override { Q_EMIT shownChanged(); }
    [[nodiscard]] bool isShown() const override { return true; }
    void setTexts(const QString& /*label*/, const QString& /*toolTip*/) override {}
    void setEntries(std::vector<TrayEntry> /*entries*/) override {}
    void setOnDark(bool /*isDark*/) override {}

    void click() { Q_EMIT activated(QRect(1300, 0, 24, 24)); }
};

QQuickWindow* panelBeside(const QQuickWindow& main)
{
    const auto windows = QGuiApplication::topLevelWindows();
    for (QWindow* const window : windows) {
        auto* const found = qobject_cast<QQuickWindow*>(window);
        if (found != nullptr && found != &main) {
            return found;
        }
    }
    return nullptr;
}

double openingOf(ClickedItem& item, QQuickWindow& panel)
{
    const auto before = std::chrono::steady_clock::now();
    item.click();
    turnUntilDrawn(panel);
    const std::chrono::duration<double, std::milli> time =
        std::chrono::steady_clock::now() - before;
    return time.count();
}

/// Processes that this one has started and that are not collected.
std::string children()
{
    std::string all;
    for (const auto& task : std::filesystem::directory_iterator("/proc/self/task")) {
        std::ifstream list(task.path() / "children");
        for (std::string child; list >> child;) {
            all += ' ' + child;
        }
    }
    return all;
}

} // namespace

int panelFigures()
{
    WindowStage stage([](AppDependencies& /*all*/) {});
    turnUntilDrawn(stage.window());
    auto owned = std::make_unique<ClickedItem>();
    ClickedItem& item = *owned;
    MenuBarExtra extra(std::move(owned), stage.model(), stage.engine(), stage.clock());
    extra.start();
    turnUntil([&stage] { return panelBeside(stage.window()) != nullptr; });
    turnFor(1000);
    stage.window().hide();
    QQuickWindow& panel = *panelBeside(stage.window());
    const double first = openingOf(item, panel);
    std::vector<double> later;
    while (later.size() < 20) {
        turnFor(1000);
        item.click();
        turnFor(1000);
        later.push_back(openingOf(item, panel));
    }
    std::sort(later.begin(), later.end());
    std::printf("first opening %.1f ms, median of %zu more %.1f ms, slowest %.1f ms\n", first,
                later.size(), later[later.size() / 2], later.back());
    return 0;
}

int closedFigures(int seconds)
{
    WindowStage stage([](AppDependencies& /*all*/) {});
    turnUntilDrawn(stage.window());
    MenuBarExtra extra(std::make_unique<ClickedItem>(), stage.model(), stage.engine(),
                       stage.clock());
    extra.start();
    stage.model().go(QStringLiteral("status"));
    StatusModel& status = *stage.model().status();
    turnUntil([&status] { return status.page() == StatusModel::Live; });
    const std::string before = children();
    stage.window().hide(); // which is what the program does with it then
    turnFor(5000);
    const double used = secondsOfWork();
    turnFor(seconds * 1000);
    std::printf("closed: %.2f %% of a core over %d s; children with the window:%s, without it:%s\n",
                100 * (secondsOfWork() - used) / seconds, seconds, before.c_str(),
                children().c_str());
    return 0;
}

} // namespace zolva
