#include "platform/linux/TrashInfo.h"

#include <gtest/gtest.h>

#include <ctime>
#include <random>

namespace {

using namespace zolva;

TEST(TrashInfo, EveryByteButTheUnreservedAndTheSlashIsEncoded)
{
    EXPECT_EQ(percentEncoded("/a-b_c.d~e"), "/a-b_c.d~e");
    EXPECT_EQ(percentEncoded("a b%\n\xC3\xA4\xFF+"), "a%20b%25%0A%C3%A4%FF%2B");
}

TEST(TrashInfo, RandomBytesComeBackAsTheyWere)
{
    std::mt19937 random(7);
    for (int round = 0; round < 2000; ++round) {
        std::string bytes(1 + random() % 40, '/');
        for (char& byte : bytes) {
            byte = static_cast<char>(1 + random() % 255);
        }
        ASSERT_EQ(percentDecoded(percentEncoded(bytes)), bytes);
        const auto info = parsedTrashInfo(trashInfoText(bytes, 0));
        ASSERT_TRUE(info.has_value());
        ASSERT_EQ(info->path, bytes);
    }
}

TEST(TrashInfo, AnOddPercentStandsForItself)
{
    EXPECT_EQ(percentDecoded("100%"), "100%");
    EXPECT_EQ(percentDecoded("100%.txt"), "100%.txt");
    EXPECT_EQ(percentDecoded("%4"), "%4");
    EXPECT_EQ(percentDecoded("%41%g1"), "A%g1");
}

TEST(TrashInfo, ANewlineInANameForgesNoSecondLine)
{
    const std::string text = trashInfoText("/home/u/a\nPath=/etc/passwd", 0);
    EXPECT_EQ(parsedTrashInfo(text)->path, "/home/u/a\nPath=/etc/passwd");
    EXPECT_EQ(text.find("\nPath=/etc"), std::string::npos);
}

TEST(TrashInfo, TheDateIsTheLocalTimeWithoutAZone)
{
    std::tm local{};
    local.tm_year = 124;
    local.tm_mon = 1;
    local.tm_mday = 3;
    local.tm_hour = 4;
    local.tm_min = 5;
    local.tm_sec = 6;
    local.tm_isdst = -1;
    EXPECT_EQ(parsedTrashInfo(trashInfoText("/x", std::mktime(&local)))->date,
              "2024-02-03T04:05:06");
}

TEST(TrashInfo, OtherGroupsAndLaterPathsAreNotRead)
{
    EXPECT_EQ(parsedTrashInfo("[Other]\nPath=/no\n[Trash Info]\nDeletionDate=x\nPath=/yes\n"
                              "Path=/later\n[More]\nPath=/no\n")
                  ->path,
              "/yes");
}

TEST(TrashInfo, NothingIsReadFromDamagedText)
{
    for (const char* text : {"", "Path=/x\n", "[Trash Info]\n", "[Trash Info]\nPath=\n",
                             "[Trash Info\nPath=/x\n", "[Trash Info]\nPath=/a%00b\n"}) {
        EXPECT_FALSE(parsedTrashInfo(text).has_value()) << text;
    }
}

TEST(TrashInfo, OnlyAnAbsolutePathWithoutDotsUpIsBelieved)
{
    EXPECT_TRUE(isBelievableOrigin("/home/u/..a/b.."));
    EXPECT_FALSE(isBelievableOrigin("home/u/a"));
    EXPECT_FALSE(isBelievableOrigin("/home/u/../v"));
    EXPECT_FALSE(isBelievableOrigin("/home/u/.."));
    EXPECT_FALSE(isBelievableOrigin(""));
}

} // namespace
