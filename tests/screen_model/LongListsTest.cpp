#include "ScreenBench.h"

#include "screens/model/InstallerModel.h"
#include "screens/model/PurgeModel.h"

#include <string>
#include <vector>

namespace zolva::test {

namespace {

/// Lists far longer than a screen's.
class LongLists : public ScreenBench
{
protected:
    static constexpr int count = 10'000;

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

TEST_F(LongLists, OfProjectsAreSortedAndTickedWhole)
{
    AppModel& m = ready();
    for (int entry = 0; entry < 20; ++entry) {
        exclude(m, "~/Code/project-" + std::to_string(entry));
    }
    PurgeModel purge(m);
    purged(m, projects());
    EXPECT_EQ(purge.rows()->rowCount(), count);
    purge.sort()->choose(2);
    EXPECT_EQ(purge.rows()->order().front(), "~/Code/project-0/node_modules");
    purge.sort()->choose(0);
    EXPECT_EQ(purge.rows()->order().back(), "~/Code/project-0/node_modules");
    purge.toggleAll();
    EXPECT_EQ(purge.countText(), "9980 projects selected");
    purge.toggleAll();
    EXPECT_EQ(purge.countText(), QString());
}

TEST_F(LongLists, OfInstallersLoseARowAndManyByThemselves)
{
    AppModel& m = ready();
    InstallerModel screen(m);
    installed(m, files());
    ToldRows told(screen.rows());
    const std::vector<std::string> order = screen.rows()->order();
    m.lists().dropInstallers({order[5000]});
    EXPECT_EQ(told.told.front(), "gone 5000");
    std::vector<std::string> half;
    for (std::size_t row = 0; row < order.size(); row += 2) {
        half.push_back(order[row]);
    }
    m.lists().dropInstallers(half);
    EXPECT_EQ(screen.rows()->rowCount(), count / 2);
}

} // namespace

} // namespace zolva::test
