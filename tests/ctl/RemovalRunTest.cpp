#include "ctl/RemovalHome.h"

#include "files/SizeText.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>
#include <filesystem>

namespace zolva::test {

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::IsEmpty;
using ::testing::Not;

const char* const emptyDocument =
    "{'outcomes':[],'purged':0,'problems':[],'freed':0,'stopped':false,'toasts':[]}\n";

struct CleanRun : ::testing::Test
{
    CleanRun() { home.tree.file("Library/Caches/CloudKit/data", 1'200'000); }

    RemovalHome home;
    std::int64_t cache = blocksOf(home.tree.file("Library/Caches/plain/data", 1'000'001));
    std::int64_t log = blocksOf(home.tree.file("Library/Logs/noisy/data", 1'100'001));
};

struct PurgeRun : ::testing::Test
{
    PurgeRun()
    {
        age("Code/old/target", 7);
        age("Code/fresh/target", 6);
    }
    void age(const std::string& path, int days)
    {
        const auto time = std::chrono::system_clock::now() - std::chrono::hours(24 * days + 1);
        home.tree.setModified(path + "/bin", time);
        home.tree.setModified(path, time);
    }

    RemovalHome home;
    std::int64_t old = blocksOf(home.tree.file("Code/old/target/bin", 1'100'000));
    std::int64_t fresh = blocksOf(home.tree.file("Code/fresh/target/bin", 1'200'000));
};

struct InstallersRun : ::testing::Test
{
    RemovalHome home;
    std::int64_t image = blocksOf(home.tree.file("Downloads/a.dmg", 20'000));
    std::int64_t package = blocksOf(home.tree.file("Downloads/b.pkg", 30'000));
};

struct Uninstall : ::testing::Test
{
    Uninstall()
    {
        home.tree.file("Library/Caches/org.lumen/data", 9'000);
        list = home.tree.text("apps.json", "[" + listed("Lumen", "org.lumen", lumen) + "," +
                                               listed("Tern", "org.tern", tern) + "]");
    }
    static std::string listed(const std::string& name, const std::string& bundle,
                              const std::string& path)
    {
        return json("{'name':'" + name + "','bundle_id':'" + bundle +
                    "','source':'App','uninstall_name':'" + name + "','path':'" + path +
                    "','size':'3MB'}");
    }

    RemovalHome home;
    std::string lumen = home.tree.folder("Applications/Lumen.app");
    std::string tern = home.tree.folder("Applications/Tern.app");
    std::string list;
};

} // namespace

TEST_F(CleanRun, WithoutNamesMovesAllThatIsNotProtected)
{
    const Outcome outcome = home.run({"clean", "--run", "--yes", "--json"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.out,
              movedDocument(movedJson("~/Library/Caches/plain", cache, home.inTrash("plain")) +
                                "," + movedJson("~/Library/Logs/noisy", log, home.inTrash("noisy")),
                            cache + log));
    EXPECT_TRUE(home.has("Library/Caches/CloudKit/data"));
    EXPECT_THAT(home.trash(), ElementsAre("noisy", "plain"));
}

TEST_F(CleanRun, WithANameMovesThatCategoryAlone)
{
    const Outcome outcome = home.run({"clean", "--run", "Application caches", "--yes"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_THAT(home.trash(), ElementsAre("plain"));
    EXPECT_TRUE(home.has("Library/Logs/noisy"));
}

TEST_F(CleanRun, AnUnknownNameDoesNothingEvenBesideAKnownOne)
{
    const auto before = home.all();
    const Outcome outcome = home.run({"clean", "--run", "Application caches", "Nope", "--yes"});
    EXPECT_EQ(outcome.code, 2);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "zolvactl: the scan lists no category Nope\n");
    EXPECT_EQ(home.all(), before);
}

TEST_F(CleanRun, LeavesTheExcludedAlone)
{
    ASSERT_EQ(home.run({"exclusions", "add", "~/Library/Logs"}).code, 0);
    EXPECT_EQ(home.run({"clean", "--run", "--yes"}).code, 0);
    EXPECT_THAT(home.trash(), ElementsAre("plain"));
    EXPECT_TRUE(home.has("Library/Logs/noisy"));
}

TEST_F(CleanRun, NothingIsRemovedWhereTheExclusionsCannotBeRead)
{
    home.tree.folder(".config/zolva/preferences.json");
    const std::string file = home.tree.file("Documents/a");
    const auto before = home.all();
    const std::vector<std::vector<std::string>> removals = {
        {"clean", "--run", "--yes"},
        {"purge", "--run", "--yes"},
        {"installers", "--run", "--dry-run"},
        {"trash", file, "--yes", "--json"},
    };
    for (const std::vector<std::string>& words : removals) {
        const Outcome outcome = home.run(words);
        EXPECT_EQ(outcome.code, 1);
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(outcome.err, "zolvactl: preferences not read: Invalid argument\n"
                               "zolvactl: Zolva can't read your settings: Invalid argument. "
                               "Nothing is cleaned, moved or uninstalled until it knows what "
                               "never to touch.\n");
    }
    EXPECT_EQ(home.all(), before);
    EXPECT_EQ(home.run({"empty-trash", "--yes"}).code, 0);
}

TEST_F(CleanRun, NothingIsRemovedWhereTheExclusionsCannotBeReadAnyMoreWhenTheAnswerCame)
{
    const std::string file = home.tree.path(".config/zolva/preferences.json");
    ASSERT_EQ(home.run({"exclusions", "add", "~/Library/Logs"}).code, 0);
    const Outcome outcome = ChildRun({"clean", "--run"})
                                .home(home.tree.root())
                                .answerAfter("[y/N] ", "y\n",
                                             [&] {
                                                 ASSERT_TRUE(std::filesystem::remove(file));
                                                 std::filesystem::create_directory(file);
                                             })
                                .run();
    EXPECT_EQ(outcome.code, 1);
    EXPECT_THAT(outcome.err, HasSubstr("zolvactl: Zolva can't read your settings: "));
    EXPECT_TRUE(home.has("Library/Caches/plain"));
    EXPECT_TRUE(home.has("Library/Logs/noisy"));
}

TEST_F(CleanRun, DamagedSettingsAreToldAtEachRemovalUntilThereAreNewOnes)
{
    home.tree.text(".config/zolva/preferences.json", "{");
    const std::string note = "zolvactl: Your settings were damaged, so nothing is listed under "
                             "\"Never touch these\". The old file is "
                             "~/.config/zolva/preferences.json.damaged.\n";
    const Outcome first = home.run({"clean", "--run", "--dry-run"});
    EXPECT_EQ(first.code, 0);
    EXPECT_THAT(first.err, HasSubstr(note));
    EXPECT_EQ(home.run({"clean", "--run", "--dry-run"}).err, note);
    ASSERT_EQ(home.run({"exclusions", "add", "~/Library/Logs"}).code, 0);
    EXPECT_EQ(home.run({"clean", "--run", "--dry-run"}).err, "");
}

TEST_F(CleanRun, ADryRunTouchesNothing)
{
    const auto before = home.all();
    const Outcome outcome = home.run({"clean", "--run", "--dry-run", "--json"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.out,
              json("{'would':[{'path':'~/Library/Caches/plain','bytes':" + std::to_string(cache) +
                   ",'refusal':null},{'path':'~/Library/Logs/noisy','bytes':" +
                   std::to_string(log) + ",'refusal':null}]}\n"));
    EXPECT_EQ(home.all(), before);
}

TEST_F(CleanRun, WithoutATerminalAndAnAnswerNothingIsDone)
{
    const auto before = home.all();
    EXPECT_EQ(home.run({"clean", "--run"}).code, 2);
    EXPECT_EQ(home.all(), before);
}

TEST_F(CleanRun, ListsOnlyWithoutRun)
{
    const auto before = home.all();
    EXPECT_EQ(home.run({"clean"}).code, 0);
    EXPECT_EQ(home.all(), before);
}

TEST_F(CleanRun, PermanentDeletes)
{
    EXPECT_EQ(home.run({"clean", "--run", "--yes", "--permanent"}).out,
              "Deleted " + sizeText(cache + log) + " permanently\n");
    EXPECT_THAT(home.trash(), IsEmpty());
    EXPECT_FALSE(home.has("Library/Caches/plain"));
    EXPECT_TRUE(home.has("Library/Caches/CloudKit/data"));
}

TEST(CleanRunOfNothing, SaysSo)
{
    const RemovalHome home;
    EXPECT_EQ(home.run({"clean", "--run", "--yes", "--json"}).out, json(emptyDocument));
    const Outcome outcome = home.run({"purge", "--run", "--yes"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.out, "Nothing to remove.\n");
}

TEST_F(PurgeRun, WithoutNamesMovesOnlyWhatIsAWeekOld)
{
    const Outcome outcome = home.run({"purge", "--run", "--yes", "--json"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.out,
              movedDocument(movedJson("~/Code/old/target", old, home.inTrash("target")), old));
    EXPECT_TRUE(home.has("Code/fresh/target/bin"));
    EXPECT_TRUE(home.has("Code/old"));
}

TEST_F(PurgeRun, TakesKeysWithATildeAndFromTheRootHoweverYoung)
{
    const Outcome outcome = home.run(
        {"purge", "--run", "~/Code/fresh/target", home.tree.path("Code/old/target"), "--yes"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_THAT(home.trash(), ElementsAre("target", "target 2"));
}

TEST_F(PurgeRun, AnUnknownKeyDoesNothing)
{
    const auto before = home.all();
    for (const char* const key : {"~/Code/old", "~/Code/old/target/bin", "~/Documents", ""}) {
        const Outcome outcome =
            home.run({"purge", "--run", "~/Code/old/target", key, "--yes", "--json"});
        EXPECT_EQ(outcome.code, 2) << key;
        EXPECT_EQ(outcome.out, "") << key;
    }
    EXPECT_EQ(home.all(), before);
}

TEST_F(PurgeRun, LeavesTheExcludedAloneAlsoWhenNamed)
{
    ASSERT_EQ(home.run({"exclusions", "add", "~/Code/old"}).code, 0);
    const Outcome outcome = home.run({"purge", "--run", "~/Code/old/target", "--yes", "--json"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.out, json(emptyDocument));
    EXPECT_TRUE(home.has("Code/old/target/bin"));
}

TEST_F(PurgeRun, ADryRunTouchesNothing)
{
    const auto before = home.all();
    EXPECT_EQ(home.run({"purge", "--run", "--dry-run", "--json"}).out,
              json("{'would':[{'path':'~/Code/old/target','bytes':" + std::to_string(old) +
                   ",'refusal':null}]}\n"));
    EXPECT_EQ(home.all(), before);
}

TEST_F(InstallersRun, WithoutNamesMovesAll)
{
    const Outcome outcome = home.run({"installers", "--run", "--yes", "--json"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_THAT(outcome.out, HasSubstr(json("'freed':" + std::to_string(image + package))));
    EXPECT_THAT(home.trash(), ElementsAre("a.dmg", "b.pkg"));
}

TEST_F(InstallersRun, TakesPathsAndLeavesTheOthers)
{
    EXPECT_EQ(home.run({"installers", "--run", "~/Downloads/a.dmg", "--yes"}).code, 0);
    EXPECT_THAT(home.trash(), ElementsAre("a.dmg"));
    EXPECT_TRUE(home.has("Downloads/b.pkg"));
}

TEST_F(InstallersRun, AnUnknownPathAndADryRunAndAnExclusionTouchNothing)
{
    home.tree.file("Downloads/letter.txt");
    auto before = home.all();
    EXPECT_EQ(home.run({"installers", "--run", "~/Downloads/letter.txt", "--yes"}).code, 2);
    EXPECT_THAT(home.run({"installers", "--run", "--dry-run"}).out, HasSubstr("2 items"));
    EXPECT_EQ(home.all(), before);
    ASSERT_EQ(home.run({"exclusions", "add", "~/Downloads"}).code, 0);
    before = home.all();
    EXPECT_EQ(home.run({"installers", "--run", "--dry-run", "--json"}).out, json("{'would':[]}\n"));
    EXPECT_EQ(home.all(), before);
    EXPECT_EQ(home.run({"installers", "--run", "--yes"}).code, 0);
    EXPECT_TRUE(home.has("Downloads/a.dmg"));
    EXPECT_THAT(home.trash(), IsEmpty());
}

TEST_F(Uninstall, DeletesTheBundleAndWhatItLeftForGood)
{
    const Outcome outcome = home.run({"uninstall", lumen, "--apps", list, "--yes", "--json"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.out, json("{'uninstalled':1,'stuck':[],'stillRunning':[],'toasts':[{"
                                "'kind':'success','text':'Uninstalled 1 app','action':null}]}\n"));
    EXPECT_FALSE(home.has("Applications/Lumen.app"));
    EXPECT_FALSE(home.has("Library/Caches/org.lumen"));
    EXPECT_TRUE(home.has("Applications/Tern.app"));
    EXPECT_THAT(home.trash(), IsEmpty());
}

TEST_F(Uninstall, TheQuestionSaysThatItIsForGoodAndANoTouchesNothing)
{
    const auto before = home.all();
    const Outcome outcome = ChildRun({"uninstall", "~/Applications/Lumen.app", "--apps", list})
                                .home(home.tree.root())
                                .answerOnTerminal("n\n")
                                .run();
    EXPECT_EQ(outcome.code, 3);
    EXPECT_THAT(outcome.err, HasSubstr("Quit and uninstall 1 app, and delete 2 items ("));
    EXPECT_THAT(outcome.err, HasSubstr(") for good? [y/N] "));
    EXPECT_EQ(home.all(), before);
}

TEST_F(Uninstall, AsksAlsoWhereNothingWouldGoSinceItQuitsTheApplication)
{
    for (const std::string path : {"Applications/Lumen.app", "Library/Caches/org.lumen"}) {
        ASSERT_EQ(home.run({"exclusions", "add", "~/" + path}).code, 0);
    }
    const Outcome outcome = ChildRun({"uninstall", lumen, "--apps", list, "--json"})
                                .home(home.tree.root())
                                .answerOnTerminal("n\n")
                                .run();
    EXPECT_EQ(outcome.code, 3);
    EXPECT_THAT(
        outcome.err,
        HasSubstr("Quit and uninstall 1 app, and delete 0 items (0 bytes) for good? [y/N] "));
}

TEST_F(Uninstall, AnExclusionTakenBackWhileTheQuestionStandsStillHoldsItsPath)
{
    ASSERT_EQ(home.run({"exclusions", "add", "~/Library/Caches/org.lumen"}).code, 0);
    const Outcome outcome =
        ChildRun({"uninstall", lumen, "--apps", list})
            .home(home.tree.root())
            .answerAfter(
                "[y/N] ", "y\n",
                [this] {
                    EXPECT_EQ(home.run({"exclusions", "remove", "~/Library/Caches/org.lumen"}).code,
                              0);
                })
            .run();
    EXPECT_EQ(outcome.code, 0);
    EXPECT_FALSE(home.has("Applications/Lumen.app"));
    EXPECT_TRUE(home.has("Library/Caches/org.lumen"));
}

TEST_F(Uninstall, OfTwoCopiesTheOneThatStaysKeepsTheLeftovers)
{
    const std::string copy = home.tree.folder("Applications/Old/Lumen.app");
    const std::string both =
        home.tree.text("both.json", "[" + listed("Lumen", "org.lumen", lumen) + "," +
                                        listed("Lumen", "org.lumen", copy) + "]");
    EXPECT_EQ(home.run({"uninstall", lumen, "--apps", both, "--yes"}).code, 0);
    EXPECT_FALSE(home.has("Applications/Lumen.app"));
    EXPECT_TRUE(home.has("Applications/Old/Lumen.app"));
    EXPECT_TRUE(home.has("Library/Caches/org.lumen/data"));
}

TEST_F(Uninstall, AnUnknownPathDoesNothing)
{
    const auto before = home.all();
    const Outcome outcome = home.run(
        {"uninstall", lumen, "~/Applications/Other.app", "--apps", list, "--yes", "--json"});
    EXPECT_EQ(outcome.code, 2);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err, "zolvactl: no application is listed at ~/Applications/Other.app\n");
    EXPECT_EQ(home.all(), before);
}

TEST_F(Uninstall, ADryRunListsTheLeftoversAndTouchesNothing)
{
    const auto before = home.all();
    const Outcome outcome = home.run({"uninstall", lumen, "--apps", list, "--dry-run", "--json"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_THAT(outcome.out, HasSubstr("Library/Caches/org.lumen\""));
    EXPECT_THAT(outcome.out, HasSubstr("Applications/Lumen.app\""));
    EXPECT_THAT(outcome.out, Not(HasSubstr("Tern.app")));
    EXPECT_EQ(home.all(), before);
}

TEST_F(Uninstall, WhatIsExcludedStaysAndTheApplicationIsStuck)
{
    ASSERT_EQ(home.run({"exclusions", "add", "~/Applications/Lumen.app"}).code, 0);
    const Outcome outcome = home.run({"uninstall", lumen, "--apps", list, "--yes", "--json"});
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(outcome.out,
              json("{'uninstalled':0,'stuck':['" + lumen +
                   "'],'stillRunning':[],'toasts':[{'kind':'warning','text':") +
                  "\"Couldn't uninstall 1 app. It may need an administrator password.\"" +
                  json(",'action':'Authenticate…'}]}\n"));
    EXPECT_TRUE(home.has("Applications/Lumen.app"));
}

TEST_F(Uninstall, WithoutAnAnswerOrAListNothingIsDone)
{
    const auto before = home.all();
    EXPECT_EQ(home.run({"uninstall", lumen, "--apps", list}).code, 2);
    EXPECT_EQ(home.run({"uninstall", lumen, "--apps", home.tree.path("none"), "--yes"}).code, 1);
    EXPECT_EQ(home.all(), before);
}

} // namespace zolva::test
