#include "files/Age.h"

#include <gtest/gtest.h>

namespace zolva {

namespace {

using namespace std::chrono_literals;

const TimePoint now = TimePoint(std::chrono::hours(24) * 20'000 + 5h);

TEST(Age, CountsWholeDaysOnly)
{
    EXPECT_EQ(ageInDays(now, now), 0);
    EXPECT_EQ(ageInDays(now, now - 24h + 1s), 0);
    EXPECT_EQ(ageInDays(now, now - 24h), 1);
    EXPECT_EQ(ageInDays(now, now - 48h + 1s), 1);
    EXPECT_EQ(ageInDays(now, now - 24h * 400 - 23h), 400);
}

TEST(Age, OfADateInTheFutureIsZero)
{
    EXPECT_EQ(ageInDays(now, now + 1s), 0);
    EXPECT_EQ(ageInDays(now, now + 24h * 30), 0);
    EXPECT_EQ(ageInDays(now, TimePoint::max()), 0);
    EXPECT_EQ(ageInDays(TimePoint::min(), TimePoint::max()), 0);
}

TEST(Age, OfAMissingDateIsZero)
{
    EXPECT_EQ(ageInDays(now, std::nullopt), 0);
}

TEST(Age, ReachesBeforeTheEpoch)
{
    EXPECT_EQ(ageInDays(TimePoint(12h), TimePoint(-36h)), 2);
    EXPECT_EQ(ageInDays(TimePoint(-1h), TimePoint(-24h)), 0);
}

TEST(Age, OfTheFarthestDatesDoesNotOverflow)
{
    // More than twice what the clock's own difference can tell, which would come out negative.
    EXPECT_GT(ageInDays(TimePoint::max(), TimePoint::min()), 200'000);
    EXPECT_GT(ageInDays(now, TimePoint::min()), 100'000);
}

} // namespace

} // namespace zolva
