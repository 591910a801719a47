#include "mole/Options.h"

#include <gtest/gtest.h>

namespace zolva::test {

using namespace mole;

namespace {

Request withInterval(std::string_view interval)
{
    return requestOf({"status", "--json", "--watch", "--interval", interval});
}

} // namespace

TEST(Options, TheTwoCallsAreUnderstood)
{
    EXPECT_EQ(withInterval("1s"), Request(WatchStatus{std::chrono::seconds(1)}));
    EXPECT_EQ(withInterval("30s"), Request(WatchStatus{std::chrono::seconds(30)}));
    EXPECT_EQ(withInterval("86400s"), Request(WatchStatus{longestInterval}));
    EXPECT_EQ(requestOf({"uninstall", "--list"}), Request(ListApps{}));
}

TEST(Options, AnIntervalIsAWholeNumberOfSecondsWithinADay)
{
    for (const char* interval : {"", "s", "0s", "-1s", "+1s", "1", "1.5s", "1ss", " 1s", "1 s",
                                 "1m", "0x1s", "86401s", "99999999999999999999s"}) {
        EXPECT_TRUE(std::holds_alternative<WrongUsage>(withInterval(interval))) << interval;
    }
}

TEST(Options, AnotherOrderOrFewerOrMoreArgumentsAreWrongUsage)
{
    const std::vector<std::vector<std::string_view>> calls = {
        {},
        {"status"},
        {"status", "--json", "--watch", "--interval"},
        {"status", "--watch", "--json", "--interval", "1s"},
        {"status", "--json", "--watch", "--interval", "1s", "1s"},
        {"uninstall"},
        {"--list"},
        {"uninstall", "--list", ""},
    };
    for (const auto& call : calls) {
        EXPECT_TRUE(std::holds_alternative<WrongUsage>(requestOf(call)));
    }
}

} // namespace zolva::test
