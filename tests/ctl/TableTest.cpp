#include "ctl/Table.h"

#include <gtest/gtest.h>

namespace zolva::test {

namespace {

using ctl::Cell;
using ctl::Ink;
using ctl::Look;
using ctl::Side;
using ctl::Table;

TEST(Table, AlignsByColumnsOfTheTerminalAndNotByBytes)
{
    Table table({{"NAME"}, {"SIZE", Side::Right}, {"END"}});
    table.row({{"日本"}, {"1"}, {"x"}});
    table.row({{"e\xcc\x81t\xc3\xa9"}, {"22"}, {"x"}}); // é as two code points, and as one
    EXPECT_EQ(table.text(Look{}), "  NAME  SIZE  END\n"
                                  "  日本     1  x\n"
                                  "  e\xcc\x81t\xc3\xa9     22  x\n");
}

TEST(Table, PaintsWithoutMovingAnything)
{
    Table plain({{"A"}, {"B"}});
    plain.row({{"x", Ink::Strong}, {"y", Ink::Bad}});
    EXPECT_EQ(plain.text(Look{true}), "  \x1b[2mA\x1b[0m  \x1b[2mB\x1b[0m\n"
                                      "  \x1b[1mx\x1b[0m  \x1b[33my\x1b[0m\n");
}

TEST(Table, EndsNoLineInBlanks)
{
    Table table({{"A"}, {"LONG"}, {}});
    table.row({{"x"}, {"y"}, {}});
    EXPECT_EQ(table.text(Look{}), "  A  LONG\n  x  y\n");
}

TEST(Table, HasNoHeadingWithoutTitles)
{
    Table table({{}, {}});
    table.row({{"x"}, {"y"}});
    EXPECT_EQ(table.text(Look{}), "  x  y\n");
}

TEST(ShareBar, IsAlwaysAsWideAndShowsAnythingAboveNothing)
{
    EXPECT_EQ(ctl::shareBar(1, 1), "████████████████");
    EXPECT_EQ(ctl::shareBar(1, 2), "████████        ");
    EXPECT_EQ(ctl::shareBar(1, 1'000'000), "▏               ");
    EXPECT_EQ(ctl::shareBar(0, 5), "                ");
    EXPECT_EQ(ctl::shareBar(0, 0), "                ");
    EXPECT_EQ(ctl::shareBar(9, 3), "████████████████");
}

TEST(ShareText, NeverSaysNothingForSomething)
{
    EXPECT_EQ(ctl::shareText(1, 4), "25.0 %");
    EXPECT_EQ(ctl::shareText(1, 1'000'000), "< 0.1 %");
    EXPECT_EQ(ctl::shareText(0, 4), "0.0 %");
    EXPECT_EQ(ctl::shareText(1, 0), "");
}

TEST(CountText, SeparatesThousands)
{
    EXPECT_EQ(ctl::countText(0), "0");
    EXPECT_EQ(ctl::countText(999), "999");
    EXPECT_EQ(ctl::countText(1000), "1,000");
    EXPECT_EQ(ctl::countText(1234567), "1,234,567");
    EXPECT_EQ(ctl::counted(1, "file"), "1 file");
    EXPECT_EQ(ctl::counted(2000, "file"), "2,000 files");
}

} // namespace

} // namespace zolva::test
