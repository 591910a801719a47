#include "ScreenBench.h"

#include "screens/model/HomeModel.h"

namespace zolva::test {

namespace {

constexpr auto countingText = "Counting what you\ncan reclaim…";

class TheHomeScreen : public ScreenBench
{
protected:
    static Texts card(const HomeModel& page, int row)
    {
        return {textAt(page, row, HomeModel::NameRole), textAt(page, row, HomeModel::SubRole),
                textAt(page, row, HomeModel::SizeRole),
                flagAt(page, row, HomeModel::MutedRole) ? "muted" : "plain"};
    }
    static std::string sub(const HomeModel& page, int row)
    {
        return textAt(page, row, HomeModel::SubRole);
    }
};

TEST_F(TheHomeScreen, WelcomesUntilACleanScanHasBegun)
{
    AppModel& m = ready();
    HomeModel page(m);
    const Told told(&page, &HomeModel::changed);
    EXPECT_TRUE(page.isWelcome());
    purged(m, {});
    installed(m, {});
    EXPECT_TRUE(page.isWelcome());
    unawaited(m.scanClean(true));
    EXPECT_FALSE(page.isWelcome());
    EXPECT_GT(told.count(), 0);
}

TEST_F(TheHomeScreen, CardsBeforeAnyScanSayWhatTheyAreAbout)
{
    const HomeModel page(ready());
    EXPECT_EQ(card(page, 0), (Texts{"Clean", "Rebuildable caches and logs", "Scanning…", "muted"}));
    EXPECT_EQ(card(page, 1), (Texts{"Purge", "Project build artifacts", "Scanning…", "muted"}));
    EXPECT_EQ(card(page, 2), (Texts{"Installers", "0 disk image or packages", "0 bytes", "plain"}));
    EXPECT_EQ(card(page, 3), (Texts{"Uninstall", "Installed applications", "—", "muted"}));
}

TEST_F(TheHomeScreen, CardsLeadToTheirScreensWithTheSymbolsOfTheSidebar)
{
    const HomeModel page(ready());
    EXPECT_EQ(column(page, HomeModel::GoRole), (Texts{"clean", "purge", "installer", "uninstall"}));
    EXPECT_EQ(column(page, HomeModel::SymbolRole),
              (Texts{"sparkles", "folder.badge.minus", "square.and.arrow.down", "trash"}));
}

TEST_F(TheHomeScreen, CardsOfFinishedScansCountAndSumUp)
{
    AppModel& m = ready();
    HomeModel page(m);
    scanned(m, {cache("a", {path("/c/a", 1'000'000), path("/c/p", 7, true)}),
                cache("b", {path("/c/b", 2'000'000)})});
    purged(m, {built("/p/a", 1000), built("/p/b", 2000)});
    installed(m, {image("/i", 3000), image("/j", 1000)});
    m.live().storeApps({app("One"), app("Two")});
    EXPECT_EQ(card(page, 0),
              (Texts{"Clean", "2 categories of rebuildable files", "3.0 MB", "plain"}));
    EXPECT_EQ(card(page, 1), (Texts{"Purge", "2 project build folders", "3 KB", "plain"}));
    EXPECT_EQ(card(page, 2), (Texts{"Installers", "2 disk image or packages", "4 KB", "plain"}));
    EXPECT_EQ(card(page, 3), (Texts{"Uninstall", "2 apps installed", "—", "muted"}));
}

TEST_F(TheHomeScreen, OneOfAKindIsSingular)
{
    AppModel& m = ready();
    const HomeModel page(m);
    scanned(m, {cache("a", paths(1))});
    purged(m, {built("/p", 1)});
    installed(m, {image("/i", 1)});
    m.live().storeApps({app("One")});
    EXPECT_EQ(column(page, HomeModel::SubRole),
              (Texts{"1 category of rebuildable files", "1 project build folder",
                     "1 disk image or package", "1 app installed"}));
}

TEST_F(TheHomeScreen, CountsOnWhileThePurgeScanRunsAlthoughTheCleanCardHasItsSize)
{
    AppModel& m = ready();
    const HomeModel page(m);
    scanned(m, {cache("a", paths(1))});
    unawaited(m.scanPurge(true));
    EXPECT_TRUE(page.counting());
    EXPECT_EQ(page.heading(), countingText);
    EXPECT_EQ(textAt(page, 0, HomeModel::SizeRole), "1 KB");
}

TEST_F(TheHomeScreen, CountsOnUntilTheInstallersAreRead)
{
    AppModel& m = ready();
    const HomeModel page(m);
    scanned(m, {});
    purged(m, {});
    EXPECT_FALSE(page.counting());
    m.scanInstallers();
    EXPECT_TRUE(page.counting());
    installers.answer(0, {image("/i", 5)});
    EXPECT_EQ(page.heading(), "You can reclaim\n5 bytes today");
}

TEST_F(TheHomeScreen, HeadingNamesNothingToReclaimAsZero)
{
    AppModel& m = ready();
    const HomeModel page(m);
    scanned(m, {});
    purged(m, {});
    installed(m, {});
    EXPECT_EQ(page.heading(), "You can reclaim\n0 bytes today");
}

TEST_F(TheHomeScreen, HeadingAddsUpWhatIsNotExcluded)
{
    AppModel& m = ready();
    HomeModel page(m);
    scanned(m, {cache("a", {path("/c/a", 100), path("/c/p", 5000, true)})});
    purged(m, {built("/p/a", 20), built("/p/b", 3)});
    installed(m, {image("/i", 400)});
    EXPECT_EQ(page.heading(), "You can reclaim\n523 bytes today");
    const Told told(&page, &HomeModel::changed);
    exclude(m, "/p/b");
    exclude(m, "/c/a");
    EXPECT_EQ(page.heading(), "You can reclaim\n420 bytes today");
    EXPECT_GT(told.count(), 0);
    EXPECT_EQ(sub(page, 1), "2 project build folders");
}

TEST_F(TheHomeScreen, ANewScanTakesTheFiguresOfItsCardBack)
{
    AppModel& m = ready();
    const HomeModel page(m);
    scanned(m, {cache("a", paths(1))});
    unawaited(m.scanClean(true));
    EXPECT_EQ(card(page, 0), (Texts{"Clean", "Rebuildable caches and logs", "Scanning…", "muted"}));
}

TEST_F(TheHomeScreen, AFailedListOfAppsLeavesItsCardInTheWordsBefore)
{
    AppModel& m = ready();
    const HomeModel page(m);
    unawaited(m.live().loadApps());
    script.lists.answer(0, tl::unexpected<MoFailure>(SystemError{"no"}));
    EXPECT_TRUE(m.live().apps().isFailed());
    EXPECT_EQ(sub(page, 3), "Installed applications");
}

TEST_F(TheHomeScreen, TellsOnlyTheCardThatChanged)
{
    AppModel& m = ready();
    HomeModel page(m);
    ToldRows rows(&page);
    scanned(m, {cache("a", paths(1))});
    EXPECT_EQ(rows.told, (Texts{"0"}));
    m.live().storeApps({app("One")});
    EXPECT_EQ(rows.told, (Texts{"0", "3"}));
}

TEST_F(TheHomeScreen, ScansEverythingAtOnce)
{
    AppModel& m = ready();
    HomeModel page(m);
    page.scanAll();
    EXPECT_TRUE(m.live().clean().isLoading());
    EXPECT_TRUE(m.live().purge().isLoading());
    EXPECT_TRUE(m.live().apps().isLoading());
    EXPECT_TRUE(m.lists().installerState().isLoading());
}

} // namespace

} // namespace zolva::test
