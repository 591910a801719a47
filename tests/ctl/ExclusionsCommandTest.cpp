#include "ctl/ChildRun.h"
#include "support/TempTree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <fstream>
#include <future>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

namespace zolva::test {

namespace {

using ::testing::HasSubstr;
using ::testing::Not;

constexpr const char* file = ".config/zolva/preferences.json";

TEST(ExclusionsCommand, GivesTheStoredListInItsOrder)
{
    TempTree tree;
    tree.text(file, json("{'zolva.whitelist':['~/b','','/a']}"));
    const Outcome outcome = zolvactl(tree.root(), {"exclusions", "--json"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.out, json("{'whitelist':['~/b','/a'],'messages':[]}\n"));
    EXPECT_EQ(zolvactl(tree.root(), {"exclusions"}).out, "Never touch these:\n  ~/b\n  /a\n");
}

TEST(ExclusionsCommand, GivesAnEmptyListAndSaysSoToPeople)
{
    const TempTree tree;
    EXPECT_EQ(zolvactl(tree.root(), {"exclusions", "--json"}).out,
              json("{'whitelist':[],'messages':[]}\n"));
    EXPECT_EQ(zolvactl(tree.root(), {"exclusions"}).out, "Nothing is excluded.\n");
    EXPECT_NE(::access(tree.path(".config").c_str(), F_OK), 0);
}

TEST(ExclusionsCommand, AddStoresTheShortForm)
{
    const TempTree tree;
    const std::string inside = tree.root() + "/x/../Code/";
    const Outcome outcome =
        zolvactl(tree.root(), {"exclusions", "add", inside, " /opt//data ", "--json"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.out, json("{'whitelist':['~/Code','/opt/data'],'messages':["
                                "{'text':'" +
                                inside +
                                "','message':null},"
                                "{'text':' /opt//data ','message':null}]}\n"));
    EXPECT_EQ(zolvactl(tree.root(), {"exclusions"}).out,
              "Never touch these:\n  ~/Code\n  /opt/data\n");
}

TEST(ExclusionsCommand, ARefusedTextGivesItsMessageAndFailsAndTheOthersAreAdded)
{
    const TempTree tree;
    const Outcome outcome = zolvactl(tree.root(), {"--json", "exclusions", "add", "~/P", "~/P/app",
                                                   "Documents", "~", "/", "", "/b"});
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(outcome.out,
              json("{'whitelist':['~/P','/b'],'messages':[{'text':'~/P','message':null},"
                   "{'text':'~/P/app','message':'Already covered by an existing exclusion.'},"
                   "{'text':'Documents',"
                   "'message':'Enter a full path, starting with / or ~.'},"
                   "{'text':'~',"
                   "'message':'That would exclude everything, switching Zolva off.'},"
                   "{'text':'/',"
                   "'message':'That would exclude everything, switching Zolva off.'},"
                   "{'text':'','message':'Enter a path.'},"
                   "{'text':'/b','message':null}]}\n"));
    EXPECT_EQ(outcome.err, "");
}

TEST(ExclusionsCommand, TellsPeopleWhatWasRefused)
{
    const TempTree tree;
    const Outcome outcome = zolvactl(tree.root(), {"exclusions", "add", "Docs\x1b[2J"});
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(outcome.out, "Nothing is excluded.\n");
    EXPECT_EQ(outcome.err, "zolvactl: Docs\xef\xbf\xbd[2J: Enter a full path, starting with / or "
                           "~.\n");
    EXPECT_NE(::access(tree.path(".config").c_str(), F_OK), 0);
}

TEST(ExclusionsCommand, AWiderPathMayFollowNarrowerOnes)
{
    const TempTree tree;
    EXPECT_EQ(zolvactl(tree.root(), {"exclusions", "add", "~/P/app"}).code, 0);
    EXPECT_EQ(zolvactl(tree.root(), {"exclusions", "add", "~/P"}).out,
              "Never touch these:\n  ~/P/app\n  ~/P\n");
}

TEST(ExclusionsCommand, RemoveTakesEveryEqualEntry)
{
    TempTree tree;
    tree.text(file, json("{'zolva.whitelist':['/a','~/b','/a','/']}"));
    EXPECT_EQ(zolvactl(tree.root(), {"exclusions", "remove", "/a", "/", "--json"}).out,
              json("{'whitelist':['~/b'],'messages':[{'text':'/a','message':null},"
                   "{'text':'/','message':null}]}\n"));
}

TEST(ExclusionsCommand, RemoveTakesThePathThatAShellMakesOfAnEntry)
{
    TempTree tree;
    tree.text(file, json("{'zolva.whitelist':['~/b']}"));
    EXPECT_EQ(
        zolvactl(tree.root(), {"exclusions", "remove", tree.path("b"), "--json"}).out,
        json("{'whitelist':[],'messages':[{'text':'" + tree.path("b") + "','message':null}]}\n"));
}

TEST(ExclusionsCommand, RemovingWhatIsNotThereIsToldAndIsNoFailure)
{
    TempTree tree;
    tree.text(file, json("{'zolva.whitelist':['/a']}"));
    const Outcome outcome = zolvactl(tree.root(), {"exclusions", "remove", "/a/b", "--json"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.out, json("{'whitelist':['/a'],'messages':[{'text':'/a/b',"
                                "'message':'Not in the list.'}]}\n"));
    EXPECT_EQ(zolvactl(tree.root(), {"exclusions", "remove", "/a/b"}).err,
              "zolvactl: /a/b: Not in the list.\n");
}

TEST(ExclusionsCommand, KeepsPathsThatAreNotUtf8AndGivesTheirRawForm)
{
    const TempTree tree;
    EXPECT_EQ(zolvactl(tree.root(), {"exclusions", "add", "/a", "~/k\xfe%", "--json"}).out,
              json("{'whitelist':['/a','~/k\xef\xbf\xbd%'],'raw':[null,'~/k%FE%25'],"
                   "'messages':[{'text':'/a','message':null},"
                   "{'text':'~/k\xef\xbf\xbd%','raw':'~/k%FE%25','message':null}]}\n"));
    EXPECT_THAT(zolvactl(tree.root(), {"prefs", "--json"}).out,
                HasSubstr(json("'seenAccessIntro':false,'raw':[null,'~/k%FE%25']}")));
    EXPECT_EQ(zolvactl(tree.root(), {"exclusions", "remove", "~/k\xfe%"}).out,
              "Never touch these:\n  /a\n");
}

TEST(ExclusionsCommand, ChangesTheListAloneAndKeepsTheOtherSettings)
{
    TempTree tree;
    tree.text(file, json("{'zolva.whitelist':['/a'],'zolva.pollInterval':7}"));
    EXPECT_EQ(zolvactl(tree.root(), {"exclusions", "add", "/b"}).code, 0);
    std::ifstream stream(tree.path(file));
    const std::string content{std::istreambuf_iterator<char>(stream), {}};
    EXPECT_THAT(content, HasSubstr("\"zolva.pollInterval\": 7"));
    EXPECT_THAT(content, Not(HasSubstr("zolva.themeMode")));
}

TEST(ExclusionsCommand, AChangeOfAListThatCannotBeReadFails)
{
    TempTree tree;
    tree.folder(file);
    for (const std::string change : {"add", "remove"}) {
        const Outcome outcome = zolvactl(tree.root(), {"exclusions", change, "/a"});
        EXPECT_EQ(outcome.code, 1);
        EXPECT_EQ(outcome.out, "");
        EXPECT_THAT(outcome.err, HasSubstr("zolvactl: preferences not written: "));
    }
}

TEST(ExclusionsCommand, ManyAtOnceLoseNoneOfTheirEntries)
{
    TempTree tree;
    std::vector<std::future<Outcome>> runs;
    std::vector<std::string> expected = {"/old"};
    tree.text(file, json("{'zolva.whitelist':['/old']}"));
    for (int n = 0; n < 6; ++n) {
        expected.push_back("/" + std::to_string(n));
        runs.push_back(std::async(std::launch::async, [&tree, entry = expected.back()] {
            Outcome outcome;
            // One that did not get its turn in time says so.
            for (int tries = 0; tries < 20 && outcome.code != 0; ++tries) {
                outcome = zolvactl(tree.root(), {"exclusions", "add", entry});
            }
            return outcome;
        }));
    }
    for (auto& run : runs) {
        EXPECT_EQ(run.get().code, 0);
    }
    const std::string listed = zolvactl(tree.root(), {"exclusions"}).out;
    for (const std::string& entry : expected) {
        EXPECT_THAT(listed, HasSubstr("  " + entry + "\n"));
    }
}

TEST(ExclusionsCommand, WhatIsNoChangeIsWrongUsage)
{
    const std::vector<std::pair<std::vector<std::string>, std::string>> wrong = {
        {{"exclusions", "list"}, "not expected: list"},
        {{"exclusions", "add"}, "add takes a TEXT"},
        {{"exclusions", "remove"}, "remove takes an ENTRY"},
    };
    const TempTree tree;
    for (const auto& [words, message] : wrong) {
        const Outcome outcome = zolvactl(tree.root(), words);
        EXPECT_EQ(outcome.code, 2);
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(outcome.err, "zolvactl: exclusions: " + message + "\n");
    }
}

TEST(ExclusionsCommand, AddTakesATextThatBeginsWithADashAfterTheMark)
{
    const TempTree tree;
    EXPECT_EQ(zolvactl(tree.root(), {"exclusions", "add", "--", "-x"}).err,
              "zolvactl: -x: Enter a full path, starting with / or ~.\n");
}

} // namespace

} // namespace zolva::test
