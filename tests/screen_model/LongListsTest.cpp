#include "ScreenBench.h"

#include "screens/model/InstallerModel.h"
#include "screens/model/PurgeModel.h"

#include <ctime>
#include <functional>

namespace zolva::test {

namespace {

/// Lists far longer than a screen's. The limits are wide: they are for what grows with the square
/// of the rows, on a machine that has other things to do, and for builds that watch every step.
class LongLists : public ScreenBench
{
protected:
    static constexpr int count = 10'000;
    static constexpr int limitMs = 1'000;

    /// Of this process's own work, whatever else the machine does.
    static int milliseconds(const char* what, const std::function<void()>& deed)
    {
        const std::clock_t start = std::clock();
        deed();
        const auto ms = static_cast<int>((std::clock() - start) * 1000 / CLOCKS_PER_SEC);
        RecordProperty(what, ms);
        return ms;
    }
    static std::vector<Project> projects()
    {
        std::vector<Project> all;
        for (int number = 0; number < count; ++number) {
            Project one;
            one.p = "~/Code/project-" + std::to_string((number * 7919) % count);
            one.artifact = "node_modules";
            one.b = number + 1;
            one.age = (number * 31) % 500;
            all.push_back(one);
        }
        return all;
    }
    static std::vector<InstallerItem> files()
    {
        std::vector<InstallerItem> all;
        for (int number = 0; number < count; ++number) {
            InstallerItem one;
            one.name = "file-" + std::to_string((number * 7919) % count) + ".dmg";
            one.p = "~/Downloads/" + one.name;
            one.b = number + 1;
            all.push_back(one);
        }
        return all;
    }
};

TEST_F(LongLists, OfProjectsAreShownSortedAndTickedWithoutWaiting)
{
    AppModel& m = ready();
    for (int entry = 0; entry < 20; ++entry) {
        exclude(m, "~/Code/project-" + std::to_string(entry));
    }
    PurgeModel purge(m);
    EXPECT_LT(milliseconds("shown", [&] { purged(m, projects()); }), limitMs);
    EXPECT_EQ(purge.rows()->rowCount(), count);
    EXPECT_LT(milliseconds("byName", [&] { purge.sort()->choose(2); }), limitMs);
    EXPECT_LT(milliseconds("byAge", [&] { purge.sort()->choose(1); }), limitMs);
    EXPECT_LT(milliseconds("bySize", [&] { purge.sort()->choose(0); }), limitMs);
    EXPECT_LT(milliseconds("all", [&] { purge.toggleAll(); }), limitMs);
    EXPECT_EQ(purge.countText(), "9980 projects selected");
    EXPECT_LT(milliseconds("none", [&] { purge.toggleAll(); }), limitMs);
    EXPECT_LT(milliseconds("one", [&] { purge.pick("~/Code/project-77/node_modules", false); }),
              limitMs);
    EXPECT_LT(milliseconds("range", [&] { purge.pick("~/Code/project-99/node_modules", true); }),
              limitMs);
    EXPECT_LT(milliseconds("excluded", [&] { exclude(m, "~/Code/project-99"); }), limitMs);
}

TEST_F(LongLists, OfInstallersLoseARowAndManyWithoutWaiting)
{
    AppModel& m = ready();
    InstallerModel screen(m);
    EXPECT_LT(milliseconds("shown", [&] { installed(m, files()); }), limitMs);
    EXPECT_LT(milliseconds("all", [&] { screen.toggleAll(); }), limitMs);
    EXPECT_LT(milliseconds("byName", [&] { screen.sort()->choose(2); }), limitMs);
    ToldRows told(screen.rows());
    const std::vector<std::string> order = screen.rows()->order();
    EXPECT_LT(milliseconds("one", [&] { m.lists().dropInstallers({order[5000]}); }), limitMs);
    EXPECT_EQ(told.told.front(), "gone 5000");
    std::vector<std::string> half;
    for (std::size_t row = 0; row < order.size(); row += 2) {
        half.push_back(order[row]);
    }
    EXPECT_LT(milliseconds("half", [&] { m.lists().dropInstallers(half); }), limitMs);
    EXPECT_EQ(screen.rows()->rowCount(), count / 2);
}

} // namespace

} // namespace zolva::test
