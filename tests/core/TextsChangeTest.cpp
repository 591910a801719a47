#include "core/TextsChange.h"

#include <gtest/gtest.h>

#include <cstddef>

namespace zolva {
namespace {

using Texts = std::vector<std::string>;

/// Every selection of three texts.
std::vector<Texts> selections()
{
    const Texts all = {"a", "b", "c"};
    std::vector<Texts> some;
    for (unsigned bits = 0; bits < 8; ++bits) {
        Texts one;
        for (std::size_t i = 0; i < all.size(); ++i) {
            if ((bits >> i) % 2 == 1) {
                one.push_back(all[i]);
            }
        }
        some.push_back(one);
    }
    return some;
}

TEST(TextsChange, TakesOutEveryEqualTextAndAddsAtTheEndWhatIsNotThere)
{
    EXPECT_EQ(changed({"x", "a", "y", "a"}, {{"y", "z", "z"}, {"a", "none"}}),
              (Texts{"x", "y", "z"}));
}

TEST(TextsChange, LeavesAListAloneThatItSaysNothingAbout)
{
    EXPECT_EQ(changed({"b", "a", "b"}, {}), (Texts{"b", "a", "b"}));
}

TEST(TextsChange, BetweenTwoListsIsWhatOnlyOneOfThemHolds)
{
    EXPECT_EQ(changeBetween({"a", "b"}, {"c", "b"}), (TextsChange{{"c"}, {"a"}}));
    EXPECT_EQ(changeBetween({"a", "b"}, {"b", "a"}), TextsChange{});
}

TEST(TextsChange, TwoInOneDoTheSameAsOneAfterTheOther)
{
    const std::vector<Texts> all = selections();
    for (const Texts& list : all) {
        for (const Texts& added : all) {
            for (const Texts& removed : all) {
                for (const Texts& addedLater : all) {
                    for (const Texts& removedLater : all) {
                        const TextsChange first{added, removed};
                        const TextsChange second{addedLater, removedLater};
                        ASSERT_EQ(changed(list, combined(first, second)),
                                  changed(changed(list, first), second));
                    }
                }
            }
        }
    }
}

} // namespace
} // namespace zolva
