#include "ScreenBench.h"

#include "screens/model/AnalyzeModel.h"

namespace zolva::test {

namespace {

class TheAnalyzeScreen : public ScreenBench
{
protected:
    /// A folder below the home with two folders and a file in it.
    AnalyzeResult downloads()
    {
        AnalyzeResult result;
        result.path = tree.path("Downloads");
        result.entries = {entry(tree.path("Downloads/big"), 3'000'000),
                          entry(tree.path("Downloads/small"), 1'000'000),
                          entry(tree.path("Downloads/a.iso"), 1000, false)};
        result.totalSize = 4'001'000;
        result.totalFiles = 12;
        return result;
    }
    AnalyzeResult overview()
    {
        AnalyzeResult result;
        result.overview = true;
        result.entries = {entry("/usr", 9000), entry(tree.root(), 5000),
                          entry(tree.path("Library"), 1000)};
        result.totalSize = 20'000;
        result.totalFiles = 3;
        return result;
    }
};

TEST_F(TheAnalyzeScreen, ShowsOnePageForEachStateOfTheAnalysis)
{
    EXPECT_EQ(AnalyzeModel::pageOf(LoadState::Idle), AnalyzeModel::Welcome);
    EXPECT_EQ(AnalyzeModel::pageOf(LoadState::Loading), AnalyzeModel::Waiting);
    EXPECT_EQ(AnalyzeModel::pageOf(LoadState::Failed), AnalyzeModel::Failed);
    EXPECT_EQ(AnalyzeModel::pageOf(LoadState::Loaded), AnalyzeModel::Loaded);
}

TEST_F(TheAnalyzeScreen, FollowsTheAnalysis)
{
    AppModel& m = ready();
    AnalyzeModel analyze(m);
    const Told told(&analyze, &AnalyzeModel::pageChanged);
    EXPECT_EQ(analyze.page(), AnalyzeModel::Welcome);
    analyze.scan();
    EXPECT_EQ(analyze.page(), AnalyzeModel::Waiting);
    EXPECT_FALSE(analyze.isEmpty());
    EXPECT_EQ(held.analyzed, (Texts{""}));
    found(overview());
    EXPECT_EQ(analyze.page(), AnalyzeModel::Loaded);
    EXPECT_EQ(told.count(), 2);
    EXPECT_EQ(analyze.failText(), "");
}

TEST_F(TheAnalyzeScreen, StartsNoWalkByItself)
{
    AppModel& m = ready();
    const AnalyzeModel analyze(m);
    m.go("analyze");
    EXPECT_TRUE(held.analyzed.empty());
}

TEST_F(TheAnalyzeScreen, SaysWhatIsWalkedWhileItIsWalked)
{
    AppModel& m = ready();
    AnalyzeModel analyze(m);
    analyze.scan();
    EXPECT_EQ(analyze.waitText(), "Scanning your Mac… this can take a moment.");
    unawaited(m.live().analyze(tree.path("Downloads")));
    EXPECT_EQ(analyze.waitText(), "Scanning ~/Downloads… this can take a moment.");
    unawaited(m.live().analyze("/usr/lib"));
    EXPECT_EQ(analyze.waitText(), "Scanning /usr/lib… this can take a moment.");
}

TEST_F(TheAnalyzeScreen, OffersThreeOrders)
{
    AppModel& m = ready();
    AnalyzeModel analyze(m);
    EXPECT_EQ(analyze.sort()->names(), (QStringList{"Largest first", "Smallest first", "Name"}));
    EXPECT_EQ(analyze.sort()->label(), "Largest first");
    analyze.sort()->choose(2);
    EXPECT_EQ(m.sortOf("analyze"), SortKey::NameAsc);
}

TEST_F(TheAnalyzeScreen, ShowsTheFreeSpaceBesideTheWholeDisk)
{
    AppModel& m = ready();
    AnalyzeModel analyze(m);
    analyze.scan();
    found(overview());
    EXPECT_EQ(analyze.crumbs(), QStringList{"Computer"});
    EXPECT_EQ(analyze.totals(), "100 bytes free");
}

TEST_F(TheAnalyzeScreen, TellsWhenTheFreeSpaceIsAnother)
{
    store.values["zolva.seenAccessIntro"] = true;
    AppModel& m = start({.meters = false});
    const AnalyzeModel analyze(m);
    const Told told(&analyze, &AnalyzeModel::changed);
    EXPECT_EQ(analyze.totals(), "0 bytes free");
    m.removal().space().refreshFreeSpace();
    EXPECT_EQ(analyze.totals(), "100 bytes free");
    EXPECT_EQ(told.count(), 1);
}

TEST_F(TheAnalyzeScreen, ShowsTheTotalsOfAnyFolder)
{
    AppModel& m = ready();
    const AnalyzeModel analyze(m);
    analyzed(m, downloads());
    EXPECT_EQ(analyze.crumbs(), (QStringList{"Computer", "~", "Downloads"}));
    EXPECT_EQ(analyze.totals(), "4.0 MB · 12 files");
    AnalyzeResult one = downloads();
    one.totalFiles = 1;
    analyzed(m, one);
    EXPECT_EQ(analyze.totals(), "4.0 MB · 1 files");
}

TEST_F(TheAnalyzeScreen, GoesBackByItsCrumbs)
{
    AppModel& m = ready();
    AnalyzeModel analyze(m);
    analyzed(m, downloads());
    analyze.goTo(2);
    analyze.goTo(3);
    analyze.goTo(-1);
    EXPECT_EQ(held.analyzed.size(), 1U) << "it is there already";
    analyze.goTo(1);
    EXPECT_EQ(held.analyzed.back(), tree.root());
    analyze.goTo(0);
    EXPECT_EQ(held.analyzed.back(), "");
}

TEST_F(TheAnalyzeScreen, GoesUpStepByStepAndNotBeyondTheWholeDisk)
{
    AppModel& m = ready();
    AnalyzeModel analyze(m);
    analyzed(m, downloads());
    analyze.goUp();
    analyze.goUp();
    analyze.goUp();
    EXPECT_EQ(held.analyzed, (Texts{tree.path("Downloads"), tree.root(), ""}));
}

TEST_F(TheAnalyzeScreen, OpensFoldersAndNoFiles)
{
    AppModel& m = ready();
    AnalyzeModel analyze(m);
    analyzed(m, downloads());
    analyze.open(2);
    analyze.open(3);
    EXPECT_EQ(held.analyzed.size(), 1U);
    analyze.open(1);
    EXPECT_EQ(held.analyzed.back(), tree.path("Downloads/small"));
}

TEST_F(TheAnalyzeScreen, OpensTheRowThatIsShownInWhateverOrder)
{
    AppModel& m = ready();
    AnalyzeModel analyze(m);
    analyzed(m, downloads());
    analyze.sort()->choose(1);
    analyze.open(2);
    EXPECT_EQ(held.analyzed.back(), tree.path("Downloads/big"));
}

TEST_F(TheAnalyzeScreen, BeginsAfterAWayUpAtTheRowItCameFrom)
{
    AppModel& m = ready();
    AnalyzeModel analyze(m);
    analyzed(m, downloads());
    analyze.open(1);
    AnalyzeResult inside;
    inside.path = tree.path("Downloads/small");
    inside.entries = {entry(tree.path("Downloads/small/x"), 5)};
    found(inside);
    EXPECT_EQ(analyze.startRow(), 0);
    analyze.goUp();
    found(downloads());
    EXPECT_EQ(analyze.startRow(), 1);
    analyze.goTo(0);
    found(overview());
    EXPECT_EQ(analyze.startRow(), 1);
}

TEST_F(TheAnalyzeScreen, BeginsInAnotherOrderAtTheRowItCameFromToo)
{
    AppModel& m = ready();
    AnalyzeModel analyze(m);
    analyzed(m, downloads());
    analyze.open(0);
    AnalyzeResult inside;
    inside.path = tree.path("Downloads/big");
    found(inside);
    analyze.goUp();
    found(downloads());
    EXPECT_EQ(analyze.startRow(), 0);
    const Told told(&analyze, &AnalyzeModel::changed);
    analyze.sort()->choose(1);
    EXPECT_EQ(analyze.startRow(), 2);
    EXPECT_EQ(told.count(), 1);
    analyze.sort()->choose(2);
    EXPECT_EQ(analyze.startRow(), 1) << "behind a.iso";
}

TEST_F(TheAnalyzeScreen, IsEmptyWhereTheFolderIsOrCannotBeRead)
{
    AppModel& m = ready();
    const AnalyzeModel analyze(m);
    AnalyzeResult nothing;
    nothing.path = "/root-only";
    analyzed(m, nothing);
    EXPECT_TRUE(analyze.isEmpty());
    EXPECT_EQ(analyze.totals(), "0 bytes · 0 files");
    analyzed(m, downloads());
    EXPECT_FALSE(analyze.isEmpty());
}

TEST_F(TheAnalyzeScreen, ShowsThingsInTheFileManager)
{
    AppModel& m = ready();
    AnalyzeModel analyze(m);
    AnalyzeResult result = downloads();
    result.largeFiles = {file(tree.path("Downloads/big/x\xFF"), 5)};
    analyzed(m, result);
    steps.clear();
    analyze.reveal(2);
    analyze.reveal(3);
    analyze.revealFile(0);
    analyze.revealFile(1);
    EXPECT_EQ(steps, (Steps{"revealed " + tree.path("Downloads/a.iso"),
                            "revealed " + tree.path("Downloads/big/x\xFF")}));
}

TEST_F(TheAnalyzeScreen, MovesALargeFileAtOnceWithoutASheet)
{
    AppModel& m = ready();
    AnalyzeModel analyze(m);
    AnalyzeResult result = downloads();
    const std::string iso = tree.path("Downloads/a.iso");
    result.largeFiles = {file(iso, 2'000'000)};
    disk->put(iso, 1);
    analyzed(m, result);
    m.settings().setKeepInTrash(false);
    analyze.moveFile(0);
    analyze.moveFile(0);
    analyze.moveFile(1);
    EXPECT_FALSE(m.sheet());
    EXPECT_EQ(disk->changes(), Texts{"move " + iso});
    ASSERT_EQ(m.toasts().toasts().size(), 1U);
    EXPECT_EQ(m.toasts().toasts().front().text, "Moved 2.0 MB to the Trash");
}

TEST_F(TheAnalyzeScreen, KeepsItsPlaceWhileAnotherScreenIsShown)
{
    AppModel& m = ready();
    AnalyzeModel analyze(m);
    analyzed(m, downloads());
    m.go("home");
    m.go("analyze");
    EXPECT_EQ(analyze.page(), AnalyzeModel::Loaded);
    EXPECT_EQ(analyze.rows()->rowCount(), 3);
    EXPECT_EQ(held.analyzed.size(), 1U);
}

} // namespace

} // namespace zolva::test
