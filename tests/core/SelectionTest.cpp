#include "core/Selection.h"

#include <gtest/gtest.h>

namespace zolva {
namespace {

using Rows = std::vector<std::string>;

const Rows abcde = {"a", "b", "c", "d", "e"};

TEST(Selection, AClickFlipsTheRowAloneAndMakesItTheAnchor)
{
    PickSet picked = {"a"};
    PickAnchor anchor;
    pickRow(picked, anchor, "b", abcde, false);
    EXPECT_EQ(picked, (PickSet{"a", "b"}));
    EXPECT_EQ(anchor, "b");
    pickRow(picked, anchor, "a", abcde, false);
    EXPECT_EQ(picked, (PickSet{"b"}));
    EXPECT_EQ(anchor, "a");
}

TEST(Selection, AnAbsentEntryOfTheMapIsFlippedToTrueAndAHeldOneNegated)
{
    PickMap picked;
    PickAnchor anchor;
    pickRow(picked, anchor, "a", abcde, false);
    EXPECT_EQ(picked, (PickMap{{"a", true}}));
    pickRow(picked, anchor, "a", abcde, false);
    EXPECT_EQ(picked, (PickMap{{"a", false}}));
    pickRow(picked, anchor, "a", abcde, false);
    EXPECT_EQ(picked, (PickMap{{"a", true}}));
}

TEST(Selection, ARangeTicksFromTheAnchorToTheRowInEitherDirection)
{
    PickSet picked;
    PickAnchor anchor = "b";
    pickRow(picked, anchor, "d", abcde, true);
    EXPECT_EQ(picked, (PickSet{"b", "c", "d"}));
    EXPECT_EQ(anchor, "d");
    picked.clear();
    pickRow(picked, anchor, "a", abcde, true);
    EXPECT_EQ(picked, (PickSet{"a", "b", "c", "d"}));
    EXPECT_EQ(anchor, "a");
}

TEST(Selection, ARangeUnticksNothing)
{
    PickSet picked = {"a", "c", "e"};
    PickAnchor anchor = "a";
    pickRow(picked, anchor, "c", abcde, true);
    EXPECT_EQ(picked, (PickSet{"a", "b", "c", "e"}));

    PickMap map = {{"a", false}, {"b", true}, {"e", false}};
    anchor = "a";
    pickRow(map, anchor, "b", abcde, true);
    EXPECT_EQ(map, (PickMap{{"a", true}, {"b", true}, {"e", false}}));
}

TEST(Selection, ARangeOfOneRowTicksItAndDoesNotFlipIt)
{
    PickSet picked = {"b"};
    PickAnchor anchor = "b";
    pickRow(picked, anchor, "b", abcde, true);
    EXPECT_EQ(picked, (PickSet{"b"}));
}

TEST(Selection, ShiftClickingWithNoEarlierClickFlipsTheOneRowWhichBecomesTheAnchor)
{
    PickSet picked;
    PickAnchor anchor;
    pickRow(picked, anchor, "c", abcde, true);
    EXPECT_EQ(picked, (PickSet{"c"}));
    EXPECT_EQ(anchor, "c");
}

TEST(Selection, ShiftClickingWhenTheAnchorsRowIsGoneFlipsTheOneRowAndReAnchors)
{
    PickSet picked = {"c"};
    PickAnchor anchor = "removed by a scan";
    pickRow(picked, anchor, "c", abcde, true);
    EXPECT_EQ(picked, PickSet{});
    EXPECT_EQ(anchor, "c");
}

TEST(Selection, ShiftClickingARowThatIsNotShownOrInAnEmptyListFlipsIt)
{
    PickSet picked;
    PickAnchor anchor = "a";
    pickRow(picked, anchor, "x", abcde, true);
    EXPECT_EQ(picked, (PickSet{"x"}));
    pickRow(picked, anchor, "y", {}, true);
    EXPECT_EQ(picked, (PickSet{"x", "y"}));
    EXPECT_EQ(anchor, "y");
}

TEST(Selection, ARangeOnAFilteredListCoversOnlyTheRowsShown)
{
    PickSet picked;
    PickAnchor anchor = "a";
    pickRow(picked, anchor, "e", {"a", "c", "e"}, true);
    EXPECT_EQ(picked, (PickSet{"a", "c", "e"}));
}

TEST(Selection, TheAnchorSurvivesANewOrder)
{
    PickSet picked;
    PickAnchor anchor;
    pickRow(picked, anchor, "b", abcde, false);
    pickRow(picked, anchor, "c", {"c", "e", "b", "a", "d"}, true);
    EXPECT_EQ(picked, (PickSet{"b", "c", "e"}));
}

TEST(Selection, ARowMayBeNamedByTheAnchorItself)
{
    PickSet picked = {"a"};
    PickAnchor anchor = "a";
    pickRow(picked, anchor, *anchor, abcde, false);
    EXPECT_EQ(picked, PickSet{});
    EXPECT_EQ(anchor, "a");
}

TEST(Selection, AfterAScanAFalseEntryIsForgottenAlsoWhereItsRowIsStillListed)
{
    PickMap picked = {{"a", true}, {"b", false}, {"gone", true}};
    keepPicked(picked, {"a", "b"});
    EXPECT_EQ(picked, (PickMap{{"a", true}}));
}

TEST(Selection, AfterAScanOnlyRowsThatAreStillThereStayPickedAndNoneIsAdded)
{
    PickSet picked = {"a", "gone"};
    keepPicked(picked, {"a", "b"});
    EXPECT_EQ(picked, (PickSet{"a"}));
}

} // namespace
} // namespace zolva
