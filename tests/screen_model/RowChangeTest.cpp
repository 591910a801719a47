#include "screens/model/RowChange.h"

#include <gtest/gtest.h>

namespace zolva::test {

namespace {

using Keys = std::vector<std::string>;
using Spans = std::vector<RowSpan>;

TEST(RowChange, OfTheSameRowsIsNone)
{
    const auto change = rowChange({"a", "b"}, {"a", "b"});
    ASSERT_TRUE(change);
    EXPECT_TRUE(change->removed.empty());
    EXPECT_TRUE(change->inserted.empty());
}

TEST(RowChange, TakesNeighboursTogetherAndTheLastOnesFirst)
{
    const auto change = rowChange({"a", "b", "c", "d", "e"}, {"c", "d"});
    ASSERT_TRUE(change);
    EXPECT_EQ(change->removed, (Spans{{4, 4}, {0, 1}}));
    EXPECT_TRUE(change->inserted.empty());
}

TEST(RowChange, InsertsAtThePlacesOfTheNewList)
{
    const auto change = rowChange({"c", "d"}, {"a", "b", "c", "x", "d"});
    ASSERT_TRUE(change);
    EXPECT_TRUE(change->removed.empty());
    EXPECT_EQ(change->inserted, (Spans{{0, 1}, {3, 3}}));
}

TEST(RowChange, RemovesAndInsertsAtOnce)
{
    const auto change = rowChange({"a", "b", "c"}, {"b", "x", "c"});
    ASSERT_TRUE(change);
    EXPECT_EQ(change->removed, (Spans{{0, 0}}));
    EXPECT_EQ(change->inserted, (Spans{{1, 1}}));
}

TEST(RowChange, OfAnotherOrderIsAnotherList)
{
    EXPECT_FALSE(rowChange({"a", "b"}, {"b", "a"}));
}

TEST(RowChange, OfMoreSpansThanTheLimitIsAnotherList)
{
    const Keys before = {"a", "b", "c", "d", "e"};
    EXPECT_TRUE(rowChange(before, {"a", "c", "e"}, 2));
    EXPECT_FALSE(rowChange(before, {"a", "c", "e"}, 1));
    EXPECT_FALSE(rowChange(before, {"b", "c", "d", "x"}, 2));
}

TEST(RowChange, OfAKeyThatOneListHasTwiceIsAnotherList)
{
    EXPECT_FALSE(rowChange({"a", "a", "b"}, {"a", "b"}));
    EXPECT_TRUE(rowChange({"a", "a", "b"}, {"a", "a"}));
}

} // namespace

} // namespace zolva::test
