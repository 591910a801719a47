#include "ctl/ChildRun.h"
#include "support/TempTree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace zolva::test {

namespace {

using ::testing::HasSubstr;
using ::testing::MatchesRegex;
using ::testing::StartsWith;

using Words = std::vector<std::string>;

const std::string nowhere = "/nonexistent-home";

TEST(WrongUsage, EndsWithTwoAMessageAndNoOutput)
{
    const std::vector<std::pair<Words, std::string>> wrong = {
        {{}, "a command is needed"},
        {{"--json"}, "a command is needed"},
        {{"--bogus"}, "a command is needed"},
        {{""}, "a command is needed"},
        {{"--", "check", "a"}, "a command is needed"},
        {{"nope"}, "there is no command nope"},
        {{"check"}, "PATH"},
        {{"excluded", "--list", "/a"}, "PATH"},
        {{"validate-exclusion"}, "TEXT"},
        {{"validate-exclusion", "a", "b"}, "not expected: b"},
        {{"tally"}, "PATH"},
        {{"size"}, "BYTES"},
        {{"clean", "x"}, "clean only lists without --run"},
        {{"purge", "--yes"}, "purge only lists without --run"},
        {{"installers", "--dry-run"}, "installers only lists without --run"},
        {{"clean", "--permanent"}, "clean only lists without --run"},
        {{"summary", "purge"}, "not expected: purge"},
        {{"trash"}, "PATH"},
        {{"uninstall", "--yes"}, "PATH"},
        {{"uninstall", "a", "--permanent"}, "not expected: --permanent"},
        {{"empty-trash", "--permanent"}, "not expected: --permanent"},
        {{"empty-trash", "x"}, "not expected: x"},
        {{"trash", "a", "--run"}, "not expected: --run"},
        {{"put-back"}, "NAME"},
        {{"put-back", "a", "--yes"}, "not expected: --yes"},
        {{"trash-meter", "x"}, "not expected: x"},
        {{"analyze", "a", "b"}, "not expected: b"},
        {{"summary", "x"}, "not expected: x"},
        {{"check", "a", "--bogus"}, "not expected: --bogus"},
        {{"check", "a", "--list", "b"}, "not expected: --list"},
        {{"apps", "--apps"}, "--apps"},
        {{"apps", "--apps", "--json"}, "--apps needs a value"},
        {{"leftovers", "--apps", "f"}, "--path is required"},
        {{"leftovers", "--apps", "f", "--path", "a", "--path", "b"}, "--path"},
        {{"--json=no", "size", "1"}, "not expected: no"},
        {{"leftovers"}, "--path is required"},
        {{"version", "x"}, "not expected: x"},
        {{"status", "x"}, "not expected: x"},
        {{"status", "--interval"}, "--interval"},
    };
    for (const auto& [words, message] : wrong) {
        const Outcome outcome = zolvactl(nowhere, words);
        EXPECT_EQ(outcome.code, 2) << message;
        EXPECT_EQ(outcome.out, "") << message;
        EXPECT_THAT(outcome.err, StartsWith("zolvactl: "));
        EXPECT_THAT(outcome.err, HasSubstr(message));
        EXPECT_THAT(outcome.err, HasSubstr("See zolvactl --help.\n"));
    }
}

TEST(WrongUsage, RepeatsWhatWasTypedWithoutItsControlCharacters)
{
    const Outcome outcome = zolvactl(nowhere, {"summary", "a\x1b[2Jb"});
    EXPECT_THAT(outcome.err, HasSubstr("not expected: a\xef\xbf\xbd[2Jb\n"));
    EXPECT_THAT(outcome.err, Not(HasSubstr("\x1b")));
    EXPECT_THAT(zolvactl(nowhere, {"n\x1b[2J"}).err, Not(HasSubstr("\x1b")));
    EXPECT_THAT(zolvactl(nowhere, {"clean", "--n\x1b[2J"}).err, Not(HasSubstr("\x1b")));
}

TEST(CommandLine, TakesJsonBeforeAndAfterTheCommand)
{
    const std::string expected = json("{'sizes':[{'bytes':1,'text':'1 bytes'}]}\n");
    EXPECT_EQ(zolvactl(nowhere, {"--json", "size", "1"}).out, expected);
    EXPECT_EQ(zolvactl(nowhere, {"size", "--json", "1"}).out, expected);
    EXPECT_EQ(zolvactl(nowhere, {"size", "1", "--json"}).out, expected);
    EXPECT_EQ(zolvactl(nowhere, {"--json", "size", "1", "--json"}).out, expected);
}

TEST(CommandLine, HelpsOnStandardOutput)
{
    for (const Words& words : {Words{"--help"}, Words{"-h"}}) {
        const Outcome outcome = zolvactl(nowhere, words);
        EXPECT_EQ(outcome.code, 0);
        EXPECT_EQ(outcome.err, "");
        EXPECT_THAT(outcome.out, HasSubstr("validate-exclusion"));
    }
    const Outcome outcome = zolvactl(nowhere, {"excluded", "--help"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_THAT(outcome.out, HasSubstr("--list ENTRY"));
}

TEST(CommandLine, TellsTheVersion)
{
    const Outcome outcome = zolvactl(nowhere, {"--version"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_THAT(outcome.out, MatchesRegex("zolvactl [0-9]+\\.[0-9]+\\.[0-9]+\n"));
}

TEST(CommandLine, FailsWithAMessageWhenTheDiskIsFull)
{
    const Outcome outcome =
        ChildRun({"size", "1", "--json"}).home(nowhere).outputTo("/dev/full").run();
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(outcome.err, "zolvactl: cannot write the answer: No space left on device\n");
}

TEST(CommandLine, FailsWithAMessageWhenNobodyReadsAnyMore)
{
    for (const Words& words : {Words{"size", "1"}, Words{"--help"}}) {
        const Outcome outcome = ChildRun(words).home(nowhere).outputToClosedPipe().run();
        EXPECT_EQ(outcome.code, 1);
        EXPECT_EQ(outcome.err, "zolvactl: cannot write the answer: Broken pipe\n");
    }
}

TEST(Progress, IsShownOnATerminalAndErasedBeforeTheAnswer)
{
    TempTree tree;
    tree.file("Library/Caches/x/data", 5'000);
    for (const Words& words : {Words{"summary"}, Words{"analyze"}, Words{"analyze", tree.root()},
                               Words{"summary", "--json"}}) {
        const Outcome outcome = ChildRun(words).home(tree.root()).errorsOnTerminal().run();
        EXPECT_EQ(outcome.code, 0);
        EXPECT_THAT(outcome.err, HasSubstr(" so far"));
        EXPECT_THAT(outcome.err, HasSubstr(" files, "));
        EXPECT_TRUE(outcome.err.ends_with("\r\x1b[K")) << outcome.err;
        EXPECT_THAT(outcome.out, Not(HasSubstr("so far")));
    }
}

TEST(Progress, IsNotShownAnywhereElse)
{
    const TempTree tree;
    EXPECT_EQ(zolvactl(tree.root(), {"summary"}).err, "");
    EXPECT_EQ(zolvactl(tree.root(), {"analyze"}).err, "");
    EXPECT_EQ(ChildRun({"summary"})
                  .home(tree.root())
                  .variable("TERM", "dumb")
                  .errorsOnTerminal()
                  .run()
                  .err,
              "");
}

TEST(Colours, AreOnlyForATerminal)
{
    const Words words = {"size", "1"};
    EXPECT_THAT(ChildRun(words).outputOnTerminal().run().out, HasSubstr("\x1b["));
    EXPECT_THAT(ChildRun(words).run().out, Not(HasSubstr("\x1b")));
    EXPECT_THAT(ChildRun({"size", "1", "--json"}).outputOnTerminal().run().out,
                Not(HasSubstr("\x1b")));
}

TEST(Colours, AreNeverThereWithNoColorUnlessItIsEmpty)
{
    const Words words = {"size", "1"};
    EXPECT_THAT(ChildRun(words).variable("NO_COLOR", "1").outputOnTerminal().run().out,
                Not(HasSubstr("\x1b")));
    EXPECT_THAT(ChildRun(words).variable("NO_COLOR", "").outputOnTerminal().run().out,
                HasSubstr("\x1b["));
    EXPECT_THAT(ChildRun(words).variable("TERM", "dumb").outputOnTerminal().run().out,
                Not(HasSubstr("\x1b")));
}

} // namespace

} // namespace zolva::test
