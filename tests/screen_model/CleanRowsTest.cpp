#include "ScreenBench.h"

#include "screens/model/CleanRows.h"

#include <chrono>
#include <cstddef>

namespace zolva::test {

namespace {

class TheCleanRows : public ScreenBench
{
protected:
    static QList<PathLine> lines(const CleanRows& rows, int row)
    {
        return at(rows, row, CleanRows::LinesRole).value<QList<PathLine>>();
    }
    static std::string trailing(const CleanRows& rows, int row = 0)
    {
        return textAt(rows, row, CleanRows::TrailingRole);
    }
    static std::string detail(const CleanRows& rows, int row = 0)
    {
        return textAt(rows, row, CleanRows::DetailRole);
    }
    static std::string spoken(const CleanRows& rows, int row = 0)
    {
        return textAt(rows, row, CleanRows::ValueRole);
    }
    static bool isTicked(const CleanRows& rows, int row = 0)
    {
        return flagAt(rows, row, CleanRows::TickedRole);
    }
    AppModel& withOpen(const std::string& id, std::vector<CatPath> all)
    {
        AppModel& m = ready();
        scanned(m, {cache(id, std::move(all))});
        m.lists().setOpenCat(id);
        return m;
    }
    /// Three categories, in the order "c", "b", "a".
    AppModel& withThree()
    {
        AppModel& m = ready();
        scanned(m, {cache("a", {path("/a", 1000)}), cache("b", {path("/b", 2000)}),
                    cache("c", {path("/c", 3000)})});
        return m;
    }
};

TEST_F(TheCleanRows, AreEmptyBeforeAScan)
{
    EXPECT_EQ(CleanRows(ready()).rowCount(), 0);
}

TEST_F(TheCleanRows, ShowTheLargestFirst)
{
    const CleanRows rows(withThree());
    EXPECT_EQ(column(rows, CleanRows::RowIdRole), (Texts{"c", "b", "a"}));
    EXPECT_EQ(rows.order(), (Texts{"c", "b", "a"}));
}

TEST_F(TheCleanRows, ShowNameDescriptionAndSize)
{
    AppModel& m = ready();
    Category logs = cache("Logs", {path("/l", 1'500'000), path("/m", 500'000)});
    logs.desc = "What programs wrote down";
    scanned(m, {logs});
    const CleanRows rows(m);
    EXPECT_EQ(textAt(rows, 0, CleanRows::NameRole), "Logs");
    EXPECT_EQ(textAt(rows, 0, CleanRows::DescRole), "What programs wrote down");
    EXPECT_EQ(trailing(rows), "2.0 MB");
    EXPECT_EQ(at(rows, 0, CleanRows::TrailingKindRole).toInt(), CleanRows::Size);
    EXPECT_EQ(detail(rows), "2.0 MB removable");
}

TEST_F(TheCleanRows, SizeLeavesOutWhatIsProtectedOrExcluded)
{
    AppModel& m = ready();
    scanned(m, {cache("a", {path("/a", 1000), path("/b", 2000), path("/p", 4000, true)})});
    exclude(m, "/b");
    const CleanRows rows(m);
    EXPECT_EQ(trailing(rows), "1 KB");
    EXPECT_EQ(detail(rows), "1 KB removable, 6 KB protected");
}

TEST_F(TheCleanRows, ACategoryWhosePathsAreAllProtectedCannotBeTicked)
{
    AppModel& m = ready();
    scanned(m, {cache("a", {path("/a", 1000, true), path("/b", 2000, true)})});
    const CleanRows rows(m);
    m.lists().setClean({"a"}, true);
    EXPECT_EQ(trailing(rows), "All 3 KB protected");
    EXPECT_EQ(at(rows, 0, CleanRows::TrailingKindRole).toInt(), CleanRows::AllProtected);
    EXPECT_FALSE(flagAt(rows, 0, CleanRows::TickableRole));
    EXPECT_FALSE(rows.isTickable("a"));
    EXPECT_FALSE(isTicked(rows));
    EXPECT_EQ(spoken(rows), "Protected, cannot be selected");
    EXPECT_EQ(rows.tickedBytes(), 0);
}

TEST_F(TheCleanRows, ATickedCategoryThatIsThenExcludedShowsNoTick)
{
    AppModel& m = ready();
    CleanRows rows(m);
    scanned(m, {cache("a", {path("/c/a", 1000)})});
    m.lists().setClean({"a"}, true);
    EXPECT_TRUE(isTicked(rows));
    ToldRows told(&rows);
    exclude(m, "/c");
    EXPECT_FALSE(isTicked(rows));
    EXPECT_EQ(trailing(rows), "All 1 KB protected");
    EXPECT_EQ(told.told, (Texts{"0"}));
}

TEST_F(TheCleanRows, AnEmptyPathThatMayGoCanBeTicked)
{
    AppModel& m = ready();
    scanned(m, {cache("a", {path("/a", 0)})});
    const CleanRows rows(m);
    EXPECT_TRUE(rows.isTickable("a"));
    EXPECT_EQ(trailing(rows), "0 bytes");
}

TEST_F(TheCleanRows, ACategoryThatNeedsThePasswordSaysSoWhateverElseHolds)
{
    AppModel& m = ready();
    Category root = cache("a", {path("/a", 1000, true)});
    root.sudo = true;
    scanned(m, {root});
    const CleanRows rows(m);
    EXPECT_EQ(trailing(rows), "Needs password");
    EXPECT_EQ(at(rows, 0, CleanRows::TrailingKindRole).toInt(), CleanRows::NeedsPassword);
}

TEST_F(TheCleanRows, ATickIsSpokenWithWhatItDeletes)
{
    AppModel& m = withThree();
    const CleanRows rows(m);
    EXPECT_EQ(spoken(rows), "Not selected");
    m.lists().setClean({"c"}, true);
    EXPECT_EQ(spoken(rows), "Selected, 3 KB will be deleted");
}

TEST_F(TheCleanRows, ATickTellsOneRowAndOnlyWhatATickChanges)
{
    AppModel& m = withThree();
    CleanRows rows(m);
    ToldRows told(&rows);
    m.lists().pickClean("b", rows.order(), false);
    EXPECT_EQ(told.told, Texts{"1"});
    EXPECT_EQ(told.roles, (QList<int>{CleanRows::TickedRole, CleanRows::ValueRole}));
    EXPECT_TRUE(isTicked(rows, 1));
}

TEST_F(TheCleanRows, ManyTicksTellOneRangeAndTicksThatStandNothing)
{
    AppModel& m = withThree();
    CleanRows rows(m);
    ToldRows told(&rows);
    m.lists().setClean(rows.order(), true);
    m.lists().setClean(rows.order(), true);
    EXPECT_EQ(told.told, Texts{"0-2"});
    m.lists().setClean({"a", "c"}, false);
    EXPECT_EQ(told.told, (Texts{"0-2", "0", "2"}));
}

TEST_F(TheCleanRows, TheBytesOfTheTicksAreThoseOfTheRun)
{
    AppModel& m = ready();
    const CleanRows rows(m);
    scanned(m, {cache("a", {path("/a", 1000), path("/x/b", 10)}),
                cache("b", {path("/c", 100), path("/p", 1, true)}), cache("c", {path("/d", 7)})});
    m.lists().setClean({"a", "b"}, true);
    EXPECT_EQ(rows.tickedBytes(), 1110);
    EXPECT_EQ(rows.tickedBytes(), m.removal().selectedCleanBytes());
    exclude(m, "/x");
    EXPECT_EQ(rows.tickedBytes(), 1100);
    EXPECT_EQ(rows.tickedBytes(), m.removal().selectedCleanBytes());
}

TEST_F(TheCleanRows, ANewOrderMovesTheRowsAndThoseThatHoldThem)
{
    AppModel& m = withThree();
    CleanRows rows(m);
    m.lists().setClean({"a"}, true);
    const QPersistentModelIndex third(rows.index(2, 0));
    ToldRows told(&rows);
    m.setSort("clean", SortKey::NameAsc);
    EXPECT_EQ(rows.order(), (Texts{"a", "b", "c"}));
    EXPECT_EQ(told.told, Texts{"moved"});
    EXPECT_EQ(third.row(), 0);
    EXPECT_TRUE(isTicked(rows, 0));
    EXPECT_FALSE(isTicked(rows, 2));
    EXPECT_EQ(trailing(rows, 0), "1 KB");
}

TEST_F(TheCleanRows, TheOrderOfAnotherScreenMovesNothing)
{
    AppModel& m = withThree();
    CleanRows rows(m);
    ToldRows told(&rows);
    m.setSort("purge", SortKey::NameAsc);
    m.setSort("clean", SortKey::SizeDesc);
    EXPECT_EQ(told.told, Texts{});
}

TEST_F(TheCleanRows, AreSortedAlreadyWhereTheOrderWasChosenBefore)
{
    AppModel& m = ready();
    m.setSort("clean", SortKey::NameAsc);
    const CleanRows rows(m);
    scanned(m, {cache("b", {path("/b", 2)}), cache("a", {path("/a", 1)})});
    EXPECT_EQ(rows.order(), (Texts{"a", "b"}));
}

TEST_F(TheCleanRows, AClosedRowHasNoLines)
{
    AppModel& m = ready();
    scanned(m, {cache("a", paths(20))});
    const CleanRows rows(m);
    EXPECT_FALSE(flagAt(rows, 0, CleanRows::OpenRole));
    EXPECT_TRUE(lines(rows, 0).isEmpty());
    EXPECT_EQ(textAt(rows, 0, CleanRows::MoreRole), "");
}

TEST_F(TheCleanRows, FifteenPathsAreAllShown)
{
    const CleanRows rows(withOpen("a", paths(15)));
    EXPECT_TRUE(flagAt(rows, 0, CleanRows::OpenRole));
    EXPECT_EQ(lines(rows, 0).size(), 15);
    EXPECT_EQ(textAt(rows, 0, CleanRows::MoreRole), "");
}

TEST_F(TheCleanRows, OfSixteenPathsOneIsCountedAlone)
{
    const CleanRows rows(withOpen("a", paths(16)));
    EXPECT_EQ(lines(rows, 0).size(), 15);
    EXPECT_EQ(textAt(rows, 0, CleanRows::MoreRole), "+ 1 smaller path, also included");
}

TEST_F(TheCleanRows, OfSeventeenPathsTwoAreCounted)
{
    const CleanRows rows(withOpen("a", paths(17)));
    EXPECT_EQ(textAt(rows, 0, CleanRows::MoreRole), "+ 2 smaller paths, also included");
}

TEST_F(TheCleanRows, LinesStandInTheOrderOfTheScan)
{
    const CleanRows rows(withOpen("a", {path("/z", 1), path("/a", 3), path("/m", 2)}));
    const QList<PathLine> all = lines(rows, 0);
    ASSERT_EQ(all.size(), 3);
    EXPECT_EQ(all[0], (PathLine{"/z", "/z", "1 bytes", true}));
    EXPECT_EQ(all[1], (PathLine{"/a", "/a", "3 bytes", true}));
    EXPECT_EQ(all[2], (PathLine{"/m", "/m", "2 bytes", true}));
}

TEST_F(TheCleanRows, LinesSayWhyAPathStays)
{
    CatPath root = path("/root", 5);
    root.sudo = true;
    AppModel& m = withOpen("a", {path("/p", 1, true), root, path("/x/y", 2)});
    exclude(m, "/x");
    const QList<PathLine> all = lines(CleanRows(m), 0);
    ASSERT_EQ(all.size(), 3);
    EXPECT_EQ(all[0], (PathLine{"/p", "/p", "Protected", false}));
    EXPECT_EQ(all[1], (PathLine{"/root", "/root", "Needs password", false}));
    EXPECT_EQ(all[2], (PathLine{"/x/y", "/x/y", "Protected", false}));
}

TEST_F(TheCleanRows, ALongPathIsShortenedInItsLineAndWholeBesideIt)
{
    const std::string whole58 = "/" + std::string(57, 'a');
    const std::string whole59 = "/" + std::string(27, 'a') + std::string(31, 'b');
    const CleanRows rows(withOpen("a", {path(whole58, 2), path(whole59, 1)}));
    const QList<PathLine> all = lines(rows, 0);
    ASSERT_EQ(all.size(), 2);
    EXPECT_EQ(all[0].text.toStdString(), whole58);
    EXPECT_EQ(all[1].text.toStdString(), "/" + std::string(23, 'a') + "…" + std::string(31, 'b'));
    EXPECT_EQ(all[1].text.size(), 56);
    EXPECT_EQ(all[1].fullText.toStdString(), whole59);
}

TEST_F(TheCleanRows, ShowAnyNameOnOneLineAndInItsOwnDirection)
{
    AppModel& m = ready();
    Category odd = cache("a", {path("/x\ny\u202Ez", 1)});
    odd.name = "n\u2028m";
    odd.desc = "d\ne";
    scanned(m, {odd});
    m.lists().setOpenCat("a");
    const CleanRows rows(m);
    EXPECT_EQ(textAt(rows, 0, CleanRows::NameRole), "n\uFFFDm");
    EXPECT_EQ(textAt(rows, 0, CleanRows::DescRole), "d\uFFFDe");
    const QString shown = QStringLiteral("/x\uFFFDy\uFFFDz");
    EXPECT_EQ(lines(rows, 0), (QList<PathLine>{{shown, shown, "1 bytes", true}}));
}

TEST_F(TheCleanRows, OpeningARowClosesTheOtherAndTellsOnlyThem)
{
    AppModel& m = withThree();
    CleanRows rows(m);
    m.lists().setOpenCat("c");
    ToldRows told(&rows);
    m.lists().setOpenCat("a");
    EXPECT_EQ(told.told, (Texts{"0", "2"}));
    EXPECT_EQ(told.roles,
              (QList<int>{CleanRows::OpenRole, CleanRows::LinesRole, CleanRows::MoreRole}));
    EXPECT_FALSE(flagAt(rows, 0, CleanRows::OpenRole));
    EXPECT_TRUE(flagAt(rows, 2, CleanRows::OpenRole));
    m.lists().setOpenCat(std::nullopt);
    EXPECT_FALSE(flagAt(rows, 2, CleanRows::OpenRole));
}

TEST_F(TheCleanRows, ANewScanShowsItsRowsWithTheTicksThatAreLeft)
{
    AppModel& m = withThree();
    CleanRows rows(m);
    m.lists().setClean({"a", "b"}, true);
    m.lists().setOpenCat("a");
    ToldRows told(&rows);
    scanned(m, {cache("a", {path("/a", 9000)}), cache("c", {path("/c", 1000)})});
    EXPECT_EQ(rows.order(), (Texts{"a", "c"}));
    EXPECT_EQ(told.told, Texts{"reset"});
    EXPECT_TRUE(isTicked(rows, 0));
    EXPECT_FALSE(isTicked(rows, 1));
    EXPECT_FALSE(flagAt(rows, 0, CleanRows::OpenRole));
}

TEST_F(TheCleanRows, AreGoneWhileTheListIsForgotten)
{
    AppModel& m = withThree();
    CleanRows rows(m);
    ToldRows told(&rows);
    m.lists().setClean(rows.order(), true);
    m.lists().forgetCategories();
    EXPECT_EQ(rows.rowCount(), 0);
    EXPECT_EQ(rows.tickedBytes(), 0);
    EXPECT_FALSE(rows.isAllTicked());
}

TEST_F(TheCleanRows, NamesThatAreNoTextAreShownAsFarAsTheyAre)
{
    AppModel& m = ready();
    scanned(m, {cache("a\xff", paths(1))});
    EXPECT_EQ(textAt(CleanRows(m), 0, CleanRows::NameRole), "a\xef\xbf\xbd");
}

TEST_F(TheCleanRows, TenThousandRowsTellTheirTicksInOneRange)
{
    constexpr int count = 10'000;
    std::vector<Category> all;
    all.reserve(count);
    for (int number = 0; number < count; ++number) {
        const std::string name = std::to_string(number);
        all.push_back(cache(name, {path("/c/" + name, number)}));
    }
    AppModel& m = ready();
    CleanRows rows(m);
    scanned(m, std::move(all));
    std::vector<int> lasts;
    QObject::connect(
        &rows, &QAbstractItemModel::dataChanged, &rows,
        [&lasts](const QModelIndex&, const QModelIndex& last) { lasts.push_back(last.row()); });
    m.lists().setClean(rows.order(), true);
    EXPECT_EQ(lasts, std::vector<int>{count - 1});
    EXPECT_EQ(rows.tickedBytes(), std::int64_t{count} * (count - 1) / 2);
    m.setSort("clean", SortKey::NameAsc);
    EXPECT_EQ(rows.rowCount(), count);
    EXPECT_EQ(rows.order().front(), "0");
}

} // namespace

} // namespace zolva::test
