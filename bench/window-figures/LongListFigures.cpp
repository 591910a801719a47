#include "LongListFigures.h"

#include "FrameMeter.h"
#include "WindowStage.h"

#include <QQuickItem>

#include <chrono>
#include <cstdio>
#include <string>
#include <vector>

namespace zolva {

namespace {

using Moment = std::chrono::steady_clock::time_point;

constexpr int count = 10000;

double millisecondsSince(Moment moment)
{
    const auto time = std::chrono::steady_clock::now() - moment;
    return std::chrono::duration<double, std::milli>(time).count();
}

/// In an order that no sort leaves as it is.
std::string numbered(const char* text, int number)
{
    return text + std::to_string(number * 7919 % count);
}

std::int64_t sizeOf(int number)
{
    return std::int64_t{2 * count - number} * 1000000;
}

std::vector<Category> categories()
{
    std::vector<Category> all(count);
    for (int i = 0; i < count; ++i) {
        Category& one = all[static_cast<std::size_t>(i)];
        one.id = one.name = numbered("Category ", i);
        one.desc = "What it holds is made anew when it is needed";
        one.items = 1;
        CatPath path;
        path.p = "~/Library/Caches/" + one.id;
        path.b = sizeOf(i);
        one.paths.push_back(std::move(path));
    }
    return all;
}

std::vector<Project> projects()
{
    std::vector<Project> all(count);
    for (int i = 0; i < count; ++i) {
        Project& one = all[static_cast<std::size_t>(i)];
        one.p = numbered("~/Code/project-", i);
        one.artifact = "node_modules";
        one.b = sizeOf(i);
        one.age = i * 31 % 500;
    }
    return all;
}

std::vector<InstallerItem> installers()
{
    std::vector<InstallerItem> all(count);
    for (int i = 0; i < count; ++i) {
        InstallerItem& one = all[static_cast<std::size_t>(i)];
        one.name = numbered("Installer ", i) + ".dmg";
        one.src = "Downloads";
        one.p = "~/Downloads/" + one.name;
        one.b = sizeOf(i);
        one.age = i * 31 % 500;
    }
    return all;
}

std::vector<UninstallApp> applications()
{
    std::vector<UninstallApp> all(count);
    for (int i = 0; i < count; ++i) {
        UninstallApp& one = all[static_cast<std::size_t>(i)];
        one.name = numbered("Application ", i);
        one.bundleID = numbered("com.example.app", i);
        one.path = "/Applications/" + one.name + ".app";
        one.bundleBytes = sizeOf(i);
    }
    return all;
}

/// When the data last came.
Moment& cameAt()
{
    static Moment moment;
    return moment;
}

template <typename Rows>
QCoro::Task<Rows> given(Rows rows)
{
    cameAt() = std::chrono::steady_clock::now();
    co_return rows;
}

/// A tool that knows ten thousand applications.
class ToolWithApplications final : public MoRunner
{
public:
    [[nodiscard]] std::shared_ptr<StatusStream>
    statusStream(std::chrono::seconds /*interval*/) override
    {
        return std::make_shared<StatusStream>();
    }
    [[nodiscard]] QCoro::Task<AppList> listApps() override { co_return applications(); }
};

/// What is alike on the four screens.
struct Screen
{
    const char* name;
    std::function<void()> scan;
    SortMenu* sort;
    std::function<void()> tickAll;
};

/// From the deed to the frame that shows it.
double shownAfter(QQuickWindow& window, const std::function<void()>& deed)
{
    const Moment before = std::chrono::steady_clock::now();
    deed();
    turnUntilDrawn(window);
    return millisecondsSince(before);
}

bool measure(WindowStage& stage, const Screen& screen)
{
    QQuickWindow& window = stage.window();
    stage.model().go(screen.name);
    turnUntilDrawn(window);
    turnFor(500);
    const long before = sharedOut();
    screen.scan();
    turnUntil([&stage] { return stage.longList(count) != nullptr; });
    turnUntilDrawn(window);
    std::printf("%s: first shown after %.1f ms", screen.name, millisecondsSince(cameAt()));
    turnFor(500);
    std::printf(", by name %.1f ms", shownAfter(window, [&screen] { screen.sort->choose(1); }));
    turnFor(500);
    std::printf(", largest first %.1f ms",
                shownAfter(window, [&screen] { screen.sort->choose(0); }));
    turnFor(500);
    std::printf(", all ticked %.1f ms", shownAfter(window, screen.tickAll));
    turnFor(500);
    std::printf(", memory %+.1f MiB\n", static_cast<double>(sharedOut() - before) / 1024);
    QQuickItem* const list = stage.longList(count);
    if (list == nullptr) {
        std::fprintf(stderr, "window-figures: the list is not there\n");
        return false;
    }
    std::printf("  scrolling: ");
    FrameMeter meter(window, [list](int change) { list->setProperty("contentY", 50.0 * change); });
    meter.run(1000);
    return true;
}

} // namespace

int longListFigures()
{
    WindowStage stage([](AppDependencies& all) {
        all.scans.clean = [] { return given(categories()); };
        all.scans.purge = [] { return given(projects()); };
        all.reads.installers = [] { return given(installers()); };
        all.runner = std::make_unique<ToolWithApplications>();
        all.scans.enrich = [](std::vector<UninstallApp> apps) { return given(std::move(apps)); };
    });
    ScreenModel& model = stage.model();
    const Screen all[] = {
        {"clean", [&model] { model.clean()->scan(); }, model.clean()->sort(),
         [&model] { model.clean()->toggleAll(); }},
        {"purge", [&model] { model.purge()->scan(); }, model.purge()->sort(),
         [&model] { model.purge()->toggleAll(); }},
        {"installer", [&model] { model.installer()->scan(); }, model.installer()->sort(),
         [&model] { model.installer()->toggleAll(); }},
        {"uninstall", [&model] { model.uninstall()->scan(); }, model.uninstall()->sort(),
         [&model] { model.uninstall()->toggleAll(); }},
    };
    turnUntilDrawn(stage.window());
    turnFor(1000);
    for (const Screen& screen : all) {
        if (!measure(stage, screen)) {
            return 1;
        }
    }
    return 0;
}

} // namespace zolva
