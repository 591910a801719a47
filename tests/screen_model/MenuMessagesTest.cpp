#include "screens/model/MenuMessages.h"

#include <gtest/gtest.h>

namespace zolva::test {

namespace {

TEST(MenuMessages, AVolumeOfNoSizeIsNotFull)
{
    EXPECT_EQ(percentFull(0, 0), "0% full");
    EXPECT_EQ(percentFull(5, 0), "0% full");
}

TEST(MenuMessages, TheUsedShareIsRoundedToWholePercents)
{
    EXPECT_EQ(percentFull(0, 7), "100% full");
    EXPECT_EQ(percentFull(7, 7), "0% full");
    EXPECT_EQ(percentFull(2, 3), "33% full");
    EXPECT_EQ(percentFull(1, 3), "67% full");
    EXPECT_EQ(percentFull(875, 1000), "12% full") << "a half goes to the even one";
    EXPECT_EQ(percentFull(865, 1000), "14% full");
}

TEST(MenuMessages, TheDiskIsSpokenAsOne)
{
    EXPECT_EQ(spokenDiskText(QStringLiteral("Backup"), 12'000'000'000, 500'000'000'000),
              "Backup, 12.00 GB free of 500.00 GB");
}

TEST(MenuMessages, ThePluralIsThePlainRuleForEveryNoun)
{
    EXPECT_EQ(reclaimCount(2, QStringLiteral("category")), "2 categorys");
    EXPECT_EQ(reclaimCount(1, QStringLiteral("category")), "1 category");
    EXPECT_EQ(reclaimCount(0, QStringLiteral("item")), "0 items");
}

TEST(MenuMessages, NothingHeldBackIsNotTold)
{
    EXPECT_EQ(keptNote(0), "");
    EXPECT_EQ(keptNote(1), "1 bytes protected, not included");
}

TEST(MenuMessages, ATotalOfNothingLeavesThePictureAlone)
{
    EXPECT_EQ(trayLabel(0), "");
    EXPECT_EQ(trayToolTip(0), "");
    EXPECT_EQ(trayLabel(4'200'000'000), "4.20 GB");
    EXPECT_EQ(trayToolTip(4'200'000'000), "4.20 GB reclaimable");
}

} // namespace

} // namespace zolva::test
