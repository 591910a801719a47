#include "ctl/ChildRun.h"
#include "support/TempTree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <array>
#include <fstream>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

namespace zolva::test {

namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

constexpr const char* file = ".config/zolva/preferences.json";

std::string stored(const TempTree& tree)
{
    std::ifstream stream(tree.path(file));
    return {std::istreambuf_iterator<char>(stream), {}};
}

const std::string defaults =
    json("{'themeMode':'system','pollInterval':1,'diskThreshold':80,'requireTouchID':true,"
         "'keepInTrash':true,'whitelist':[],'seenAccessIntro':false}\n");

TEST(PrefsCommand, GivesTheDefaultsOfAFirstStartAndWritesNothing)
{
    const TempTree tree;
    const Outcome outcome = zolvactl(tree.root(), {"prefs", "--json"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.out, defaults);
    EXPECT_EQ(outcome.err, "");
    EXPECT_NE(::access(tree.path(".config").c_str(), F_OK), 0);
}

TEST(PrefsCommand, GivesWhatIsStoredWithinItsBounds)
{
    TempTree tree;
    tree.text(file, json("{'zolva.themeMode':'mauve','zolva.pollInterval':90,"
                         "'zolva.diskThreshold':0,'zolva.requireTouchID':false,"
                         "'zolva.keepInTrash':'yes','zolva.whitelist':['~/a','','/b'],"
                         "'zolva.seenAccessIntro':true}"));
    EXPECT_EQ(zolvactl(tree.root(), {"--json", "prefs"}).out,
              json("{'themeMode':'system','pollInterval':60,'diskThreshold':1,"
                   "'requireTouchID':false,'keepInTrash':false,'whitelist':['~/a','/b'],"
                   "'seenAccessIntro':true}\n"));
}

TEST(PrefsCommand, ShowsATableToPeople)
{
    const TempTree tree;
    const Outcome outcome = zolvactl(tree.root(), {"prefs"});
    EXPECT_THAT(outcome.out, StartsWith("  themeMode        system   the window's theme\n"
                                        "  pollInterval     1        seconds between"));
    EXPECT_THAT(outcome.out, HasSubstr("\n  whitelist        0 paths  see zolvactl exclusions\n"));
}

TEST(PrefsCommand, SetChangesOneKeyAndGivesThemAll)
{
    const std::vector<std::array<std::string, 3>> changes = {
        {"themeMode", "dark", "'themeMode':'dark'"},
        {"themeMode", "light", "'themeMode':'light'"},
        {"themeMode", "system", "'themeMode':'system'"},
        {"pollInterval", "30", "'pollInterval':30"},
        {"pollInterval", "0", "'pollInterval':1"},
        {"pollInterval", "-5", "'pollInterval':1"},
        {"pollInterval", "90", "'pollInterval':60"},
        {"diskThreshold", "150", "'diskThreshold':100"},
        {"diskThreshold", "0", "'diskThreshold':1"},
        {"requireTouchID", "false", "'requireTouchID':false"},
        {"keepInTrash", "false", "'keepInTrash':false"},
        {"keepInTrash", "true", "'keepInTrash':true"},
        {"seenAccessIntro", "true", "'seenAccessIntro':true"},
        {"seenAccessIntro", "false", "'seenAccessIntro':false"},
    };
    const TempTree tree;
    for (const auto& [key, value, expected] : changes) {
        const Outcome outcome = zolvactl(tree.root(), {"prefs", "set", key, value, "--json"});
        EXPECT_EQ(outcome.code, 0) << key;
        EXPECT_THAT(outcome.out, HasSubstr(json(expected))) << key;
        EXPECT_EQ(zolvactl(tree.root(), {"prefs", "--json"}).out, outcome.out) << key;
    }
    EXPECT_EQ(zolvactl(tree.root(), {"prefs", "--json"}).out,
              json("{'themeMode':'system','pollInterval':60,'diskThreshold':1,"
                   "'requireTouchID':false,'keepInTrash':true,'whitelist':[],"
                   "'seenAccessIntro':false}\n"));
}

TEST(PrefsCommand, SetKeepsTheKeysItDoesNotKnow)
{
    TempTree tree;
    tree.text(file, json("{'zolva.lastUpdateCheck':12.5,'other':[1]}"));
    EXPECT_EQ(zolvactl(tree.root(), {"prefs", "set", "pollInterval", "2"}).code, 0);
    EXPECT_THAT(stored(tree), HasSubstr("\"zolva.lastUpdateCheck\": 12.5"));
    EXPECT_THAT(stored(tree), HasSubstr("\"other\""));
    EXPECT_THAT(stored(tree), HasSubstr("\"zolva.pollInterval\": 2"));
}

TEST(PrefsCommand, SetIsWrongUsageForWhatCannotBeSetAndWritesNothing)
{
    const std::vector<std::pair<std::vector<std::string>, std::string>> wrong = {
        {{"nope", "1"}, "there is no key \"nope\""},
        {{"zolva.pollInterval", "1"}, "there is no key \"zolva.pollInterval\""},
        {{"lastUpdateCheck", "1"}, "there is no key \"lastUpdateCheck\""},
        {{"n\x1b[2J", "1"}, "there is no key \"n\xef\xbf\xbd[2J\""},
        {{"whitelist", "/a"}, "whitelist is a list; see zolvactl exclusions"},
        {{"pollInterval", "x"}, "pollInterval takes a whole number, not \"x\""},
        {{"pollInterval", "1.5"}, "pollInterval takes a whole number, not \"1.5\""},
        {{"pollInterval", ""}, "pollInterval takes a whole number, not \"\""},
        {{"keepInTrash", "1"}, "keepInTrash takes true or false, not \"1\""},
        {{"seenAccessIntro", "no"}, "seenAccessIntro takes true or false, not \"no\""},
        {{"themeMode", "mauve"}, "themeMode takes system, light or dark, not \"mauve\""},
        {{"pollInterval"}, "set takes a KEY and a VALUE"},
        {{"pollInterval", "1", "2"}, "set takes a KEY and a VALUE"},
        {{}, "set takes a KEY and a VALUE"},
    };
    const TempTree tree;
    for (const auto& [words, message] : wrong) {
        std::vector<std::string> all = {"prefs", "set"};
        all.insert(all.end(), words.begin(), words.end());
        const Outcome outcome = zolvactl(tree.root(), all);
        EXPECT_EQ(outcome.code, 2) << message;
        EXPECT_EQ(outcome.out, "") << message;
        EXPECT_EQ(outcome.err, "zolvactl: prefs: " + message + "\n");
    }
    EXPECT_EQ(zolvactl(tree.root(), {"prefs", "get"}).err, "zolvactl: prefs: not expected: get\n");
    EXPECT_NE(::access(tree.path(".config").c_str(), F_OK), 0);
}

TEST(PrefsCommand, ADamagedFileGivesTheDefaultsAndANote)
{
    TempTree tree;
    tree.text(file, "{\"zolva.pollInterval\":");
    const Outcome outcome = zolvactl(tree.root(), {"prefs", "--json"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.out, defaults);
    EXPECT_EQ(outcome.err,
              "zolvactl: preferences damaged, set aside as " + tree.path(file) + ".damaged\n");
    EXPECT_EQ(zolvactl(tree.root(), {"prefs", "--json"}).err, "");
}

TEST(PrefsCommand, AFileThatCannotBeReadIsToldAndAFailure)
{
    TempTree tree;
    tree.folder(file);
    const Outcome outcome = zolvactl(tree.root(), {"prefs", "--json"});
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(outcome.out, defaults);
    EXPECT_THAT(outcome.err, StartsWith("zolvactl: preferences not read: "));
    EXPECT_EQ(zolvactl(tree.root(), {"exclusions"}).code, 1);
    EXPECT_THAT(zolvactl(tree.root(), {"excluded", "/a"}).err,
                StartsWith("zolvactl: preferences not read: "));
}

TEST(PrefsCommand, AChangeThatIsNotWrittenFails)
{
    TempTree tree;
    tree.text(".config", "in the way");
    for (const std::vector<std::string>& words :
         {std::vector<std::string>{"prefs", "set", "pollInterval", "2"},
          std::vector<std::string>{"prefs", "set", "seenAccessIntro", "true", "--json"},
          std::vector<std::string>{"exclusions", "add", "/a", "--json"}}) {
        const Outcome outcome = zolvactl(tree.root(), words);
        EXPECT_EQ(outcome.code, 1) << words.front();
        EXPECT_EQ(outcome.out, "") << words.front();
        EXPECT_THAT(outcome.err, HasSubstr("zolvactl: preferences not written: "));
    }
}

} // namespace

} // namespace zolva::test
