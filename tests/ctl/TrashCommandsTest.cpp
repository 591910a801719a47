#include "ctl/RemovalHome.h"

#include "diagnostics/RunJournal.h"
#include "files/SizeText.h"
#include "support/DroppedCapabilities.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <csignal>

namespace zolva::test {

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::StartsWith;

struct FilledTrash : ::testing::Test
{
    /// Of two files that were moved there by the program itself.
    FilledTrash()
    {
        const Outcome moved = home.run({"trash", home.tree.file("Documents/sub/a", 5000),
                                        home.tree.file("Documents/b", 9000), "--yes"});
        EXPECT_EQ(moved.code, 0);
    }

    RemovalHome home;
};

} // namespace

TEST_F(FilledTrash, NamesGoBackToWhereTheyCameFrom)
{
    const Outcome outcome = home.run({"put-back", "a", "b", "--json"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.out, json("{'restored':['" + home.tree.path("Documents/sub/a") + "','" +
                                home.tree.path("Documents/b") + "'],'problems':[]}\n"));
    EXPECT_TRUE(home.has("Documents/sub/a"));
    EXPECT_TRUE(home.has("Documents/b"));
    EXPECT_THAT(home.trash(), IsEmpty());
    EXPECT_FALSE(home.has(".local/share/Trash/info/a.trashinfo"));
}

TEST_F(FilledTrash, AFolderThatIsGoneIsMadeAgain)
{
    ASSERT_EQ(home.run({"trash", home.tree.path("Documents/sub"), "--yes"}).code, 0);
    ASSERT_FALSE(home.has("Documents/sub"));
    const Outcome outcome = home.run({"put-back", "a"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.out, "Put back " + home.tree.path("Documents/sub/a") + "\n");
    EXPECT_TRUE(home.has("Documents/sub/a"));
}

TEST_F(FilledTrash, NothingIsOverwrittenAndTheOthersGoBack)
{
    home.tree.text("Documents/b", "new");
    const Outcome outcome = home.run({"put-back", "b", "a", "--json"});
    EXPECT_EQ(outcome.code, 1);
    EXPECT_THAT(outcome.out, HasSubstr(json("'problems':['b: ")));
    EXPECT_EQ(blocksOf(home.tree.path("Documents/b")), blocksOf(home.tree.text("x", "new")));
    EXPECT_THAT(home.trash(), ElementsAre("b"));
    EXPECT_TRUE(home.has("Documents/sub/a"));
}

TEST_F(FilledTrash, WhatIsNoNameThereStaysWhereItIs)
{
    const auto before = home.all();
    for (const char* const name : {"none", "", ".", "..", "../info/a.trashinfo", "/etc/passwd"}) {
        EXPECT_EQ(home.run({"put-back", name}).code, 1) << name;
    }
    EXPECT_EQ(home.all(), before);
}

TEST_F(FilledTrash, TheGuardIsAskedAboutTheDestination)
{
    home.tree.text(".local/share/Trash/files/evil", "x");
    home.tree.text(".local/share/Trash/info/evil.trashinfo",
                   "[Trash Info]\nPath=/usr/evil\nDeletionDate=2026-01-01T00:00:00\n");
    const auto before = home.all();
    const Outcome outcome = home.run({"put-back", "evil", "--json"});
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(outcome.out,
              json("{'restored':[],'problems':['evil: /usr/evil is outside the locations Zolva "
                   "manages']}\n"));
    EXPECT_EQ(home.all(), before);
}

TEST_F(FilledTrash, TheMeterCountsAndMeasures)
{
    const std::int64_t bytes = blocksOf(home.inTrash("a")) + blocksOf(home.inTrash("b"));
    const Outcome outcome = home.run({"trash-meter", "--json"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.out,
              json("{'bytes':" + std::to_string(bytes) + ",'count':2,'unreadable':false}\n"));
    EXPECT_EQ(home.run({"trash-meter"}).out, sizeText(bytes) + " in 2 items\n");
}

TEST(TrashMeterCommand, ATrashThatDoesNotExistIsEmptyAndIsNotMade)
{
    const RemovalHome home;
    const auto before = home.all();
    EXPECT_EQ(home.run({"trash-meter", "--json"}).out,
              json("{'bytes':0,'count':0,'unreadable':false}\n"));
    EXPECT_EQ(home.all(), before);
}

TEST(TrashMeterCommand, ATrashThatCannotBeReadIsNoFailureButEmptyingItIs)
{
    RemovalHome home;
    home.tree.file(".local/share/Trash/files/a");
    home.tree.setMode(".local/share/Trash/files", 0);
    withoutOverridingPermissions([&] {
        const Outcome outcome = home.run({"trash-meter", "--json"});
        EXPECT_EQ(outcome.code, 0);
        EXPECT_EQ(outcome.out, json("{'bytes':0,'count':0,'unreadable':true}\n"));
        EXPECT_EQ(home.run({"trash-meter"}).out, "The Trash cannot be read.\n");
        const Outcome shown = home.run({"empty-trash", "--dry-run", "--json"});
        EXPECT_EQ(shown.code, 1);
        EXPECT_EQ(shown.out, "");
        EXPECT_THAT(shown.err, StartsWith("zolvactl: the Trash cannot be read: "));
        const Outcome emptied = home.run({"empty-trash", "--yes", "--json"});
        EXPECT_EQ(emptied.code, 1);
        EXPECT_EQ(emptied.out,
                  json("{'emptied':0,'failed':0,'toasts':[{'kind':'warning','text':") +
                      "\"Zolva can't read the Trash. Grant Full Disk Access in System Settings.\"" +
                      json(",'action':null}]}\n"));
    });
}

TEST_F(FilledTrash, EmptyingDeletesAllOfItForGood)
{
    home.tree.file(".local/share/Trash/files/.hidden");
    const Outcome outcome = home.run({"empty-trash", "--yes", "--json"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.out, json("{'emptied':3,'failed':0,'toasts':[{'kind':'success','text':"
                                "'Trash emptied.','action':null}]}\n"));
    EXPECT_THAT(home.trash(), IsEmpty());
    EXPECT_FALSE(home.has(".local/share/Trash/info/a.trashinfo"));
    EXPECT_EQ(journalRead(logFolder(home.tree.root())), std::nullopt);
    const Outcome again = home.run({"empty-trash", "--yes"});
    EXPECT_EQ(again.code, 0);
    EXPECT_EQ(again.out, "The Trash is already empty.\n");
}

TEST(EmptyTrashCommand, CtrlCStopsNothing)
{
    RemovalHome home;
    for (int i = 0; i < 400; ++i) {
        home.tree.folder(".local/share/Trash/files/d" + std::to_string(i));
    }
    const Outcome outcome = ChildRun({"empty-trash", "--yes"})
                                .home(home.tree.root())
                                .errorsOnTerminal()
                                .signalAfter("  1 of 400", SIGINT)
                                .run();
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.out, "Trash emptied.\n");
    EXPECT_THAT(outcome.err, HasSubstr("Stopping…"));
    EXPECT_THAT(home.trash(), IsEmpty());
}

TEST_F(FilledTrash, TheQuestionOfEmptyingSaysThatItIsForGood)
{
    const Outcome no =
        ChildRun({"empty-trash", "--json"}).home(home.tree.root()).answerOnTerminal("n\n").run();
    EXPECT_EQ(no.code, 3);
    EXPECT_EQ(no.out, json("{'emptied':0,'failed':0,'toasts':[]}\n"));
    EXPECT_THAT(no.err, HasSubstr("Delete 2 items ("));
    EXPECT_THAT(no.err, HasSubstr(") in the Trash for good? [y/N] "));
    EXPECT_THAT(home.trash(), ElementsAre("a", "b"));
    const Outcome yes =
        ChildRun({"empty-trash"}).home(home.tree.root()).answerOnTerminal("y\n").run();
    EXPECT_EQ(yes.code, 0);
    EXPECT_THAT(home.trash(), IsEmpty());
}

TEST_F(FilledTrash, WhatComesIntoTheTrashWhileTheQuestionStandsIsNotDeleted)
{
    const Outcome outcome =
        ChildRun({"empty-trash", "--json"})
            .home(home.tree.root())
            .answerAfter("[y/N] ", "y\n",
                         [this] { home.tree.file(".local/share/Trash/files/newcomer"); })
            .run();
    EXPECT_EQ(outcome.code, 0);
    EXPECT_THAT(outcome.out, HasSubstr(json("{'emptied':2,'failed':0,")));
    EXPECT_THAT(home.trash(), ElementsAre("newcomer"));
}

TEST_F(FilledTrash, WithoutAnAnswerAndInADryRunNothingIsEmptied)
{
    const auto before = home.all();
    EXPECT_EQ(home.run({"empty-trash"}).code, 2);
    EXPECT_EQ(home.run({"empty-trash", "--dry-run", "--json"}).out,
              json("{'would':[{'path':'" + home.inTrash("a") + "','bytes':" +
                   std::to_string(blocksOf(home.inTrash("a"))) + ",'refusal':null},{'path':'" +
                   home.inTrash("b") + "','bytes':" + std::to_string(blocksOf(home.inTrash("b"))) +
                   ",'refusal':null}]}\n"));
    EXPECT_EQ(home.all(), before);
}

} // namespace zolva::test
