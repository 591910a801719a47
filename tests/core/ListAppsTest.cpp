#include "core/LiveMoRunner.h"

#include "support/qt/EventLoop.h"
#include "support/qt/ManualClock.h"
#include "support/qt/ScriptedTool.h"

#include <gtest/gtest.h>

#include <chrono>
#include <csignal>
#include <string>
#include <variant>

namespace zolva::test {

namespace {

using namespace std::chrono_literals;

/// A tool, and the bridge to it. `$here/list` is a good list.
struct Bridge
{
    explicit Bridge(const std::string& script)
        : tool(script), runner(clock, {tool.path(), MoLocation::Kind::Shipped})
    {
        tool.put("list",
                 R"([{"name":"Zoo","bundle_id":"org.zoo","source":"disk","uninstall_name":"zoo",)"
                 R"("path":"/Applications/Zoo.app","size":"1 MB"},{"name":"Abc",)"
                 R"("bundle_id":"org.abc","source":"disk","uninstall_name":"abc",)"
                 R"("path":"/Applications/Abc.app","size":"2 MB"}])");
    }

    ScriptedTool tool;
    ManualClock clock;
    LiveMoRunner runner;
};

AppList listOf(const std::string& script)
{
    Bridge bridge(script);
    return settled(bridge.runner.listApps());
}

template <typename Case>
const Case* errorOf(const AppList& list)
{
    const auto* error = list ? nullptr : std::get_if<MoError>(&list.error());
    return error ? std::get_if<Case>(&error->what) : nullptr;
}

void expectExit(const AppList& list, int status, const std::string& errors)
{
    const auto* exit = errorOf<MoError::NonZeroExit>(list);
    ASSERT_NE(exit, nullptr) << (list ? "a list" : description(list.error()));
    EXPECT_EQ(exit->status, status);
    EXPECT_EQ(exit->stderrText, errors);
}

} // namespace

TEST(ListApps, TheToolIsRunWithTwoArgumentsAndItsOrderIsKept)
{
    Bridge bridge(R"(echo "$@" > "$here/arguments"; cat "$here/list")");
    const AppList list = settled(bridge.runner.listApps());
    ASSERT_TRUE(list) << description(list.error());
    ASSERT_EQ(list->size(), 2U);
    EXPECT_EQ(list->at(0).name, "Zoo");
    EXPECT_EQ(list->at(1).name, "Abc");
    EXPECT_EQ(bridge.tool.written("arguments"), "uninstall --list\n");
}

TEST(ListApps, AListOverManyLinesIsOneDocument)
{
    EXPECT_TRUE(listOf(R"(tr '{' '\n' < "$here/list" | sed 's/^"/{"/'; echo)"));
}

TEST(ListApps, AnotherStatusWinsOverAGoodListAndItsWordsAreNotTrimmed)
{
    expectExit(listOf(R"(cat "$here/list"; printf ' no \n\n' >&2; exit 4)"), 4, " no \n\n");
}

TEST(ListApps, WhatIsNoArrayIsADecodingFailure)
{
    for (const char* script : {":", "echo garbage", "echo '{}'", "echo '[{\"name\":1}]'"}) {
        EXPECT_NE(errorOf<MoError::DecodingFailure>(listOf(script)), nullptr) << script;
    }
}

TEST(ListApps, BothOutputsAreReadAtTheSameTime)
{
    const std::string size = std::to_string(bySize(20'000'000, 200'000'000));
    const std::string flood = "head -c " + size + " /dev/zero | tr '\\0' ' '";
    EXPECT_TRUE(listOf(flood + " >&2; " + flood + "; " + flood + R"( >&2; cat "$here/list")"));
}

TEST(ListApps, ALongLineIsNoObstacle)
{
    const AppList list =
        listOf(R"(printf '['; head -c 3000000 /dev/zero | tr '\0' ' '; tail -c +2 "$here/list")");
    EXPECT_TRUE(list) << description(list.error());
}

TEST(ListApps, ATooLongRunIsEndedAfterNinetySeconds)
{
    Bridge bridge(R"(echo $$ > "$here/pid"; exec sleep 1000)");
    auto list = bridge.runner.listApps();
    pumpUntil([&] { return bridge.tool.numbers("pid").size() == 1; });
    bridge.clock.advance(89'999ms);
    pumpOnce();
    EXPECT_FALSE(isGone(bridge.tool.numbers("pid").at(0)));
    EXPECT_FALSE(list.isReady());
    bridge.clock.advance(1ms);
    expectExit(settled(std::move(list)), SIGTERM, "");
}

TEST(ListApps, ATooLongRunThatIgnoresTheRequestIsKilled)
{
    Bridge bridge("trap '' TERM\necho $$ > \"$here/pid\"; while :; do sleep 0.01; done");
    auto list = bridge.runner.listApps();
    pumpUntil([&] { return bridge.tool.numbers("pid").size() == 1; });
    bridge.clock.advance(90s);
    bridge.clock.advance(4999ms);
    pumpOnce();
    EXPECT_FALSE(isGone(bridge.tool.numbers("pid").at(0)));
    bridge.clock.advance(1ms);
    expectExit(settled(std::move(list)), SIGKILL, "");
}

TEST(ListApps, TheWatchOverARunIsOverWithTheRun)
{
    Bridge bridge(R"(test -e "$here/slow" || exec cat "$here/list"
echo $$ > "$here/pid"; exec sleep 1000)");
    EXPECT_TRUE(settled(bridge.runner.listApps()));
    bridge.tool.put("slow", "");
    auto second = bridge.runner.listApps();
    pumpUntil([&] { return bridge.tool.numbers("pid").size() == 1; });
    // Half of the second run's time, and past the first one's.
    bridge.clock.advance(45s);
    bridge.clock.advance(44s);
    pumpOnce();
    EXPECT_FALSE(isGone(bridge.tool.numbers("pid").at(0)));
    bridge.clock.advance(1s);
    expectExit(settled(std::move(second)), SIGTERM, "");
}

TEST(ListApps, AToolThatEndsItselfOnTheRequestMayStillGiveItsList)
{
    Bridge bridge("trap 'cat \"$here/list\"; exit 0' TERM\n"
                  "echo $$ > \"$here/pid\"; while :; do sleep 0.01; done");
    auto list = bridge.runner.listApps();
    pumpUntil([&] { return bridge.tool.numbers("pid").size() == 1; });
    bridge.clock.advance(90s);
    EXPECT_TRUE(settled(std::move(list)));
}

TEST(ListApps, WithNoToolThePathLookedAtIsTold)
{
    Bridge bridge(":");
    bridge.tool.remove();
    const AppList list = settled(bridge.runner.listApps());
    const auto* missing = errorOf<MoError::BinaryNotFound>(list);
    ASSERT_NE(missing, nullptr);
    EXPECT_EQ(missing->path, bridge.tool.path());
}

TEST(ListApps, ALaunchThatFailsIsTheSystemsOwnError)
{
    TempTree tree;
    const std::string path = tree.text("mole", "#!/nowhere/interpreter\n");
    tree.setMode("mole", 0755);
    ManualClock clock;
    LiveMoRunner runner(clock, {path, MoLocation::Kind::Shipped});
    const AppList list = settled(runner.listApps());
    ASSERT_FALSE(list);
    EXPECT_TRUE(std::holds_alternative<SystemError>(list.error()));
}

} // namespace zolva::test
