#include "core/Loadable.h"

#include <gtest/gtest.h>

#include <memory>

namespace zolva {
namespace {

TEST(Loadable, BeginsIdleAndHoldsNothing)
{
    const Loadable<int> read;
    EXPECT_EQ(read.state(), LoadState::Idle);
    EXPECT_TRUE(read.isIdle());
    EXPECT_EQ(read.value(), nullptr);
    EXPECT_EQ(read.error(), nullptr);
}

TEST(Loadable, HoldsTheValueOnlyWhileLoadedAndTheTextOnlyWhenFailed)
{
    auto read = Loadable<std::string>::loaded("value");
    EXPECT_TRUE(read.isLoaded());
    ASSERT_NE(read.value(), nullptr);
    EXPECT_EQ(*read.value(), "value");
    EXPECT_EQ(read.error(), nullptr);

    read = Loadable<std::string>::failed("why");
    EXPECT_EQ(read.state(), LoadState::Failed);
    EXPECT_TRUE(read.isFailed());
    EXPECT_EQ(read.value(), nullptr);
    ASSERT_NE(read.error(), nullptr);
    EXPECT_EQ(*read.error(), "why");

    read = Loadable<std::string>::loading();
    EXPECT_EQ(read.state(), LoadState::Loading);
    EXPECT_TRUE(read.isLoading());
    EXPECT_EQ(read.value(), nullptr);
    EXPECT_EQ(read.error(), nullptr);

    read = Loadable<std::string>::idle();
    EXPECT_TRUE(read.isIdle());
}

TEST(Loadable, MayHoldNothingOrWhatCannotBeCopied)
{
    EXPECT_TRUE(Loadable<Nothing>::loaded({}).isLoaded());
    const auto read = Loadable<std::unique_ptr<int>>::loaded(std::make_unique<int>(3));
    EXPECT_EQ(**read.value(), 3);
}

} // namespace
} // namespace zolva
