#include "core/MoLocation.h"
#include "core/StatusSample.h"
#include "ctl/Terminal.h"
#include "ctl/ToolTree.h"
#include "support/qt/ScriptedTool.h"

#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <signal.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <regex>
#include <string>
#include <utility>
#include <vector>

namespace zolva::test {

namespace {

using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::MatchesRegex;
using ::testing::StartsWith;

/// Prints the lines, tells its process, and stays until it is ended.
const std::string printsAndStays = "echo $$ > \"$here/pid\"; cat \"$here/lines\"; exec sleep 60";

/// A line with a key that no record knows, and spacing of its own.
std::string oddLine()
{
    return "{ \"later\" : [1,  2]," + statusLine().substr(1);
}

/// What the three readings of the sample that do not depend on this machine's disk look like.
const std::string sampleLines = "  Health          91  / 100     Good\n"
                                "  CPU             12  %         Load 0.50 · 0.25 · 1.00\n"
                                "  Memory         8.0  of 16 GB  normal\n"
                                "  Free space";

TEST(StatusCommand, PrintsTheFirstDocumentAsItCameAndEndsTheTool)
{
    ToolTree tools(printsAndStays);
    tools.tree().text("lines", oddLine() + "\n" + statusLine(99) + "\n");
    const Outcome outcome = tools.run({"status", "--json"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.out, oddLine() + "\n");
    EXPECT_EQ(outcome.err, "");
    EXPECT_TRUE(isGone(std::stoi(tools.written("pid"))));
}

TEST(StatusCommand, ShowsTheFourReadings)
{
    ToolTree tools(printsAndStays);
    tools.tree().text("lines", statusLine() + "\n" + statusLine(99) + "\n");
    const Outcome outcome = tools.run({"status"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_THAT(outcome.out, StartsWith(sampleLines));
    EXPECT_THAT(outcome.out.substr(outcome.out.rfind("Free space")),
                MatchesRegex("Free space +[0-9]+  GB +[0-9]+% of [0-9]+ GB\n"));
}

TEST(StatusCommand, WatchPrintsEveryDocumentUntilTheToolEnds)
{
    ToolTree tools("cat \"$here/lines\"");
    tools.tree().text("lines",
                      statusLine(1) + "\nno document\n" + statusLine(1) + "\n" + oddLine() + "\n");
    const Outcome outcome = tools.run({"--json", "status", "--watch"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.out, statusLine(1) + "\n" + statusLine(1) + "\n" + oddLine() + "\n");
    EXPECT_EQ(outcome.err, "");
}

TEST(StatusCommand, WatchShowsOneBlockForEachReadingWhereNothingCanBeRedrawn)
{
    ToolTree tools("cat \"$here/lines\"");
    tools.tree().text("lines", statusLine() + "\n" + statusLine() + "\n");
    const Outcome outcome = tools.run({"status", "--watch"});
    EXPECT_THAT(outcome.out, StartsWith(sampleLines));
    EXPECT_THAT(outcome.out, HasSubstr("\n\n" + sampleLines));
    EXPECT_THAT(outcome.out, Not(HasSubstr("\x1b")));
    // The room of the real volume may change from one run to the next.
    const auto withoutSpace = [](const std::string& text) {
        return std::regex_replace(text, std::regex("Free space[^\n]*"), "Free space");
    };
    const Outcome dumb =
        tools.command({"status", "--watch"}).variable("TERM", "dumb").outputOnTerminal().run();
    EXPECT_EQ(withoutSpace(outcome.out), withoutSpace(dumb.out));
}

TEST(StatusCommand, WatchRedrawsInPlaceOnATerminal)
{
    ToolTree tools("cat \"$here/lines\"");
    tools.tree().text("lines", statusLine(7) + "\n" + statusLine(8) + "\n");
    const Outcome outcome =
        tools.command({"status", "--watch"}).variable("NO_COLOR", "1").outputOnTerminal().run();
    EXPECT_THAT(outcome.out, StartsWith("\x1b[?7l  Health  "));
    const std::size_t again = outcome.out.find("\x1b[?7h\x1b[?7l\x1b[4A  Health  ");
    ASSERT_NE(again, std::string::npos);
    EXPECT_THAT(outcome.out.substr(0, again), HasSubstr("  CPU              7  %"));
    EXPECT_THAT(outcome.out.substr(again), HasSubstr("  CPU              8  %"));
    EXPECT_THAT(outcome.out, EndsWith(" GB\x1b[K\n\x1b[?7h"));
}

TEST(StatusCommand, OnATerminalTheDocumentsAreNotRedrawn)
{
    ToolTree tools("cat \"$here/lines\"");
    tools.tree().text("lines", statusLine(7) + "\n" + statusLine(8) + "\n");
    const Outcome outcome = tools.command({"status", "--watch", "--json"}).outputOnTerminal().run();
    EXPECT_EQ(outcome.out, statusLine(7) + "\n" + statusLine(8) + "\n");
}

TEST(StatusCommand, AnInterruptedOrTerminatedWatchEndsWithZeroAndEndsTheTool)
{
    for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
        ToolTree tools(printsAndStays);
        tools.tree().text("lines", statusLine() + "\n");
        const Outcome outcome = tools.command({"status", "--watch", "--json"})
                                    .signalAfter(statusLine() + "\n", signal)
                                    .run();
        EXPECT_EQ(outcome.code, 0) << signal;
        EXPECT_EQ(outcome.out, statusLine() + "\n") << signal;
        EXPECT_EQ(outcome.err, "") << signal;
        EXPECT_TRUE(isGone(std::stoi(tools.written("pid")))) << signal;
    }
}

TEST(StatusCommand, AnInterruptEndsIntoTheTerminalToo)
{
    ToolTree tools(printsAndStays);
    tools.tree().text("lines", statusLine() + "\n");
    const Outcome outcome = tools.command({"status", "--watch"})
                                .signalAfter("\x1b[?7h", SIGINT)
                                .outputOnTerminal()
                                .errorsOnTerminal()
                                .run();
    EXPECT_EQ(outcome.code, 0);
    EXPECT_THAT(outcome.out, EndsWith("\x1b[?7h"));
    EXPECT_EQ(outcome.err, "");
}

TEST(StatusCommand, AnInterruptBeforeTheFirstReadingEndsItToo)
{
    for (const char* watch : {"--watch", "--json"}) {
        ToolTree tools("kill -INT $PPID; exec sleep 60");
        const Outcome outcome = tools.run({"status", watch});
        EXPECT_EQ(outcome.code, 0);
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(outcome.err, "");
    }
}

TEST(StatusCommand, AToolThatIgnoresTheRequestIsEndedAllTheSame)
{
    ToolTree tools("trap '' TERM INT; echo $$ > \"$here/pid\"; cat \"$here/lines\"\n"
                   "while :; do sleep 1; done");
    tools.tree().text("lines", statusLine() + "\n");
    const Outcome outcome = tools.run({"status", "--json"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_TRUE(isGone(std::stoi(tools.written("pid"))));
}

TEST(StatusCommand, AsksForTheStoredIntervalUnlessOneIsGiven)
{
    ToolTree tools("echo \"$@\" > \"$here/asked\"; cat \"$here/lines\"");
    tools.tree().text("lines", statusLine() + "\n");
    const auto askedWith = [&tools](std::vector<std::string> more) {
        more.insert(more.begin(), {"status", "--json"});
        EXPECT_EQ(tools.run(more).code, 0);
        return tools.written("asked");
    };
    const std::string words = "status --json --watch --interval ";
    EXPECT_EQ(askedWith({}), words + "1s\n");
    tools.tree().text(".config/zolva/preferences.json", json("{'zolva.pollInterval':7}"));
    EXPECT_EQ(askedWith({}), words + "7s\n");
    EXPECT_EQ(askedWith({"--interval", "30"}), words + "30s\n");
    EXPECT_EQ(askedWith({"--interval=90", "--watch"}), words + "60s\n");
    EXPECT_EQ(askedWith({"--interval", "-5"}), words + "1s\n");
    EXPECT_THAT(tools.run({"prefs", "--json"}).out, HasSubstr(json("'pollInterval':7")));
}

TEST(StatusCommand, AnIntervalThatIsNoWholeNumberIsWrongUsage)
{
    const ToolTree tools("touch \"$here/started\"");
    for (const char* typed : {"", "x", "1.5", "5s", "99999999999999999999"}) {
        const Outcome outcome = tools.run({"status", "--interval", typed});
        EXPECT_EQ(outcome.code, 2) << typed;
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(outcome.err,
                  "zolvactl: status: --interval takes a whole number of seconds, not \"" +
                      std::string(typed) + "\"\n");
    }
    EXPECT_NE(::access(tools.tree().path("started").c_str(), F_OK), 0);
}

TEST(StatusCommand, FailsWithWhatTheUserIsTold)
{
    const std::vector<std::pair<std::string, std::string>> tools = {
        {"echo ' it is broken ' >&2; exit 3", "it is broken"},
        {"printf 'a\\033[2Jb' >&2; exit 3", "a\xef\xbf\xbd[2Jb"},
        {"exit 3", "mo exited with an error"},
        {"exit 0", "mo status produced no output"},
    };
    for (const auto& [script, message] : tools) {
        for (const char* watch : {"--watch", "--json"}) {
            const Outcome outcome = ToolTree(script).run({"status", watch});
            EXPECT_EQ(outcome.code, 1) << script;
            EXPECT_EQ(outcome.out, "") << script;
            EXPECT_EQ(outcome.err, "zolvactl: " + message + "\n") << script;
        }
    }
    const Outcome garbage = ToolTree("echo '{}'").run({"status"});
    EXPECT_EQ(garbage.code, 1);
    EXPECT_THAT(garbage.err, StartsWith("zolvactl: Couldn’t read mo output ("));
}

TEST(StatusCommand, FailsWhereNoToolIs)
{
    for (const std::string& place : installedMo()) {
        ASSERT_FALSE(isExecutableFile(place)) << "a tool of this machine would be found";
    }
    const Outcome outcome = ToolTree().run({"status", "--watch"});
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "zolvactl: mo isn’t installed\n");
}

TEST(StatusCommand, FailsWithAMessageWhenNobodyReadsAnyMore)
{
    ToolTree tools(printsAndStays);
    tools.tree().text("lines", statusLine() + "\n");
    const Outcome outcome =
        tools.command({"status", "--watch", "--json"}).outputToClosedPipe().run();
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(outcome.err, "zolvactl: cannot write the answer: Broken pipe\n");
}

TEST(StatusCommand, SaysNothingAboutTheCharacterSetOfTheEnvironment)
{
    ToolTree tools("cat \"$here/lines\"");
    tools.tree().text("lines", statusLine() + "\n");
    const Outcome outcome =
        tools.command({"status"}).variable("LANG", std::nullopt).variable("LC_ALL", "C").run();
    EXPECT_THAT(outcome.out, StartsWith(sampleLines));
    EXPECT_EQ(outcome.err, "");
}

TEST(WriteUnlessStopped, GivesUpWhatNobodyTakesOnceItIsToldTo)
{
    std::array<int, 2> unread{};
    std::array<int, 2> stop{};
    ASSERT_EQ(::pipe(unread.data()), 0);
    ASSERT_EQ(::pipe(stop.data()), 0);
    const std::string text(std::size_t{4} * 1024 * 1024, 'x');
    ASSERT_EQ(::write(stop[1], "", 1), 1);
    EXPECT_EQ(ctl::writeUnlessStopped(unread[1], text, stop[0]), 0);
    for (const int end : {unread[0], unread[1], stop[0], stop[1]}) {
        ::close(end);
    }
}

TEST(WriteUnlessStopped, WritesAllThatIsTakenAndTellsWhyItCannot)
{
    std::array<int, 2> ends{};
    std::array<int, 2> stop{};
    ASSERT_EQ(::pipe(ends.data()), 0);
    ASSERT_EQ(::pipe(stop.data()), 0);
    EXPECT_EQ(ctl::writeUnlessStopped(ends[1], std::string(10'000, 'x'), stop[0]), 0);
    std::string read(20'000, '\0');
    EXPECT_EQ(::read(ends[0], read.data(), read.size()), 10'000);
    const int full = ::open("/dev/full", O_WRONLY | O_CLOEXEC);
    EXPECT_EQ(ctl::writeUnlessStopped(full, "x", stop[0]), ENOSPC);
    for (const int end : {ends[0], ends[1], stop[0], stop[1], full}) {
        ::close(end);
    }
}

} // namespace

} // namespace zolva::test
