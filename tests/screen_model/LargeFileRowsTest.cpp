#include "ScreenBench.h"

#include "screens/model/LargeFileRows.h"

namespace zolva::test {

namespace {

class TheLargestFiles : public ScreenBench
{
protected:
    AnalyzeResult files(int count)
    {
        AnalyzeResult result;
        result.path = tree.path("d");
        for (int number = 1; number <= count; ++number) {
            const std::string where = tree.path("d/file" + std::to_string(number));
            result.largeFiles.push_back(file(where, 1000 * (100 - number)));
            disk->put(where, 1);
        }
        return result;
    }
    static void move(AppModel& m, const LargeFileRows& rows, int row)
    {
        const LargeFile& one = *rows.fileAt(row);
        m.removal().analyzed().trashAnalyzeItem(one.name, one.path, one.size);
    }
};

TEST_F(TheLargestFiles, OfSevenAreSixRows)
{
    AppModel& m = ready();
    LargeFileRows rows(m);
    const ToldRows told(&rows);
    analyzed(m, files(7));
    EXPECT_EQ(column(rows, LargeFileRows::NameRole),
              (Texts{"file1", "file2", "file3", "file4", "file5", "file6"}));
}

TEST_F(TheLargestFiles, OfSixAreSixRows)
{
    AppModel& m = ready();
    const LargeFileRows rows(m);
    analyzed(m, files(6));
    EXPECT_EQ(rows.rowCount(), 6);
    EXPECT_EQ(rows.fileAt(6), nullptr);
    EXPECT_EQ(rows.fileAt(-1), nullptr);
}

TEST_F(TheLargestFiles, StayInTheOrderGivenWhateverTheListIsSortedBy)
{
    AppModel& m = ready();
    const LargeFileRows rows(m);
    analyzed(m, files(3));
    m.setSort("analyze", SortKey::SizeAsc);
    EXPECT_EQ(column(rows, LargeFileRows::NameRole), (Texts{"file1", "file2", "file3"}));
}

TEST_F(TheLargestFiles, AreMissingWhereThereAreNone)
{
    AppModel& m = ready();
    const LargeFileRows rows(m);
    const Told told(&rows, &LargeFileRows::isEmptyChanged);
    EXPECT_TRUE(rows.isEmpty());
    analyzed(m, files(1));
    EXPECT_FALSE(rows.isEmpty());
    analyzed(m, files(0));
    EXPECT_TRUE(rows.isEmpty());
    EXPECT_EQ(told.count(), 2);
}

TEST_F(TheLargestFiles, AreOneSentenceToAReader)
{
    AppModel& m = ready();
    const LargeFileRows rows(m);
    analyzed(m, files(2));
    EXPECT_EQ(textAt(rows, 0, LargeFileRows::SpokenNameRole), "Move file1 to the Trash, 99 KB");
    EXPECT_EQ(textAt(rows, 0, LargeFileRows::SpokenHintRole), "");
    move(m, rows, 0);
    EXPECT_EQ(textAt(rows, 0, LargeFileRows::SpokenNameRole), "file1 is in the Trash");
    EXPECT_EQ(textAt(rows, 0, LargeFileRows::SpokenHintRole), "You can put it back from the Trash");
}

TEST_F(TheLargestFiles, AreMarkedWhileTheyAreInTheTrash)
{
    AppModel& m = ready();
    LargeFileRows rows(m);
    analyzed(m, files(3));
    const ToldRows told(&rows);
    move(m, rows, 1);
    EXPECT_FALSE(flagAt(rows, 0, LargeFileRows::InTrashRole));
    EXPECT_TRUE(flagAt(rows, 1, LargeFileRows::InTrashRole));
    m.toasts().runAction(m.toasts().toasts().back().id);
    EXPECT_FALSE(flagAt(rows, 1, LargeFileRows::InTrashRole));
    EXPECT_EQ(told.told, (Texts{"1", "1"}));
}

TEST_F(TheLargestFiles, AreStillMarkedAfterAnotherAnalysis)
{
    AppModel& m = ready();
    const LargeFileRows rows(m);
    analyzed(m, files(3));
    move(m, rows, 0);
    analyzed(m, files(2));
    EXPECT_TRUE(flagAt(rows, 0, LargeFileRows::InTrashRole));
    const LargeFileRows later(m);
    EXPECT_TRUE(flagAt(later, 0, LargeFileRows::InTrashRole));
}

TEST_F(TheLargestFiles, ShowNamesAndPathsOnOneLine)
{
    AppModel& m = ready();
    const LargeFileRows rows(m);
    AnalyzeResult result;
    result.path = "/d";
    result.largeFiles = {file("/d/a\nb", 5)};
    analyzed(m, result);
    EXPECT_EQ(textAt(rows, 0, LargeFileRows::NameRole), "a\uFFFDb");
    EXPECT_EQ(textAt(rows, 0, LargeFileRows::PathRole), "/d/a\uFFFDb");
}

} // namespace

} // namespace zolva::test
