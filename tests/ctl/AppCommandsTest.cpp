#include "ctl/ChildRun.h"
#include "platform/FileDates.h"
#include "support/TempTree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <ctime>

namespace zolva::test {

namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

std::string number(std::int64_t value)
{
    return std::to_string(value);
}

std::string listed(const std::string& name, const std::string& bundle, const std::string& path)
{
    return json("{'name':'" + name + "','bundle_id':'" + bundle +
                "','source':'App','uninstall_name':'" + name + "-u','path':'" + path +
                "','size':'3MB'}");
}

std::string plist(const std::string& version)
{
    return "<?xml version=\"1.0\" encoding=\"UTF-8\"?><plist version=\"1.0\"><dict>"
           "<key>CFBundleShortVersionString</key><string>" +
           version + "</string></dict></plist>";
}

/// As the C library writes it; null where the file system knows no date.
std::string createdJson(const std::string& path)
{
    const auto date = zolva::creationDate(path);
    if (!date) {
        return "null";
    }
    const std::time_t seconds =
        std::chrono::system_clock::to_time_t(std::chrono::floor<std::chrono::seconds>(*date));
    std::tm parts{};
    ::gmtime_r(&seconds, &parts);
    std::array<char, 32> text{};
    std::strftime(text.data(), text.size(), "\"%Y-%m-%dT%H:%M:%SZ\"", &parts);
    return text.data();
}

TEST(AppsCommand, EnrichesEveryApplicationInListOrder)
{
    TempTree tree;
    const std::string bundle = tree.folder("Applications/Lumen.app");
    const std::int64_t bytes =
        blocksOf(tree.text("Applications/Lumen.app/Contents/Info.plist", plist(" 4.2\n"))) +
        blocksOf(tree.file("Applications/Lumen.app/Contents/MacOS/Lumen", 20'000));
    const std::string gone = tree.path("Applications/Gone.app");
    const std::string file =
        tree.text("apps.json", "[" + listed("Lumen", "org.lumen", bundle) + "," +
                                   listed("Gone", "org.gone", gone) + "]");
    const Outcome outcome = zolvactl(tree.root(), {"apps", "--apps", file, "--json"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.out, json("{'apps':[{'name':'Lumen','bundleID':'org.lumen','source':'App',"
                                "'uninstallName':'Lumen-u','path':'" +
                                bundle + "','size':'3MB','version':'4.2','installedDate':") +
                               createdJson(bundle) + json(",'bundleBytes':" + number(bytes)) +
                               json("},{'name':'Gone','bundleID':'org.gone','source':'App',"
                                    "'uninstallName':'Gone-u','path':'" +
                                    gone +
                                    "','size':'3MB','version':null,'installedDate':null,"
                                    "'bundleBytes':0}]}\n"));
}

TEST(AppsCommand, ShowsATable)
{
    TempTree tree;
    tree.text("Applications/Lumen.app/Contents/Info.plist", plist("4.2"));
    const std::string file = tree.text(
        "apps.json", "[" + listed("Lumen", "org.lumen", tree.path("Applications/Lumen.app")) + "]");
    const Outcome outcome = zolvactl(tree.root(), {"apps", "--apps", file});
    EXPECT_THAT(outcome.out, StartsWith("  NAME   VERSION"));
    EXPECT_THAT(outcome.out, HasSubstr("\n  Lumen  4.2    "));
    EXPECT_THAT(outcome.out, HasSubstr("  App     ~/Applications/Lumen.app\n"));
}

TEST(AppsCommand, AnswersAnEmptyList)
{
    TempTree tree;
    const std::string file = tree.text("apps.json", "[]");
    EXPECT_EQ(zolvactl(tree.root(), {"apps", "--apps", file, "--json"}).out, json("{'apps':[]}\n"));
    EXPECT_EQ(zolvactl(tree.root(), {"apps", "--apps", file}).out,
              "The list names no applications.\n");
}

TEST(AppsCommand, FailsWithTheReasonWhenTheFileCannotBeRead)
{
    const TempTree tree;
    for (const char* command : {"apps", "leftovers"}) {
        std::vector<std::string> words = {command, "--json", "--apps", tree.path("gone.json")};
        if (words.front() == "leftovers") {
            words.insert(words.end(), {"--path", "/x"});
        }
        const Outcome outcome = zolvactl(tree.root(), words);
        EXPECT_EQ(outcome.code, 1);
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(outcome.err,
                  "zolvactl: " + tree.path("gone.json") + ": No such file or directory\n");
    }
    const Outcome folder = zolvactl(tree.root(), {"apps", "--apps", tree.root()});
    EXPECT_EQ(folder.code, 1);
    EXPECT_EQ(folder.err, "zolvactl: " + tree.root() + ": Is a directory\n");
}

TEST(AppsCommand, FailsWithTheKeyThatIsWrong)
{
    TempTree tree;
    const std::string file = tree.text("apps.json", json("[{'name':'x'}]"));
    const Outcome outcome = zolvactl(tree.root(), {"apps", "--apps", file, "--json"});
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_THAT(outcome.err, HasSubstr("bundle_id"));
}

TEST(AppsCommand, FailsOnWhatIsNoListAtAll)
{
    TempTree tree;
    for (const char* text : {"", "[", "{}", "null", "[1]", "\xff\xfe", "[]]"}) {
        const std::string file = tree.text("apps.json", text);
        const Outcome outcome = zolvactl(tree.root(), {"apps", "--apps", file});
        EXPECT_EQ(outcome.code, 1) << text;
        EXPECT_EQ(outcome.out, "") << text;
        EXPECT_THAT(outcome.err, StartsWith("zolvactl: " + file + ": ")) << text;
    }
}

TEST(AppsCommand, FailsOnAListThatNeverEnds)
{
    const TempTree tree;
    const Outcome outcome = zolvactl(tree.root(), {"apps", "--apps", "/dev/zero"});
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(outcome.err, "zolvactl: /dev/zero: too large for a list of applications\n");
}

TEST(LeftoversCommand, GivesEachPlaceAndWhoSharesIt)
{
    TempTree tree;
    const std::int64_t bundle = blocksOf(tree.file("Applications/Lumen.app/x", 40'000));
    const std::int64_t caches = blocksOf(tree.file("Library/Caches/org.lumen/x", 90'000));
    const std::int64_t logs = blocksOf(tree.file("Library/Logs/Lumen/x", 9'000));
    const std::string other = tree.path("Applications/Other.app");
    const std::string file = tree.text(
        "apps.json", "[" + listed("Lumen", "org.lumen", tree.path("Applications/Lumen.app")) + "," +
                         listed("Beta", "org.lumen", other) + "]");
    const Outcome outcome = zolvactl(tree.root(), {"leftovers", "--json", "--apps", file, "--path",
                                                   tree.path("Applications/Lumen.app")});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.out, json("{'residue':[{'loc':'Caches','n':1,'b':" + number(caches) +
                                ",'p':'~/Library/Caches/org.lumen','shared':true,"
                                "'sharedWith':'Beta'},{'loc':'Application bundle','n':1,'b':" +
                                number(bundle) +
                                ",'p':'~/Applications/Lumen.app','shared':false,"
                                "'sharedWith':null},{'loc':'Logs','n':1,'b':" +
                                number(logs) +
                                ",'p':'~/Library/Logs/Lumen','shared':false,"
                                "'sharedWith':null}]}\n"));
}

TEST(LeftoversCommand, ShowsTheSumAndWhoSharesAPath)
{
    TempTree tree;
    tree.file("Library/Caches/org.lumen/x", 90'000);
    tree.file("Library/Logs/Lumen/x", 20'000);
    const std::string file = tree.text(
        "apps.json", "[" + listed("Lumen", "org.lumen", "/Applications/Lumen-zolva-test.app") +
                         "," + listed("Beta", "org.lumen", "/Applications/Beta.app") + "]");
    const Outcome outcome = zolvactl(
        tree.root(), {"leftovers", "--apps", file, "--path", "/Applications/Lumen-zolva-test.app"});
    EXPECT_THAT(outcome.out, StartsWith("Lumen  2 files in 2 locations, "));
    EXPECT_THAT(outcome.out, HasSubstr("  Caches    ~/Library/Caches/org.lumen  "
                                       "Beta uses this same path.\n"));
    EXPECT_THAT(outcome.out, HasSubstr("  Logs      ~/Library/Logs/Lumen\n"));
}

TEST(LeftoversCommand, FailsForABundleThatIsNotInTheList)
{
    TempTree tree;
    const std::string file =
        tree.text("apps.json", "[" + listed("A", "a", "/Applications/A") + "]");
    const Outcome outcome =
        zolvactl(tree.root(), {"leftovers", "--json", "--apps", file, "--path", "/Applications/B"});
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.err,
              "zolvactl: no application in " + file + " has the path /Applications/B\n");
}

} // namespace

} // namespace zolva::test
