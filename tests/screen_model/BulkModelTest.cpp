#include "ScreenBench.h"

#include "screens/model/BulkModel.h"

namespace zolva::test {

namespace {

using TheBulkProgress = ScreenBench;

TEST_F(TheBulkProgress, IsPresentWhileARunIs)
{
    AppModel& m = ready();
    BulkModel bulk(m);
    const Told told(&bulk, &BulkModel::changed);
    EXPECT_FALSE(bulk.present());
    m.removal().runs().setBulk(BulkProgress{"Removing caches", 3, 0, ""});
    EXPECT_TRUE(bulk.present());
    EXPECT_EQ(bulk.title(), "Removing caches");
    m.removal().runs().setBulk(std::nullopt);
    EXPECT_FALSE(bulk.present());
    EXPECT_EQ(told.count(), 2);
}

TEST_F(TheBulkProgress, CountsWhatIsDone)
{
    AppModel& m = ready();
    const BulkModel bulk(m);
    m.removal().runs().setBulk(BulkProgress{"Removing caches", 8, 2, "~/a"});
    EXPECT_EQ(bulk.countText(), "2 of 8");
    EXPECT_EQ(bulk.current(), "~/a");
    EXPECT_DOUBLE_EQ(bulk.fraction(), 0.25);
    EXPECT_EQ(bulk.spokenValue(), "2 of 8, currently ~/a");
}

TEST_F(TheBulkProgress, SpeaksOfNoPathBeforeTheFirst)
{
    AppModel& m = ready();
    const BulkModel bulk(m);
    m.removal().runs().setBulk(BulkProgress{"Removing caches", 8, 0, ""});
    EXPECT_EQ(bulk.spokenValue(), "0 of 8");
    EXPECT_DOUBLE_EQ(bulk.fraction(), 0);
}

TEST_F(TheBulkProgress, WithNothingToCountIsAFullBarInProgress)
{
    AppModel& m = ready();
    const BulkModel bulk(m);
    m.removal().runs().setBulk(BulkProgress{"Emptying the Trash", 0, 0, "~/a"});
    EXPECT_DOUBLE_EQ(bulk.fraction(), 1);
    EXPECT_EQ(bulk.countText(), "");
    EXPECT_EQ(bulk.spokenValue(), "In progress");
}

TEST_F(TheBulkProgress, NeverFillsMoreThanTheBar)
{
    AppModel& m = ready();
    const BulkModel bulk(m);
    m.removal().runs().setBulk(BulkProgress{"", 2, 3, ""});
    EXPECT_DOUBLE_EQ(bulk.fraction(), 1);
}

TEST_F(TheBulkProgress, StopAsksTheRunToStop)
{
    AppModel& m = ready();
    BulkModel bulk(m);
    bulk.requestCancel();
    EXPECT_FALSE(m.removal().runs().cancelRequested());
    m.removal().runs().setBulk(BulkProgress{"Removing caches", 8, 2, "~/a"});
    bulk.requestCancel();
    EXPECT_TRUE(m.removal().runs().cancelRequested());
    EXPECT_EQ(bulk.title(), "Stopping…");
}

} // namespace

} // namespace zolva::test
