#include "json/IsoDate.h"

#include <gtest/gtest.h>

namespace zolva::test {

using namespace std::chrono;

TEST(IsoDate, ADateWithAFractionAndOneWithoutBothParse)
{
    const auto whole = sys_days(year(2026) / 1 / 2) + hours(3) + minutes(4) + seconds(5);
    EXPECT_EQ(parseIsoDate("2026-01-02T03:04:05Z"), whole);
    EXPECT_EQ(parseIsoDate("2026-01-02T03:04:05.678Z"), whole + milliseconds(678));
    EXPECT_EQ(parseIsoDate("2026-01-02T03:04:05.123456789Z"), whole + microseconds(123456));
    EXPECT_EQ(parseIsoDate("2026-01-02T03:04:05.5Z"), whole + milliseconds(500));
}

TEST(IsoDate, TheZoneIsTakenOff)
{
    const auto utc = sys_days(year(2026) / 1 / 1) + hours(22) + minutes(34);
    EXPECT_EQ(parseIsoDate("2026-01-02T03:04:00+04:30"), utc);
    EXPECT_EQ(parseIsoDate("2026-01-01T20:34:00-02:00"), utc);
}

TEST(IsoDate, WithoutATimeZoneItIsNone)
{
    EXPECT_FALSE(parseIsoDate("2026-01-02T03:04:05"));
    EXPECT_FALSE(parseIsoDate("2026-01-02T03:04:05.678"));
}

TEST(IsoDate, DaysAndTimesThatDoNotExistAreNone)
{
    for (const char* text : {"2026-02-29T00:00:00Z", "2026-13-01T00:00:00Z", "2026-00-01T00:00:00Z",
                             "2026-01-00T00:00:00Z", "2026-04-31T00:00:00Z", "2026-01-01T24:00:00Z",
                             "2026-01-01T00:60:00Z", "2026-01-01T00:00:60Z",
                             "2026-01-01T00:00:00+24:00", "2026-01-01T00:00:00+00:60"}) {
        EXPECT_FALSE(parseIsoDate(text)) << text;
    }
    EXPECT_TRUE(parseIsoDate("2024-02-29T23:59:59Z"));
    EXPECT_TRUE(parseIsoDate("0000-01-01T00:00:00Z"));
    EXPECT_TRUE(parseIsoDate("9999-12-31T23:59:59.999999Z"));
}

TEST(IsoDate, AnythingElseIsNone)
{
    for (const char* text :
         {"", "now", "2026-01-02", "2026-01-02 03:04:05Z", "2026-01-02t03:04:05z",
          "2026-1-2T3:4:5Z", "2026-01-02T03:04:05.Z", "2026-01-02T03:04:05ZZ",
          " 2026-01-02T03:04:05Z", "2026-01-02T03:04:05Z ", "2026-01-02T03:04:05+0100",
          "2026-01-02T03:04:05+1:00", "-026-01-02T03:04:05Z", "20260102T030405Z"}) {
        EXPECT_FALSE(parseIsoDate(text)) << text;
    }
}

} // namespace zolva::test
