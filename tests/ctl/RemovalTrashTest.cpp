#include "ctl/RemovalHome.h"

#include "diagnostics/RunJournal.h"
#include "diagnostics/RunLock.h"
#include "files/SizeText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>
#include <stdexcept>

namespace zolva::test {

namespace {

using ::testing::ElementsAre;
using ::testing::EndsWith;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::MatchesRegex;
using ::testing::StartsWith;

const std::string nothingDone = "zolvactl: nothing was done\n";

TEST(TrashCommand, MovesEachPathAndTellsWhereItIs)
{
    RemovalHome home;
    const std::string first = home.tree.file("Documents/a", 5000);
    const std::string second = home.tree.file("Documents/sub/b", 9000);
    const std::int64_t small = blocksOf(first);
    const std::int64_t large = blocksOf(second);
    const Outcome outcome = home.run({"trash", first, second, "--yes", "--json"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.out, movedDocument(movedJson(first, small, home.inTrash("a")) + "," +
                                             movedJson(second, large, home.inTrash("b")),
                                         small + large));
    EXPECT_THAT(home.trash(), ElementsAre("a", "b"));
    EXPECT_FALSE(home.has("Documents/a"));
}

TEST(TrashCommand, ToPeopleTellsTheToasts)
{
    RemovalHome home;
    const std::int64_t bytes = blocksOf(home.tree.file("Documents/a", 5000));
    const Outcome outcome = home.run({"trash", home.tree.path("Documents/a"), "--yes"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.out, "Moved " + sizeText(bytes) + " to the Trash\n");
    EXPECT_EQ(outcome.err, "");
}

TEST(TrashCommand, ResolvesRelativePathsAgainstTheCurrentFolder)
{
    RemovalHome home;
    home.tree.file("Documents/a");
    const Outcome outcome = ChildRun({"trash", "a", "--yes"})
                                .home(home.tree.root())
                                .in(home.tree.path("Documents"))
                                .run();
    EXPECT_EQ(outcome.code, 0);
    EXPECT_THAT(home.trash(), ElementsAre("a"));
}

TEST(TrashCommand, TakesATildeAsTheScansWriteItAndNamesThatBeginWithOne)
{
    RemovalHome home;
    home.tree.file("Documents/a");
    home.tree.file("Documents/~b");
    const Outcome outcome = ChildRun({"trash", "~/Documents/a", "~b", "--yes"})
                                .home(home.tree.root())
                                .in(home.tree.path("Documents"))
                                .run();
    EXPECT_EQ(outcome.code, 0);
    EXPECT_THAT(home.trash(), ElementsAre("a", "~b"));
}

TEST(TrashCommand, ARefusedPathStaysAndFailsWhileTheOthersGo)
{
    RemovalHome home;
    home.tree.file("Documents/a", 5000);
    const std::string container = home.tree.path("Documents");
    const Outcome outcome =
        home.run({"trash", container, home.tree.path("Documents/a"), "--yes", "--json"});
    EXPECT_EQ(outcome.code, 1);
    EXPECT_THAT(outcome.out,
                StartsWith(json("{'outcomes':[{'path':'" + container +
                                "','outcome':'refused','bytes':null,'text':'" + container +
                                " is a protected container','landed':null},")));
    EXPECT_THAT(outcome.out, HasSubstr(json("'kind':'warning','text':'Skipped 1 item: " +
                                            container + " is a protected container'")));
    EXPECT_TRUE(home.has("Documents"));
    EXPECT_FALSE(home.has("Documents/a"));
}

TEST(TrashCommand, WhatIsAlreadyGoneIsNoFailure)
{
    const RemovalHome home;
    const std::string path = home.tree.path("Documents/none");
    const Outcome outcome = home.run({"trash", path, "--yes", "--json"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_THAT(outcome.out, StartsWith(json("{'outcomes':[{'path':'" + path +
                                             "','outcome':'alreadyAbsent','bytes':null,"
                                             "'text':null,'landed':null}],'purged':0")));
}

TEST(TrashCommand, AnExcludedPathStaysAndIsNoFailure)
{
    RemovalHome home;
    const std::string path = home.tree.file("Documents/mine/a");
    ASSERT_EQ(home.run({"exclusions", "add", "~/Documents/mine"}).code, 0);
    EXPECT_EQ(home.run({"trash", path, "--dry-run", "--json"}).out, json("{'would':[]}\n"));
    const Outcome outcome = home.run({"trash", path, "--yes", "--json"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.out, json("{'outcomes':[],'purged':0,'problems':[],'freed':0,"
                                "'stopped':false,'toasts':[]}\n"));
    EXPECT_TRUE(home.has("Documents/mine/a"));
}

TEST(TrashCommand, AnExclusionMadeOrTakenBackWhileTheQuestionStandsStillHoldsItsPath)
{
    RemovalHome home;
    const std::string taken = home.tree.file("Documents/taken");
    const std::string made = home.tree.file("Documents/made");
    const std::string free = home.tree.file("Documents/free");
    ASSERT_EQ(home.run({"exclusions", "add", taken}).code, 0);
    const Outcome outcome =
        ChildRun({"trash", taken, made, free})
            .home(home.tree.root())
            .answerAfter("[y/N] ", "y\n",
                         [&] {
                             EXPECT_EQ(home.run({"exclusions", "remove", taken}).code, 0);
                             EXPECT_EQ(home.run({"exclusions", "add", made}).code, 0);
                         })
            .run();
    EXPECT_EQ(outcome.code, 0);
    EXPECT_THAT(home.trash(), ElementsAre("free"));
}

TEST(TrashCommand, ADryRunTouchesNothingAndTellsRefusals)
{
    RemovalHome home;
    const std::string path = home.tree.file("Documents/a", 5000);
    const std::string container = home.tree.path("Documents");
    const auto before = home.all();
    const Outcome outcome =
        home.run({"trash", path, container, "--dry-run", "--yes", "--permanent", "--json"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.out, json("{'would':[{'path':'" + path + "','bytes':" +
                                std::to_string(blocksOf(path)) + ",'refusal':null},{'path':'" +
                                container + "','bytes':" + std::to_string(blocksOf(path)) +
                                ",'refusal':'" + container + " is a protected container'}]}\n"));
    EXPECT_EQ(home.all(), before);
    EXPECT_THAT(home.run({"trash", path, "--dry-run"}).out, HasSubstr("Would go: 1 item ("));
    EXPECT_EQ(home.all(), before);
}

TEST(TrashCommand, WithoutATerminalAndAnAnswerNothingIsDone)
{
    RemovalHome home;
    const std::string path = home.tree.file("Documents/a");
    const auto before = home.all();
    for (const bool errorsSeen : {false, true}) {
        ChildRun child({"trash", path});
        child.home(home.tree.root());
        const Outcome outcome = errorsSeen ? child.errorsOnTerminal().run() : child.run();
        EXPECT_EQ(outcome.code, 2);
        EXPECT_EQ(outcome.out, "");
        EXPECT_THAT(outcome.err, HasSubstr("there is no terminal to ask on"));
    }
    EXPECT_EQ(home.all(), before);
}

TEST(TrashCommand, AsksOnTheTerminalAndTakesAYes)
{
    RemovalHome home;
    const std::string path = home.tree.file("Documents/a", 5000);
    const std::string size = sizeText(blocksOf(path));
    for (const char* const answer : {"y\n", "YES\r\n"}) {
        home.tree.file("Documents/a", 5000);
        const Outcome outcome =
            ChildRun({"trash", path}).home(home.tree.root()).answerOnTerminal(answer).run();
        EXPECT_EQ(outcome.code, 0) << answer;
        EXPECT_THAT(outcome.err, HasSubstr("Move 1 item (" + size + ") to the Trash? [y/N] "));
        EXPECT_THAT(outcome.err, HasSubstr(path));
        EXPECT_FALSE(home.has("Documents/a")) << answer;
    }
}

TEST(TrashCommand, AnythingButAYesIsANo)
{
    RemovalHome home;
    const std::string path = home.tree.file("Documents/a");
    for (const char* const answer : {"n\n", "\n", "yess\n", " y\n"}) {
        const Outcome outcome =
            ChildRun({"trash", path}).home(home.tree.root()).answerOnTerminal(answer).run();
        EXPECT_EQ(outcome.code, 3) << answer;
        EXPECT_EQ(outcome.out, "") << answer;
        EXPECT_THAT(outcome.err, HasSubstr(nothingDone)) << answer;
    }
    EXPECT_TRUE(home.has("Documents/a"));
    EXPECT_THAT(home.trash(), IsEmpty());
}

TEST(TrashCommand, CtrlCAtTheQuestionIsANo)
{
    RemovalHome home;
    const std::string path = home.tree.file("Documents/a");
    const Outcome outcome = ChildRun({"trash", path, "--json"})
                                .home(home.tree.root())
                                .answerOnTerminal("")
                                .signalAfter("[y/N] ", SIGINT)
                                .run();
    EXPECT_EQ(outcome.code, 3);
    EXPECT_EQ(outcome.out, json("{'outcomes':[],'purged':0,'problems':[],'freed':0,"
                                "'stopped':true,'toasts':[]}\n"));
    EXPECT_TRUE(home.has("Documents/a"));
}

TEST(TrashCommand, CtrlCStopsBetweenTwoItemsAndReports)
{
    RemovalHome home;
    std::vector<std::string> words = {"trash", "--yes"};
    for (int i = 0; i < 400; ++i) {
        words.push_back(home.tree.folder("Documents/d" + std::to_string(i)));
    }
    const Outcome outcome = ChildRun(words)
                                .home(home.tree.root())
                                .errorsOnTerminal()
                                .signalAfter("  1 of 400", SIGINT)
                                .run();
    EXPECT_EQ(outcome.code, 3);
    const auto moved = home.trash().size();
    EXPECT_GT(moved, 0U);
    EXPECT_LT(moved, 400U);
    EXPECT_THAT(outcome.out, StartsWith("Stopped. " + std::to_string(moved) + " item"));
    EXPECT_THAT(outcome.out, HasSubstr(", " + std::to_string(400 - moved) + " left alone.\n"));
    EXPECT_THAT(outcome.err, HasSubstr("Stopping…"));
    // No line is broken: what stands below could not be taken away again.
    EXPECT_THAT(outcome.err, HasSubstr("\x1b[?7lMoving to the Trash  1 of 400  "));
    EXPECT_THAT(outcome.err, EndsWith("\x1b[?7h\r\x1b[K"));
    EXPECT_EQ(journalRead(logFolder(home.tree.root())), std::nullopt);
}

TEST(TrashCommand, AStopWinsOverAFailure)
{
    RemovalHome home;
    std::vector<std::string> words = {"trash", "--yes", home.tree.folder("Documents")};
    for (int i = 0; i < 400; ++i) {
        words.push_back(home.tree.folder("Documents/d" + std::to_string(i)));
    }
    const Outcome outcome = ChildRun(words)
                                .home(home.tree.root())
                                .errorsOnTerminal()
                                .signalAfter("  2 of 401", SIGTERM)
                                .run();
    EXPECT_EQ(outcome.code, 3);
    EXPECT_THAT(outcome.out, HasSubstr("Skipped 1 item: "));
}

TEST(TrashCommand, PermanentDeletesWhatLandedAndNothingElseInTheTrash)
{
    RemovalHome home;
    const std::string path = home.tree.file("Documents/a", 5000);
    const std::string size = sizeText(blocksOf(path));
    home.tree.file(".local/share/Trash/files/old");
    const Outcome outcome = home.run({"trash", path, "--yes", "--permanent", "--json"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_THAT(outcome.out, HasSubstr(json("'purged':1,'problems':[],")));
    EXPECT_THAT(outcome.out,
                HasSubstr(json("'text':'Deleted " + size + " permanently','action':null")));
    EXPECT_THAT(home.trash(), ElementsAre("old"));
    EXPECT_THAT(home.run({"prefs"}).out, HasSubstr("keepInTrash"));
    EXPECT_THAT(home.run({"prefs", "--json"}).out, HasSubstr(json("'keepInTrash':true")));
}

TEST(TrashCommand, TheSettingDeletesTooAndTheQuestionSaysSo)
{
    RemovalHome home;
    const std::string path = home.tree.file("Documents/a", 5000);
    ASSERT_EQ(home.run({"prefs", "set", "keepInTrash", "false"}).code, 0);
    const Outcome outcome =
        ChildRun({"trash", path}).home(home.tree.root()).answerOnTerminal("y\n").run();
    EXPECT_EQ(outcome.code, 0);
    EXPECT_THAT(outcome.err, HasSubstr("Delete 1 item ("));
    EXPECT_THAT(outcome.err, HasSubstr(") for good? [y/N] "));
    EXPECT_THAT(home.trash(), IsEmpty());
    EXPECT_FALSE(home.has("Documents/a"));
}

TEST(TrashCommand, WhileAnotherProcessRemovesNothingIsBegun)
{
    RemovalHome home;
    const std::string path = home.tree.file("Documents/a");
    {
        const RunLock lock(logFolder(home.tree.root()));
        ASSERT_EQ(lock.state(), RunLock::State::Held);
        const Outcome outcome = home.run({"trash", path, "--yes"});
        EXPECT_EQ(outcome.code, 1);
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(outcome.err, "zolvactl: Zolva is already removing files in another process.\n");
        EXPECT_TRUE(home.has("Documents/a"));
        EXPECT_EQ(home.run({"empty-trash", "--yes"}).code, 1);
    }
    EXPECT_EQ(home.run({"trash", path, "--yes"}).code, 0);
}

TEST(TrashCommand, LeavesTheMarkOfARunThatWasCutShortToTheWindow)
{
    RemovalHome home;
    journalBegin(logFolder(home.tree.root()), "clean", 3, std::chrono::system_clock::now());
    EXPECT_EQ(home.run({"trash-meter"}).code, 0);
    EXPECT_EQ(home.run({"trash", home.tree.file("Documents/a"), "--dry-run"}).code, 0);
    EXPECT_NE(journalRead(logFolder(home.tree.root())), std::nullopt);
}

TEST(TrashCommand, APathThatIsNotUtf8GoesWithItsRawForm)
{
    RemovalHome home;
    const std::string path = home.tree.file("Documents/b\xff");
    const Outcome outcome = home.run({"trash", path, "--yes", "--json"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_THAT(outcome.out, HasSubstr(json("b\xef\xbf\xbd','raw':'")));
    EXPECT_THAT(outcome.out, HasSubstr("b%FF\",\"outcome\":\"moved\""));
    EXPECT_THAT(outcome.out, HasSubstr("\"landedRaw\":\""));
    EXPECT_THAT(home.trash(), ElementsAre("b\xff"));
}

TEST(RemovalTests, NeverReachATrashThatIsNotTheirs)
{
    EXPECT_THROW(static_cast<void>(ChildRun({"empty-trash", "--yes"}).home("/root").run()),
                 std::logic_error);
    const TempTree tree;
    EXPECT_THROW(static_cast<void>(ChildRun({"trash", "a", "--yes"})
                                       .home(tree.root())
                                       .variable("XDG_DATA_HOME", std::nullopt)
                                       .run()),
                 std::logic_error);
}

} // namespace

} // namespace zolva::test
