#include "core/LiveMoRunner.h"

#include "core/StatusSample.h"
#include "support/OpenDescriptors.h"
#include "support/ScopedHome.h"
#include "support/qt/EventLoop.h"
#include "support/qt/ManualClock.h"
#include "support/qt/ScriptedTool.h"

#include <gtest/gtest.h>

#include <sys/wait.h>

#include <cerrno>
#include <chrono>
#include <csignal>
#include <optional>
#include <string>
#include <variant>
#include <vector>

namespace zolva::test {

namespace {

using namespace std::chrono_literals;

MoLocation at(const std::string& path)
{
    return {path, MoLocation::Kind::Shipped};
}

/// A tool, and the bridge to it. `$here/line` is a good line.
struct Bridge
{
    explicit Bridge(const std::string& script) : tool(script), runner(clock, at(tool.path()))
    {
        tool.put("line", statusLine() + "\n");
    }

    ScriptedTool tool;
    ManualClock clock;
    LiveMoRunner runner;
};

struct Stream
{
    std::vector<StatusResult> readings;
    std::optional<MoFailure> failure;
};

Stream drained(const std::shared_ptr<StatusStream>& stream)
{
    Stream all;
    while (auto reading = settled(stream->next())) {
        all.readings.push_back(std::move(*reading));
    }
    all.failure = stream->failure();
    return all;
}

/// What a stream of this tool gives, from its start to its end.
Stream streamOf(const std::string& script)
{
    Bridge bridge(script);
    return drained(bridge.runner.statusStream(1s));
}

const MoError::NonZeroExit* exitOf(const std::optional<MoFailure>& failure)
{
    const auto* error = failure ? std::get_if<MoError>(&*failure) : nullptr;
    return error ? std::get_if<MoError::NonZeroExit>(&error->what) : nullptr;
}

const MoError::DecodingFailure* decodingOf(const std::optional<MoFailure>& failure)
{
    const auto* error = failure ? std::get_if<MoError>(&*failure) : nullptr;
    return error ? std::get_if<MoError::DecodingFailure>(&error->what) : nullptr;
}

const MoError::BinaryNotFound* missingOf(const std::optional<MoFailure>& failure)
{
    const auto* error = failure ? std::get_if<MoError>(&*failure) : nullptr;
    return error ? std::get_if<MoError::BinaryNotFound>(&error->what) : nullptr;
}

void expectExit(const std::optional<MoFailure>& failure, int status, const std::string& errors)
{
    const auto* exit = exitOf(failure);
    ASSERT_NE(exit, nullptr) << (failure ? description(*failure) : "no failure");
    EXPECT_EQ(exit->status, status);
    EXPECT_EQ(exit->stderrText, errors);
}

std::string argumentsFor(std::chrono::seconds interval)
{
    Bridge bridge(R"(echo "$@" > "$here/arguments"; cat "$here/line")");
    drained(bridge.runner.statusStream(interval));
    return bridge.tool.written("arguments");
}

} // namespace

TEST(StatusStream, TheToolIsRunWithExactlyTheseArguments)
{
    EXPECT_EQ(argumentsFor(1s), "status --json --watch --interval 1s\n");
    EXPECT_EQ(argumentsFor(30s), "status --json --watch --interval 30s\n");
}

TEST(StatusStream, AnIntervalOfZeroOrBelowIsSentAsOneSecond)
{
    EXPECT_EQ(argumentsFor(0s), "status --json --watch --interval 1s\n");
    EXPECT_EQ(argumentsFor(-5s), "status --json --watch --interval 1s\n");
}

TEST(StatusStream, TheToolSeesOneFixedPathAndEveryOtherVariable)
{
    const ScopedVariable mine("ZOLVA_TEST_MINE", "kept as it is");
    Bridge bridge(R"(printf %s "$PATH|$ZOLVA_TEST_MINE" > "$here/seen"; cat "$here/line")");
    drained(bridge.runner.statusStream(1s));
    EXPECT_EQ(bridge.tool.written("seen"),
              "/opt/homebrew/bin:/opt/homebrew/sbin:/usr/local/bin:/usr/local/sbin:/usr/bin:"
              "/usr/sbin:/bin:/sbin|kept as it is");
}

TEST(StatusStream, GarbageIsForgottenOnceGoodLinesCome)
{
    const Stream stream =
        streamOf(R"(echo garbage; echo '{"host":1}'; echo; cat "$here/line" "$here/line")");
    EXPECT_EQ(stream.readings.size(), 2U);
    EXPECT_FALSE(stream.failure);
}

TEST(StatusStream, GarbageBetweenGoodLinesDoesNotEndIt)
{
    const Stream stream = streamOf(R"(cat "$here/line"; echo '}'; cat "$here/line")");
    EXPECT_EQ(stream.readings.size(), 2U);
    EXPECT_FALSE(stream.failure);
}

TEST(StatusStream, OnlyGarbageAndStatusZeroIsADecodingFailureOfTheLastLine)
{
    const Stream stream = streamOf(R"(echo garbage; echo '{"host":1}'; echo sorry >&2)");
    EXPECT_TRUE(stream.readings.empty());
    const auto* failure = decodingOf(stream.failure);
    ASSERT_NE(failure, nullptr);
    EXPECT_EQ(failure->text, "\"collected_at\" is missing");
}

TEST(StatusStream, OnlyGarbageAndAnotherStatusIsThatStatus)
{
    expectExit(streamOf("echo garbage; echo '  no sensors ' >&2; exit 3").failure, 3, "no sensors");
}

TEST(StatusStream, ARecordAndThenACrashEndsItSilently)
{
    for (const char* end : {"exit 7", "kill -SEGV $$"}) {
        const Stream stream = streamOf(std::string("cat \"$here/line\"; echo oh >&2; ") + end);
        EXPECT_EQ(stream.readings.size(), 1U);
        EXPECT_FALSE(stream.failure) << end;
    }
}

TEST(StatusStream, TheStatusOfAToolEndedByASignalIsTheSignalsNumber)
{
    expectExit(streamOf("kill -KILL $$").failure, SIGKILL, "");
}

TEST(StatusStream, NothingPrintedIsAnErrorEvenWithStatusZero)
{
    expectExit(streamOf(":").failure, 0, "mo status produced no output");
    expectExit(streamOf("echo; echo").failure, 0, "mo status produced no output");
    expectExit(streamOf("printf ' \\n\\t' >&2").failure, 0, "mo status produced no output");
    expectExit(streamOf("printf ' why \\n' >&2").failure, 0, "why");
}

TEST(StatusStream, ADateWithAFractionAndOneWithoutBothDecodeInOneStream)
{
    Bridge bridge(R"(cat "$here/fraction" "$here/whole")");
    auto document = statusDocument();
    document["collected_at"] = "2026-01-02T03:04:05.678Z";
    bridge.tool.put("fraction", document.dump() + "\n");
    document["collected_at"] = "2026-01-02T03:04:05Z";
    bridge.tool.put("whole", document.dump() + "\n");
    const Stream stream = drained(bridge.runner.statusStream(1s));
    ASSERT_EQ(stream.readings.size(), 2U);
    EXPECT_EQ(stream.readings[0].collectedAt - stream.readings[1].collectedAt, 678ms);
}

TEST(StatusStream, TheLastLineNeedsNoLineFeed)
{
    EXPECT_EQ(streamOf(R"(head -c -1 "$here/line")").readings.size(), 1U);
}

TEST(StatusStream, ReadingsArriveWhileTheToolRuns)
{
    Bridge bridge(R"(cat "$here/line"; echo $$ > "$here/pid"; exec sleep 1000)");
    const auto stream = bridge.runner.statusStream(1s);
    EXPECT_TRUE(settled(stream->next()));
    pumpUntil([&] { return bridge.tool.numbers("pid").size() == 1; });
    EXPECT_FALSE(isGone(bridge.tool.numbers("pid").at(0)));
}

TEST(StatusStream, WithNoToolThePathLookedAtIsTold)
{
    ManualClock clock;
    TempTree tree;
    LiveMoRunner runner(clock, findMo({tree.path("nowhere")}, {tree.path("first/mo")}));
    const Stream stream = drained(runner.statusStream(1s));
    ASSERT_NE(missingOf(stream.failure), nullptr);
    EXPECT_EQ(missingOf(stream.failure)->path, tree.path("first/mo"));
}

TEST(StatusStream, AToolThatAppearsWhereTheSearchLookedBeforeIsNotRun)
{
    ManualClock clock;
    TempTree tree;
    const std::vector<std::string> resources = {tree.path("lib")};
    const std::vector<std::string> places = {tree.path("first/mo"), tree.path("second/mo")};
    LiveMoRunner runner(clock, findMo(resources, places));
    tree.text("second/mo", "#!/bin/sh\n");
    tree.setMode("second/mo", 0755);
    ASSERT_EQ(findMo(resources, places).path, tree.path("second/mo"));
    const Stream stream = drained(runner.statusStream(1s));
    ASSERT_NE(missingOf(stream.failure), nullptr);
    EXPECT_EQ(missingOf(stream.failure)->path, tree.path("first/mo"));
}

TEST(StatusStream, AToolDeletedAfterStartUpIsNoticedAtTheNextRun)
{
    Bridge bridge(R"(cat "$here/line"; exec sleep 1000)");
    const auto running = bridge.runner.statusStream(1s);
    EXPECT_TRUE(settled(running->next()));
    bridge.tool.remove();
    const Stream next = drained(bridge.runner.statusStream(1s));
    ASSERT_NE(missingOf(next.failure), nullptr);
    EXPECT_EQ(missingOf(next.failure)->path, bridge.tool.path());
    EXPECT_FALSE(running->isFinished());
}

TEST(StatusStream, AToolThatCannotBeLaunchedGivesTheSystemsOwnError)
{
    TempTree tree;
    const std::string path = tree.text("mole", "#!/nowhere/interpreter\n");
    tree.setMode("mole", 0755);
    ManualClock clock;
    LiveMoRunner runner(clock, at(path));
    const Stream stream = drained(runner.statusStream(1s));
    ASSERT_TRUE(stream.failure);
    const auto* error = std::get_if<SystemError>(&*stream.failure);
    ASSERT_NE(error, nullptr);
    EXPECT_FALSE(error->description.empty());
}

TEST(StatusStream, ACancelledStreamEndsSilentlyAndItsToolWithIt)
{
    Bridge bridge(R"(echo $$ > "$here/pid"; printf '{"half":'; exec sleep 1000)");
    const auto stream = bridge.runner.statusStream(1s);
    auto next = stream->next();
    pumpUntil([&] { return bridge.tool.numbers("pid").size() == 1; });
    EXPECT_FALSE(next.isReady());
    stream->cancel();
    EXPECT_FALSE(settled(std::move(next)));
    EXPECT_FALSE(stream->failure());
    pumpUntil([&] { return isGone(bridge.tool.numbers("pid").at(0)); });
    EXPECT_FALSE(stream->failure());
}

TEST(StatusStream, ADroppedStreamEndsItsTool)
{
    Bridge bridge(R"(echo $$ > "$here/pid"; cat "$here/line"; exec sleep 1000)");
    auto stream = bridge.runner.statusStream(1s);
    EXPECT_TRUE(settled(stream->next()));
    stream.reset();
    pumpUntil([&] { return isGone(bridge.tool.numbers("pid").at(0)); });
}

TEST(StatusStream, ACancelTakesWhatTheToolHasStartedToo)
{
    Bridge bridge(R"(sleep 1000 & echo $! > "$here/pid"; cat "$here/line"; wait)");
    const auto stream = bridge.runner.statusStream(1s);
    EXPECT_TRUE(settled(stream->next()));
    const int grandchild = bridge.tool.numbers("pid").at(0);
    EXPECT_FALSE(isGone(grandchild));
    stream->cancel();
    pumpUntil([&] { return isGone(grandchild); });
}

TEST(StatusStream, AToolThatIgnoresTheRequestIsKilledAfterTheGraceTime)
{
    Bridge bridge("trap '' TERM\necho $$ > \"$here/pid\"; cat \"$here/line\"\n"
                  "while :; do sleep 0.01; echo . >> \"$here/beats\"; done");
    const auto stream = bridge.runner.statusStream(1s);
    EXPECT_TRUE(settled(stream->next()));
    const int tool = bridge.tool.numbers("pid").at(0);
    stream->cancel();
    const auto beats = bridge.tool.written("beats").size();
    pumpUntil([&] { return bridge.tool.written("beats").size() > beats + 6; });
    bridge.clock.advance(4999ms);
    EXPECT_FALSE(isGone(tool));
    bridge.clock.advance(1ms);
    pumpUntil([&] { return isGone(tool); });
}

TEST(StatusStream, TheEndOfTheBridgeEndsEveryTool)
{
    ScriptedTool tool("trap '' TERM\necho $$ >> \"$here/pid\"; while :; do sleep 0.01; done");
    ManualClock clock;
    {
        LiveMoRunner runner(clock, at(tool.path()));
        const auto kept = runner.statusStream(1s);
        const auto cancelled = runner.statusStream(1s);
        const auto list = runner.listApps();
        pumpUntil([&] { return tool.numbers("pid").size() == 3; });
        cancelled->cancel();
    }
    for (const int pid : tool.numbers("pid")) {
        pumpUntil([pid] { return isGone(pid); });
    }
}

TEST(StatusStream, StandardErrorOfAnySizeDoesNotBlockTheToolAndIsKeptWhole)
{
    const auto size = static_cast<std::size_t>(bySize(30'000'000, 300'000'000));
    const std::string flood = "head -c " + std::to_string(size) + " /dev/zero | tr '\\0' x >&2\n";
    EXPECT_EQ(streamOf(flood + R"(cat "$here/line")").readings.size(), 1U);

    const Stream failed = streamOf(flood + "exit 9");
    const auto* exit = exitOf(failed.failure);
    ASSERT_NE(exit, nullptr);
    EXPECT_EQ(exit->status, 9);
    EXPECT_TRUE(exit->stderrText == std::string(size, 'x'));
}

TEST(StatusStream, InvalidBytesOnStandardErrorAreReplaced)
{
    expectExit(streamOf("printf 'a\\377b' >&2; exit 1").failure, 1,
               "a\xEF\xBF\xBD"
               "b");
}

TEST(StatusStream, AnEndlessLineIsOneBadLine)
{
    const std::string flood =
        "head -c " + std::to_string(bySize(20'000'000, 200'000'000)) + " /dev/zero | tr '\\0' x\n";
    const Stream good = streamOf(flood + R"(echo; cat "$here/line")");
    EXPECT_EQ(good.readings.size(), 1U);
    EXPECT_FALSE(good.failure);
    const Stream bad = streamOf(flood);
    ASSERT_NE(decodingOf(bad.failure), nullptr);
    EXPECT_EQ(decodingOf(bad.failure)->text, "a line is longer than 1 MiB");
}

TEST(StatusStream, BadLinesOfEveryKindLeaveTheNextGoodLine)
{
    for (const std::string bad : {
             R"(printf '\000\000\n')",
             R"(head -c 100000 /dev/zero | tr '\0' '['; echo)",
             R"(sed 's/"procs":312/"procs":99999999999999999999/' "$here/line")",
             R"(sed 's/"load1":0.5/"load1":1e999/' "$here/line")",
             R"(head -c 5000 /dev/urandom | tr '\n' x; echo)",
             R"(head -c 300 "$here/line"; echo)",
         }) {
        const Stream stream = streamOf(bad + "\ncat \"$here/line\"");
        EXPECT_EQ(stream.readings.size(), 1U) << bad;
        EXPECT_FALSE(stream.failure) << bad;
        EXPECT_NE(decodingOf(streamOf(bad).failure), nullptr) << bad;
    }
}

TEST(StatusStream, StartsAndCancelsLeaveNothingBehind)
{
    Bridge bridge(R"(echo $$ >> "$here/pids"; cat "$here/line"; exec sleep 1000)");
    // What Qt opens once for all children stays open.
    drained(Bridge(":").runner.statusStream(1s));
    const std::size_t before = openDescriptors();
    const std::int64_t cycles = bySize(200, 10'000);
    for (std::int64_t i = 0; i < cycles; ++i) {
        const auto stream = bridge.runner.statusStream(1s);
        if (i % 4 == 1) {
            pumpOnce();
        } else if (i % 4 == 2) {
            auto first = settled(stream->next());
            EXPECT_TRUE(first);
        } // otherwise it is cancelled before it could start, or dropped
        if (i % 4 != 3) {
            stream->cancel();
        }
    }
    // No child is left, and none waits to be collected.
    pumpUntil([] { return ::waitpid(-1, nullptr, WNOHANG) == -1 && errno == ECHILD; });
    pumpUntil([&] { return openDescriptors() == before; });
    EXPECT_GE(bridge.tool.numbers("pids").size(), static_cast<std::size_t>(cycles / 4));
    for (const int pid : bridge.tool.numbers("pids")) {
        EXPECT_TRUE(isGone(pid));
    }
}

} // namespace zolva::test
