#include "platform/Environment.h"

#include "platform/AdminMove.h"
#include "support/InChild.h"
#include "support/ScopedHome.h"

#include <gtest/gtest.h>

#include <string>

namespace zolva::test {

namespace {

constexpr auto name = "ZOLVA_TEST_VALUE";

/// What a tool that is started finds there.
bool toolFinds(const std::string& value)
{
    return runTool({"/bin/sh", "-c", "test \"$ZOLVA_TEST_VALUE\" = '" + value + "'"}) == 0;
}

TEST(Environment, IsReadAsItStandsUntilItIsKept)
{
    const ScopedVariable first(name, "one");
    EXPECT_STREQ(environmentValue(name), "one");
    EXPECT_TRUE(toolFinds("one"));
    const ScopedVariable second(name, "two");
    EXPECT_STREQ(environmentValue(name), "two");
    EXPECT_TRUE(toolFinds("two"));
    const ScopedVariable none(name, std::nullopt);
    EXPECT_EQ(environmentValue(name), nullptr);
}

TEST(Environment, StaysAsItWasKeptWhateverIsSetOrUnsetLater)
{
    inChild([] {
        const ScopedVariable first(name, "one");
        const ScopedVariable other("ZOLVA_TEST_OTHER", std::nullopt);
        keepEnvironment();
        const char* const before = environmentValue(name);
        EXPECT_STREQ(before, "one");
        const ScopedVariable second(name, "two");
        const ScopedVariable added("ZOLVA_TEST_OTHER", "new");
        EXPECT_EQ(environmentValue(name), before);
        EXPECT_EQ(environmentValue("ZOLVA_TEST_OTHER"), nullptr);
        const ScopedVariable none(name, std::nullopt);
        EXPECT_STREQ(environmentValue(name), "one");
    });
}

TEST(Environment, OfAToolHasNoLeaveToTakeTheFocus)
{
    inChild([] {
        const ScopedVariable token("XDG_ACTIVATION_TOKEN", "t");
        const ScopedVariable start("DESKTOP_STARTUP_ID", "s");
        keepEnvironment();
        EXPECT_EQ(
            runTool({"/bin/sh", "-c", "test -z \"$XDG_ACTIVATION_TOKEN$DESKTOP_STARTUP_ID\""}), 0);
    });
}

TEST(Environment, OfAToolIsTheOneThatWasKept)
{
    inChild([] {
        const ScopedVariable first(name, "one");
        keepEnvironment();
        const ScopedVariable second(name, "two");
        EXPECT_TRUE(toolFinds("one"));
    });
}

TEST(Environment, IsFoundByTheWholeNameAlone)
{
    inChild([] {
        const ScopedVariable longer("ZOLVA_TEST_VALUES", "longer");
        const ScopedVariable none(name, std::nullopt);
        const ScopedVariable empty("ZOLVA_TEST", "");
        keepEnvironment();
        EXPECT_EQ(environmentValue(name), nullptr);
        EXPECT_STREQ(environmentValue("ZOLVA_TEST"), "");
        EXPECT_STREQ(environmentValue("ZOLVA_TEST_VALUES"), "longer");
    });
}

} // namespace

} // namespace zolva::test
