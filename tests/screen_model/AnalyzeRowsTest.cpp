#include "ScreenBench.h"

#include "screens/model/AnalyzeRows.h"

namespace zolva::test {

namespace {

class TheEntries : public ScreenBench
{
protected:
    static AnalyzeResult three()
    {
        AnalyzeResult result;
        result.path = "/d";
        result.entries = {entry("/d/b", 600), entry("/d/a", 300, false), entry("/d/c", 100)};
        result.totalSize = 1000;
        return result;
    }
    static std::vector<std::string> names(const AnalyzeRows& rows)
    {
        return column(rows, AnalyzeRows::NameRole);
    }
};

TEST_F(TheEntries, AreShownLargestFirst)
{
    AppModel& m = ready();
    AnalyzeRows rows(m);
    const ToldRows told(&rows);
    EXPECT_EQ(rows.rowCount(), 0);
    analyzed(m, three());
    EXPECT_EQ(names(rows), (Texts{"b", "a", "c"}));
    EXPECT_TRUE(flagAt(rows, 0, AnalyzeRows::FolderRole));
    EXPECT_FALSE(flagAt(rows, 1, AnalyzeRows::FolderRole));
    EXPECT_EQ(column(rows, AnalyzeRows::SizeTextRole),
              (Texts{"600 bytes", "300 bytes", "100 bytes"}));
}

TEST_F(TheEntries, GoByTheOrderThatWasChosen)
{
    AppModel& m = ready();
    AnalyzeRows rows(m);
    const ToldRows told(&rows);
    analyzed(m, three());
    m.setSort("analyze", SortKey::SizeAsc);
    EXPECT_EQ(names(rows), (Texts{"c", "a", "b"}));
    m.setSort("analyze", SortKey::NameAsc);
    EXPECT_EQ(names(rows), (Texts{"a", "b", "c"}));
    EXPECT_EQ(rows.entryAt(0)->path, "/d/a");
    m.setSort("analyze", SortKey::SizeDesc);
    EXPECT_EQ(names(rows), (Texts{"b", "a", "c"}));
    EXPECT_EQ(told.told, (Texts{"reset", "reset", "reset", "reset"}));
}

TEST_F(TheEntries, KeepTheChosenOrderInTheNextFolder)
{
    AppModel& m = ready();
    m.setSort("analyze", SortKey::NameAsc);
    const AnalyzeRows rows(m);
    analyzed(m, three());
    EXPECT_EQ(names(rows), (Texts{"a", "b", "c"}));
    AnalyzeResult other;
    other.path = "/e";
    other.entries = {entry("/e/z", 9), entry("/e/y", 5)};
    analyzed(m, other);
    EXPECT_EQ(names(rows), (Texts{"y", "z"}));
}

TEST_F(TheEntries, LeaveTheOrderOfOtherScreensToThem)
{
    AppModel& m = ready();
    AnalyzeRows rows(m);
    analyzed(m, three());
    const ToldRows told(&rows);
    m.setSort("clean", SortKey::NameAsc);
    EXPECT_TRUE(told.told.empty());
}

TEST_F(TheEntries, TellTheirShareOfTheWhole)
{
    AppModel& m = ready();
    const AnalyzeRows rows(m);
    AnalyzeResult result = three();
    result.entries[1].size = 305;
    analyzed(m, result);
    EXPECT_EQ(column(rows, AnalyzeRows::ShareTextRole), (Texts{"60.0%", "30.5%", "10.0%"}));
    EXPECT_DOUBLE_EQ(at(rows, 1, AnalyzeRows::ShareRole).toDouble(), 0.305);
    EXPECT_EQ(textAt(rows, 1, AnalyzeRows::ValueRole), "305 bytes, 30.5%");
}

TEST_F(TheEntries, RoundAShareThatIsHalfwayToTheEvenDigit)
{
    AppModel& m = ready();
    const AnalyzeRows rows(m);
    AnalyzeResult result = three();
    result.entries[0].size = 3;
    result.entries[1].size = 1;
    result.totalSize = 16;
    analyzed(m, result);
    EXPECT_EQ(textAt(rows, 0, AnalyzeRows::ShareTextRole), "18.8%"); // of 18.75
    EXPECT_EQ(textAt(rows, 1, AnalyzeRows::ShareTextRole), "6.2%");  // of 6.25
    EXPECT_EQ(textAt(rows, 1, AnalyzeRows::ValueRole), "1 bytes, 6.2%");
}

TEST_F(TheEntries, HaveNoShareOfNothing)
{
    AppModel& m = ready();
    const AnalyzeRows rows(m);
    AnalyzeResult result = three();
    result.totalSize = 0;
    analyzed(m, result);
    EXPECT_EQ(textAt(rows, 0, AnalyzeRows::ShareTextRole), "0.0%");
    EXPECT_EQ(at(rows, 0, AnalyzeRows::ShareRole).toDouble(), 0);
}

TEST_F(TheEntries, FillTheirBarAtTheMostWhereTheyOverlapTheWhole)
{
    AppModel& m = ready();
    const AnalyzeRows rows(m);
    AnalyzeResult result = three();
    result.totalSize = 400;
    analyzed(m, result);
    EXPECT_EQ(at(rows, 0, AnalyzeRows::ShareRole).toDouble(), 1);
    EXPECT_EQ(textAt(rows, 0, AnalyzeRows::ShareTextRole), "150.0%");
}

TEST_F(TheEntries, ShowAnyNameOnOneLine)
{
    AppModel& m = ready();
    const AnalyzeRows rows(m);
    AnalyzeResult result;
    result.path = "/d";
    result.entries = {entry("/d/a\nb\xFF", 5)};
    analyzed(m, result);
    EXPECT_EQ(textAt(rows, 0, AnalyzeRows::NameRole), "a\uFFFDb\uFFFD");
}

TEST_F(TheEntries, GoWhileAnotherPlaceIsWalked)
{
    AppModel& m = ready();
    AnalyzeRows rows(m);
    const ToldRows told(&rows);
    analyzed(m, three());
    unawaited(m.live().analyze("/e"));
    EXPECT_EQ(rows.rowCount(), 0);
    EXPECT_EQ(rows.entryAt(0), nullptr);
}

TEST_F(TheEntries, KnowTheRowThatAPathIsUnder)
{
    AppModel& m = ready();
    const AnalyzeRows rows(m);
    AnalyzeResult result;
    result.entries = {entry("/home", 9), entry("/home/Library", 5), entry("/usr", 1)};
    analyzed(m, result);
    EXPECT_EQ(rows.rowAbove("/home/Library/Caches"), 1);
    EXPECT_EQ(rows.rowAbove("/home/other"), 0);
    EXPECT_EQ(rows.rowAbove("/usr"), 2);
    EXPECT_EQ(rows.rowAbove("/nowhere"), 0);
}

} // namespace

} // namespace zolva::test
