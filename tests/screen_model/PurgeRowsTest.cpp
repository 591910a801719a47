#include "ScreenBench.h"

#include "screens/model/PurgeRows.h"

namespace zolva::test {

namespace {

class ThePurgeRows : public ScreenBench
{
protected:
    static Project built(const std::string& where, const std::string& artifact,
                         std::int64_t bytes = 1000, std::int64_t age = 30)
    {
        Project one;
        one.p = where;
        one.artifact = artifact;
        one.b = bytes;
        one.age = age;
        return one;
    }
    static std::string desc(const PurgeRows& rows, int row = 0)
    {
        return textAt(rows, row, ListRows::DescRole);
    }
    static std::string spoken(const PurgeRows& rows, int row = 0)
    {
        return textAt(rows, row, ListRows::ValueRole);
    }
    static bool isTicked(const PurgeRows& rows, int row = 0)
    {
        return flagAt(rows, row, ListRows::TickedRole);
    }
    std::string descOfAge(std::int64_t age)
    {
        AppModel& m = ready();
        purged(m, {built("/p", "target", 1, age)});
        return desc(PurgeRows(m));
    }
    /// In the order "/c", "/b", "/a".
    AppModel& withThree()
    {
        AppModel& m = ready();
        purged(m, {built("/a", "x", 1000), built("/b", "x", 2000), built("/c", "x", 3000)});
        return m;
    }
};

TEST_F(ThePurgeRows, AreEmptyBeforeAScan)
{
    EXPECT_EQ(PurgeRows(ready()).rowCount(), 0);
}

TEST_F(ThePurgeRows, ShowTheProjectItsFolderAndItsSize)
{
    AppModel& m = ready();
    purged(m, {built("~/code/lantern", "node_modules", 2'000'000, 40)});
    const PurgeRows rows(m);
    EXPECT_EQ(textAt(rows, 0, ListRows::RowIdRole), "~/code/lantern/node_modules");
    EXPECT_EQ(textAt(rows, 0, ListRows::NameRole), "~/code/lantern");
    EXPECT_EQ(desc(rows), "node_modules · 40 days old");
    EXPECT_EQ(textAt(rows, 0, ListRows::TrailingRole), "2.0 MB");
    EXPECT_EQ(textAt(rows, 0, PurgeRows::SpokenNameRole), "node_modules in ~/code/lantern");
    EXPECT_EQ(spoken(rows), "Not selected");
}

TEST_F(ThePurgeRows, SixDaysAreRecent)
{
    AppModel& m = ready();
    purged(m, {built("/p", "target", 1, 6)});
    const PurgeRows rows(m);
    EXPECT_TRUE(flagAt(rows, 0, PurgeRows::RecentRole));
    EXPECT_EQ(desc(rows), "target · modified 6 days ago");
}

TEST_F(ThePurgeRows, SevenDaysAreNotRecent)
{
    AppModel& m = ready();
    purged(m, {built("/p", "target", 1, 7)});
    const PurgeRows rows(m);
    EXPECT_FALSE(flagAt(rows, 0, PurgeRows::RecentRole));
    EXPECT_EQ(desc(rows), "target · 7 days old");
}

TEST_F(ThePurgeRows, OneDayKeepsThePlural)
{
    EXPECT_EQ(descOfAge(1), "target · modified 1 days ago");
}

TEST_F(ThePurgeRows, ARecentRowIsTickableLikeAnyOther)
{
    AppModel& m = ready();
    purged(m, {built("/p", "target", 1000, 0)});
    const PurgeRows rows(m);
    EXPECT_TRUE(rows.isTickable("/p/target"));
    EXPECT_FALSE(isTicked(rows));
    EXPECT_EQ(desc(rows), "target · modified 0 days ago");
}

TEST_F(ThePurgeRows, ATickIsSpokenWithWhatItDeletes)
{
    AppModel& m = withThree();
    const PurgeRows rows(m);
    m.lists().setPurge({"/c/x"}, true);
    EXPECT_EQ(spoken(rows), "Selected, 3 KB will be deleted");
}

TEST_F(ThePurgeRows, AnExcludedFolderIsProtectedAndCountsNowhere)
{
    AppModel& m = withThree();
    PurgeRows rows(m);
    const ToldRows told(&rows);
    m.lists().setPurge({"/c/x", "/a/x"}, true);
    exclude(m, "/c");
    EXPECT_EQ(textAt(rows, 0, ListRows::TrailingRole), "Protected");
    EXPECT_EQ(spoken(rows), "Protected, cannot be selected");
    EXPECT_FALSE(rows.isTickable("/c/x"));
    EXPECT_EQ(rows.tickedBytes(), 1000);
    EXPECT_EQ(rows.tickedBytes(), m.removal().selectedProjectBytes());
    EXPECT_EQ(rows.tickedCount(), 1);
    // The box follows what is picked, as the run's own filter leaves it out.
    EXPECT_TRUE(isTicked(rows));
    EXPECT_EQ(told.told.back(), "0-2");
}

TEST_F(ThePurgeRows, AllMeansThoseThatCanBeTicked)
{
    AppModel& m = withThree();
    exclude(m, "/b/x");
    const PurgeRows rows(m);
    EXPECT_EQ(rows.keysOfAll(true), (Texts{"/c/x", "/a/x"}));
    EXPECT_EQ(rows.keysOfAll(false), (Texts{"/c/x", "/b/x", "/a/x"}));
    EXPECT_FALSE(rows.isAllTicked());
    m.lists().setPurge({"/c/x", "/a/x"}, true);
    EXPECT_TRUE(rows.isAllTicked());
}

TEST_F(ThePurgeRows, OfProtectedRowsAloneNotAllAreTicked)
{
    AppModel& m = withThree();
    exclude(m, "/a");
    exclude(m, "/b");
    exclude(m, "/c");
    EXPECT_FALSE(PurgeRows(m).isAllTicked());
}

TEST_F(ThePurgeRows, TwoFoldersOfOneProjectAreTickedEachForItself)
{
    AppModel& m = ready();
    purged(m, {built("/p", "dist", 2000), built("/p", "target", 1000)});
    const PurgeRows rows(m);
    m.lists().pickPurge("/p/target", rows.order(), false);
    EXPECT_FALSE(isTicked(rows, 0));
    EXPECT_TRUE(isTicked(rows, 1));
}

TEST_F(ThePurgeRows, AreOrderedBySizeAgeOrName)
{
    AppModel& m = ready();
    PurgeRows rows(m);
    purged(m, {built("/a", "x", 2000, 5), built("/b", "x", 3000, 50), built("/c", "x", 1000, 99)});
    EXPECT_EQ(rows.order(), (Texts{"/b/x", "/a/x", "/c/x"}));
    const QPersistentModelIndex last(rows.index(2, 0));
    ToldRows told(&rows);
    m.setSort("purge", SortKey::AgeDesc);
    EXPECT_EQ(rows.order(), (Texts{"/c/x", "/b/x", "/a/x"}));
    EXPECT_EQ(last.row(), 0);
    m.setSort("purge", SortKey::NameAsc);
    EXPECT_EQ(rows.order(), (Texts{"/a/x", "/b/x", "/c/x"}));
    EXPECT_EQ(told.told, (Texts{"moved", "moved"}));
}

TEST_F(ThePurgeRows, WhatIsGoneAfterARunLeavesAloneAndTheRestStands)
{
    AppModel& m = withThree();
    PurgeRows rows(m);
    m.lists().setPurge({"/a/x", "/b/x"}, true);
    ToldRows told(&rows);
    purged(m, {built("/a", "x", 1000), built("/c", "x", 3000)});
    EXPECT_EQ(rows.order(), (Texts{"/c/x", "/a/x"}));
    EXPECT_EQ(told.told, (Texts{"gone 1", "0-1"}));
    EXPECT_TRUE(isTicked(rows, 1));
}

TEST_F(ThePurgeRows, WhatIsNewComesToItsPlace)
{
    AppModel& m = withThree();
    PurgeRows rows(m);
    ToldRows told(&rows);
    purged(m, {built("/a", "x", 1000), built("/b", "x", 2000), built("/c", "x", 3000),
               built("/d", "x", 2500), built("/e", "x", 2400), built("/f", "x", 1)});
    EXPECT_EQ(rows.order(), (Texts{"/c/x", "/d/x", "/e/x", "/b/x", "/a/x", "/f/x"}));
    EXPECT_EQ(told.told, (Texts{"new 1-2", "new 5", "0-5"}));
}

TEST_F(ThePurgeRows, ManyPiecesAreToldAsANewList)
{
    AppModel& m = ready();
    std::vector<Project> all;
    std::vector<Project> left;
    for (int number = 0; number < 100; ++number) {
        all.push_back(built("/p" + std::to_string(number), "x", 1000 - number));
        if (number % 2 == 0) {
            left.push_back(all.back());
        }
    }
    PurgeRows rows(m);
    purged(m, all);
    ToldRows told(&rows);
    purged(m, left);
    EXPECT_EQ(told.told, Texts{"reset"});
    EXPECT_EQ(rows.rowCount(), 50);
}

TEST_F(ThePurgeRows, WhatTheDiskNamesWithoutTextIsShownAsFarAsItGoes)
{
    AppModel& m = ready();
    purged(m, {built("/a\xff", "x")});
    EXPECT_EQ(textAt(PurgeRows(m), 0, ListRows::NameRole), "/a\xef\xbf\xbd");
}

TEST_F(ThePurgeRows, ShowAnyNameOnOneLine)
{
    AppModel& m = ready();
    purged(m, {built("/a\nb", "x\ny")});
    const PurgeRows rows(m);
    EXPECT_EQ(textAt(rows, 0, ListRows::NameRole), "/a\uFFFDb");
    EXPECT_EQ(desc(rows), "x\uFFFDy · 30 days old");
    EXPECT_EQ(textAt(rows, 0, PurgeRows::SpokenNameRole), "x\uFFFDy in /a\uFFFDb");
}

} // namespace

} // namespace zolva::test
