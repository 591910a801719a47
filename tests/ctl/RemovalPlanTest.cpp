#include "ctl/RemovalPlan.h"

#include <QCoreApplication>
#include <gtest/gtest.h>

#include <csignal>

namespace zolva::ctl::test {

TEST(RemovalPlan, AnAnswerThatWasGivenHoldsUnlessTheProgramIsAskedToEnd)
{
    int none = 0;
    const QCoreApplication application(none, nullptr);
    Request request;
    request.yes = true;
    const StopSignals stop;
    EXPECT_FALSE(stop.wasAsked());
    EXPECT_TRUE(confirmed(request, {{"/a", 1, std::nullopt}}, "?", stop));
    ASSERT_EQ(std::raise(SIGINT), 0);
    EXPECT_TRUE(stop.wasAsked());
    EXPECT_FALSE(confirmed(request, {{"/a", 1, std::nullopt}}, "?", stop));
}

TEST(RemovalPlan, NothingGoesWhereAllIsRefusedOrNothingIsThere)
{
    EXPECT_TRUE(nothingGoes({}));
    EXPECT_TRUE(nothingGoes({{"/a", 1, "protected"}}));
    EXPECT_FALSE(nothingGoes({{"/a", 1, "protected"}, {"/b", 1, std::nullopt}}));
}

} // namespace zolva::ctl::test
