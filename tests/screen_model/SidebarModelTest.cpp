#include "ScreenBench.h"

#include "screens/model/SidebarModel.h"

namespace zolva::test {

namespace {

class TheSidebar : public ScreenBench
{
protected:
    static std::string chip(const SidebarModel& sidebar, const std::string& id)
    {
        for (int row = 0; row < sidebar.rowCount(); ++row) {
            if (textAt(sidebar, row, SidebarModel::ItemIdRole) == id) {
                return textAt(sidebar, row, SidebarModel::ChipRole);
            }
        }
        return "no such row";
    }
    static int active(const SidebarModel& sidebar)
    {
        int count = 0;
        for (int row = 0; row < sidebar.rowCount(); ++row) {
            count += flagAt(sidebar, row, SidebarModel::ActiveRole) ? 1 : 0;
        }
        return count;
    }
};

TEST_F(TheSidebar, HasEightRowsInThreeGroups)
{
    const SidebarModel sidebar(ready());
    EXPECT_EQ(column(sidebar, SidebarModel::ItemIdRole),
              (Texts{"home", "clean", "purge", "installer", "uninstall", "analyze", "status",
                     "settings"}));
    EXPECT_EQ(column(sidebar, SidebarModel::LabelRole),
              (Texts{"Home", "Clean", "Purge", "Installers", "Uninstall", "Analyze", "Status",
                     "Settings"}));
    EXPECT_EQ(column(sidebar, SidebarModel::SymbolRole),
              (Texts{"house", "sparkles", "folder.badge.minus", "square.and.arrow.down", "trash",
                     "chart.pie", "gauge.with.needle", "slider.horizontal.3"}));
    EXPECT_EQ(column(sidebar, SidebarModel::HeadRole),
              (Texts{"RECLAIM", "", "", "", "INSPECT", "", "SYSTEM", ""}));
}

TEST_F(TheSidebar, ShowsNoChipBeforeAnyScanAndNeverTheSamples)
{
    const SidebarModel sidebar(ready());
    EXPECT_EQ(column(sidebar, SidebarModel::ChipRole), (Texts(8)));
}

TEST_F(TheSidebar, ShowsACleanChipOfZeroBytes)
{
    AppModel& m = ready();
    const SidebarModel sidebar(m);
    scanned(m, {});
    EXPECT_EQ(chip(sidebar, "clean"), "0 bytes");
}

TEST_F(TheSidebar, HidesAnInstallerChipOfZeroBytes)
{
    AppModel& m = ready();
    const SidebarModel sidebar(m);
    installed(m, {image("/i", 0)});
    EXPECT_EQ(chip(sidebar, "installer"), "");
    installed(m, {image("/i", 1), image("/j", 998)});
    EXPECT_EQ(chip(sidebar, "installer"), "999 bytes");
}

TEST_F(TheSidebar, CountsWhatIsNeitherProtectedNorExcluded)
{
    AppModel& m = ready();
    const SidebarModel sidebar(m);
    scanned(m, {cache("a", {path("/c/a", 1), path("/c/b", 2), path("/c/p", 4, true)})});
    purged(m, {built("/p/a", 10), built("/p/b", 20)});
    EXPECT_EQ(chip(sidebar, "clean"), "3 bytes");
    EXPECT_EQ(chip(sidebar, "purge"), "30 bytes");
    exclude(m, "/c/b");
    exclude(m, "/p/a");
    EXPECT_EQ(chip(sidebar, "clean"), "1 bytes");
    EXPECT_EQ(chip(sidebar, "purge"), "20 bytes");
}

TEST_F(TheSidebar, TakesTheChipAwayWhileItScansAgain)
{
    AppModel& m = ready();
    const SidebarModel sidebar(m);
    scanned(m, {cache("a", paths(1))});
    purged(m, {built("/p", 10)});
    unawaited(m.scanClean(true));
    unawaited(m.scanPurge(true));
    EXPECT_EQ(chip(sidebar, "clean"), "");
    EXPECT_EQ(chip(sidebar, "purge"), "");
}

TEST_F(TheSidebar, KeepsTheInstallerChipWhileItScansAgain)
{
    AppModel& m = ready();
    const SidebarModel sidebar(m);
    installed(m, {image("/i", 5)});
    m.scanInstallers();
    EXPECT_EQ(chip(sidebar, "installer"), "5 bytes");
}

TEST_F(TheSidebar, MarksTheRowOfTheScreenAndTellsOnlyTheTwoThatChanged)
{
    AppModel& m = ready();
    SidebarModel sidebar(m);
    ToldRows rows(&sidebar);
    EXPECT_TRUE(flagAt(sidebar, 0, SidebarModel::ActiveRole));
    m.go("analyze");
    EXPECT_TRUE(flagAt(sidebar, 5, SidebarModel::ActiveRole));
    EXPECT_EQ(active(sidebar), 1);
    EXPECT_EQ(rows.told, (Texts{"0", "5"}));
    EXPECT_EQ(rows.roles, QList<int>{SidebarModel::ActiveRole});
}

TEST_F(TheSidebar, HasNoActiveRowForAnUnknownScreen)
{
    AppModel& m = ready();
    SidebarModel sidebar(m);
    ToldRows rows(&sidebar);
    m.go("nowhere");
    EXPECT_EQ(active(sidebar), 0);
    m.go("home");
    EXPECT_EQ(active(sidebar), 1);
    EXPECT_EQ(rows.told, (Texts{"0", "0"}));
}

TEST_F(TheSidebar, TellsOneRowForAChip)
{
    AppModel& m = ready();
    SidebarModel sidebar(m);
    ToldRows rows(&sidebar);
    scanned(m, {cache("a", paths(1))});
    EXPECT_EQ(rows.told, (Texts{"1"}));
    EXPECT_EQ(rows.roles, QList<int>{SidebarModel::ChipRole});
}

TEST_F(TheSidebar, OffersToEmptyTheTrashOnlyWhileItHoldsSomething)
{
    AppModel& m = ready();
    SidebarModel sidebar(m);
    const Told told(&sidebar, &SidebarModel::trashChanged);
    EXPECT_FALSE(sidebar.hasTrash());
    trashed(m, 0, 5'000'000);
    EXPECT_FALSE(sidebar.hasTrash());
    sidebar.askEmptyTrash();
    EXPECT_EQ(m.sheet(), std::nullopt);
    trashed(m, 1, 5'000'000);
    EXPECT_TRUE(sidebar.hasTrash());
    EXPECT_EQ(sidebar.trashText(), "5.0 MB");
    EXPECT_GT(told.count(), 0);
    sidebar.askEmptyTrash();
    EXPECT_EQ(m.sheet(), "emptytrash");
}

TEST_F(TheSidebar, TellsTheVersionOfTheProgram)
{
    const SidebarModel sidebar(ready());
    EXPECT_EQ(sidebar.versionLine(), "Zolva " ZOLVA_VERSION);
}

TEST_F(TheSidebar, TellsThatNoToolWasFound)
{
    AppDependencies all = dependencies();
    all.mo = {"/nowhere/mole", MoLocation::Kind::Absent};
    AppModel m(std::move(all));
    EXPECT_EQ(SidebarModel(m).toolLine(), "mo — · Not found");
}

TEST_F(TheSidebar, TellsTheToolsVersionAndWhereItComesFrom)
{
    tree.text("mole/VERSION", "1.2.3\n");
    AppDependencies all = dependencies();
    all.mo = {tree.text("mole/bin/mole", ""), MoLocation::Kind::Shipped};
    AppModel m(std::move(all));
    EXPECT_EQ(SidebarModel(m).toolLine(), "mo 1.2.3 · Bundled");
}

TEST_F(TheSidebar, NamesTheSourceOfAnInstalledToolWithoutAVersion)
{
    AppDependencies all = dependencies();
    all.mo = {tree.text("bin/mo", ""), MoLocation::Kind::Installed};
    AppModel m(std::move(all));
    EXPECT_EQ(SidebarModel(m).toolLine(), "mo — · Homebrew");
}

} // namespace

} // namespace zolva::test
