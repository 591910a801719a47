#include "ctl/ChildRun.h"
#include "support/DroppedCapabilities.h"
#include "support/TempTree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <pwd.h>
#include <unistd.h>

#include <fstream>
#include <string>
#include <vector>

namespace zolva::test {

namespace {

using ::testing::ElementsAre;
using ::testing::HasSubstr;
using ::testing::StartsWith;
using Json = nlohmann::ordered_json;

std::string number(std::int64_t value)
{
    return std::to_string(value);
}

std::vector<std::string> keysOf(const Json& object)
{
    std::vector<std::string> keys;
    for (const auto& [key, value] : object.items()) {
        keys.push_back(key);
    }
    return keys;
}

TEST(AnalyzeCommand, BreaksAFolderDownIntoItsChildren)
{
    TempTree tree;
    const std::int64_t deep = blocksOf(tree.file("d/in/deep", 30'000));
    const std::int64_t file = blocksOf(tree.file("d/file", 9'000));
    const Outcome outcome = zolvactl(tree.root(), {"analyze", tree.path("d"), "--json"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.out,
              json("{'path':'" + tree.path("d") +
                   "','overview':false,'entries':[{'name':'in','path':'" + tree.path("d/in") +
                   "','size':" + number(deep) +
                   ",'is_dir':true,'last_access':null},{'name':'file','path':'" +
                   tree.path("d/file") + "','size':" + number(file) +
                   ",'is_dir':false,'last_access':null}],'large_files':[{'name':'deep','path':'" +
                   tree.path("d/in/deep") + "','size':" + number(deep) +
                   "},{'name':'file','path':'" + tree.path("d/file") + "','size':" + number(file) +
                   "}],'total_size':" + number(deep + file) + ",'total_files':2}\n"));
}

TEST(AnalyzeCommand, GivesTheRawFormOfPathsThatAreNotUtf8)
{
    TempTree tree;
    const std::int64_t bytes = blocksOf(tree.file("d\xff/f\xfe", 9'000));
    const std::string shown = tree.path("d\xef\xbf\xbd");
    const std::string raw = tree.path("d%FF");
    const Outcome outcome = zolvactl(tree.root(), {"analyze", tree.path("d\xff"), "--json"});
    EXPECT_EQ(outcome.out,
              json("{'path':'" + shown + "','raw':'" + raw +
                   "','overview':false,'entries':[{'name':'f\xef\xbf\xbd','path':'" + shown +
                   "/f\xef\xbf\xbd','raw':'" + raw + "/f%FE','size':" + number(bytes) +
                   ",'is_dir':false,'last_access':null}],"
                   "'large_files':[{'name':'f\xef\xbf\xbd','path':'" +
                   shown + "/f\xef\xbf\xbd','raw':'" + raw + "/f%FE','size':" + number(bytes) +
                   "}],'total_size':" + number(bytes) + ",'total_files':1}\n"));
}

TEST(AnalyzeCommand, ResolvesARelativePathAndFollowsALink)
{
    TempTree tree;
    tree.file("d/file", 9'000);
    tree.link("way", "d");
    const Outcome outcome =
        ChildRun({"analyze", "./way/", "--json"}).home("/nonexistent-home").in(tree.root()).run();
    EXPECT_EQ(outcome.err, "");
    const Json found = Json::parse(outcome.out);
    EXPECT_EQ(found["path"], tree.path("way"));
    EXPECT_EQ(found["total_files"], 1);
    EXPECT_EQ(found["entries"][0]["path"], tree.path("way/file"));
}

TEST(AnalyzeCommand, GivesAnEmptyResultAndANoteForWhatIsNoFolder)
{
    TempTree tree;
    const std::string file = tree.file("file", 9'000);
    const std::string empty = json("','overview':false,'entries':[],'large_files':[],"
                                   "'total_size':0,'total_files':0}\n");
    const Outcome outcome = zolvactl(tree.root(), {"analyze", file, "--json"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.out, json("{'path':'") + file + empty);
    EXPECT_EQ(outcome.err, "zolvactl: " + file + ": not a folder\n");

    const std::string gone = tree.path("gone");
    const Outcome missing = zolvactl(tree.root(), {"analyze", gone, "--json"});
    EXPECT_EQ(missing.code, 0);
    EXPECT_EQ(missing.out, json("{'path':'") + gone + empty);
    EXPECT_EQ(missing.err, "zolvactl: " + gone + ": nothing there\n");
}

TEST(AnalyzeCommand, TellsOfAnEmptyPath)
{
    const Outcome outcome = zolvactl("/nonexistent-home", {"analyze", ""});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.err, "zolvactl: analyze: the path is empty\n");
}

TEST(AnalyzeCommand, SaysWhenAFolderCannotBeRead)
{
    TempTree tree;
    const std::string closed = tree.folder("closed");
    tree.setMode("closed", 0);
    withoutOverridingPermissions([&] {
        const Outcome outcome = zolvactl(tree.root(), {"analyze", closed});
        EXPECT_EQ(outcome.code, 0);
        EXPECT_EQ(outcome.err, "zolvactl: " + closed + ": cannot be read\n");
    });
}

TEST(AnalyzeCommand, SaysNothingAboutAnEmptyFolder)
{
    TempTree tree;
    const Outcome outcome = zolvactl(tree.root(), {"analyze", tree.folder("empty")});
    EXPECT_EQ(outcome.err, "");
    EXPECT_EQ(outcome.out, "~/empty  0 bytes in 0 files\n");
}

TEST(AnalyzeCommand, ShowsSharesOfTheFolder)
{
    TempTree tree;
    tree.file("d/in/deep", 3'072'000);
    tree.file("d/file", 1'024'000);
    const Outcome outcome = zolvactl(tree.root(), {"analyze", tree.path("d")});
    EXPECT_THAT(outcome.out, StartsWith("~/d  4.1 MB in 2 files\n\n"));
    EXPECT_THAT(outcome.out, HasSubstr("  3.1 MB  ████████████      75.0 %  in/\n"));
    EXPECT_THAT(outcome.out, HasSubstr("  1.0 MB  ████              25.0 %  file\n"));
    EXPECT_THAT(outcome.out, HasSubstr("Largest files\n"
                                       "  3.1 MB  ~/d/in/deep\n"
                                       "  1.0 MB  ~/d/file\n"));
}

TEST(AnalyzeCommand, GivesTheOverviewOfThePlacesThatExist)
{
    TempTree tree;
    const std::int64_t log = blocksOf(tree.file("Library/Logs/app/log", 30'000));
    const Outcome outcome = zolvactl(tree.root(), {"analyze", "--json"});
    EXPECT_EQ(outcome.code, 0);
    const Json found = Json::parse(outcome.out);
    EXPECT_THAT(keysOf(found), ElementsAre("path", "overview", "entries", "large_files",
                                           "total_size", "total_files", "available"));
    EXPECT_EQ(found["path"], "");
    EXPECT_EQ(found["overview"], true);
    EXPECT_GE(found["total_size"].get<std::int64_t>(), 1);
    EXPECT_GT(found["available"].get<std::int64_t>(), 0);
    // What the machine itself has outside the home is not for this test to know.
    std::string ours;
    for (const Json& entry : found["entries"]) {
        if (entry["path"].get<std::string>().starts_with(tree.root())) {
            ours += entry.dump() + "\n";
        }
    }
    const std::string rest = "','size':" + number(log) + ",'is_dir':true,'last_access':null}\n";
    EXPECT_EQ(ours, json("{'name':'Home','path':'" + tree.root() + rest +
                         "{'name':'User Library','path':'" + tree.path("Library") + rest +
                         "{'name':'System Logs','path':'" + tree.path("Library/Logs") + rest));
}

TEST(AnalyzeCommand, ShowsTheOverviewWithWhatIsAvailable)
{
    TempTree tree;
    tree.file("Library/Logs/app/log", 30'000);
    const Outcome outcome = zolvactl(tree.root(), {"analyze"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_THAT(outcome.out, HasSubstr(" used, "));
    EXPECT_THAT(outcome.out, HasSubstr(" available\n\n"));
    EXPECT_THAT(outcome.out, HasSubstr("System Logs "));
    EXPECT_THAT(outcome.out, HasSubstr("~/Library/Logs\n"));
    EXPECT_THAT(outcome.out, HasSubstr("they do not add up."));
}

TEST(AnalyzeCommandSystemCalls, AskOnceForEachFileOfAFolder)
{
    TempTree tree;
    for (int i = 0; i < 20; ++i) {
        tree.file("folder/plain" + std::to_string(i));
    }
    TempTree out;
    const std::string report = out.text("report", "");
    const Outcome outcome = ChildRun({"strace", "-f", "-o", report, "-e", "trace=%%stat", ZOLVACTL,
                                      "analyze", tree.path("folder")})
                                .program("/usr/bin/env")
                                .home(tree.root())
                                .variable("PATH", "/usr/bin:/bin")
                                .run();
    ASSERT_EQ(outcome.code, 0) << outcome.err;
    EXPECT_THAT(outcome.out, HasSubstr("0 bytes in 20 files\n"));
    std::ifstream calls(report);
    std::string line;
    int asked = 0;
    while (std::getline(calls, line)) {
        asked += line.find("/plain") != std::string::npos ? 1 : 0;
    }
    EXPECT_EQ(asked, 20);
}

TEST(BlockedCommand, GivesThePlacesThatCannotBeListed)
{
    TempTree tree;
    tree.folder("Downloads");
    tree.folder("Documents");
    tree.setMode("Documents", 0);
    withoutOverridingPermissions([&] {
        const Outcome outcome = zolvactl(tree.root(), {"blocked", "--json"});
        EXPECT_EQ(outcome.code, 0);
        EXPECT_EQ(outcome.out, json("{'blocked':[{'id':'documents','label':'Documents','path':'" +
                                    tree.path("Documents") + "'}]}\n"));
        EXPECT_EQ(zolvactl(tree.root(), {"blocked"}).out, "  PLACE      PATH\n"
                                                          "  Documents  ~/Documents\n");
    });
}

TEST(BlockedCommand, GivesAnEmptyListAndSaysSoToPeople)
{
    const TempTree tree;
    EXPECT_EQ(zolvactl(tree.root(), {"blocked", "--json"}).out, json("{'blocked':[]}\n"));
    EXPECT_EQ(zolvactl(tree.root(), {"blocked"}).out, "Nothing is blocked.\n");
}

TEST(SummaryCommand, SumsWhatCanBeGivenBackAndLeavesOutWhatIsProtected)
{
    TempTree tree;
    const std::int64_t cache = blocksOf(tree.file("Library/Caches/plain/data", 1'000'001));
    tree.file("Library/Caches/CloudKit/data", 1'200'000);
    const std::int64_t target = blocksOf(tree.file("Code/t/target/bin", 1'100'000));
    const std::int64_t image = blocksOf(tree.file("Downloads/a.dmg", 20'000));
    const std::int64_t gone = blocksOf(tree.file(".local/share/Trash/files/gone", 30'000));
    tree.folder("Desktop");
    tree.setMode("Desktop", 0);
    withoutOverridingPermissions([&] {
        const Outcome outcome = zolvactl(tree.root(), {"summary", "--json"});
        EXPECT_EQ(outcome.code, 0);
        EXPECT_EQ(outcome.out, json("{'clean':" + number(cache) + ",'purge':" + number(target) +
                                    ",'installers':" + number(image) + ",'trash':" + number(gone) +
                                    ",'total':" + number(cache + target + image + gone) +
                                    ",'blocked':['desktop']}\n"));
        const Outcome shown = zolvactl(tree.root(), {"summary"});
        EXPECT_THAT(shown.out, StartsWith("What can be given back in " + tree.root() + "\n\n"));
        EXPECT_THAT(shown.out, HasSubstr("  zolvactl empty-trash\n"));
        EXPECT_THAT(shown.out, HasSubstr("  Total            2.2 MB\n"));
        EXPECT_THAT(shown.out, HasSubstr("Cannot look into: Desktop. The sums leave them out.\n"));
    });
}

TEST(SummaryCommand, LeavesOutWhatIsExcluded)
{
    TempTree tree;
    const std::int64_t plain = blocksOf(tree.file("Library/Logs/plain/data", 1'000'001));
    tree.file("Library/Logs/mine/data", 1'200'000);
    const std::int64_t target = blocksOf(tree.file("Code/t/target/bin", 1'100'000));
    tree.file("Code/mine/target/bin", 1'300'000);
    const std::int64_t image = blocksOf(tree.file("Downloads/a.dmg", 20'000));
    tree.file("Downloads/mine.dmg", 40'000);
    EXPECT_EQ(zolvactl(tree.root(), {"exclusions", "add", "~/Library/Logs/mine", "~/Code/mine",
                                     "~/Downloads/mine.dmg"})
                  .code,
              0);
    EXPECT_THAT(zolvactl(tree.root(), {"summary", "--json"}).out,
                StartsWith(json("{'clean':" + number(plain) + ",'purge':" + number(target) +
                                ",'installers':" + number(image) +
                                ",'trash':0,'total':" + number(plain + target + image) + ",")));
}

TEST(SummaryCommand, CountsACacheOnceForEachRowThatHoldsIt)
{
    TempTree tree;
    const std::int64_t bytes = blocksOf(tree.file("Library/Caches/go-build/data", 1'000'001));
    const Json found = Json::parse(zolvactl(tree.root(), {"summary", "--json"}).out);
    EXPECT_EQ(found["clean"], 2 * bytes);
}

TEST(HomeVariable, ThatNamesNoFolderGivesZeros)
{
    const Outcome outcome = zolvactl("/nonexistent-home/x", {"summary", "--json"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.out,
              json("{'clean':0,'purge':0,'installers':0,'trash':0,'total':0,'blocked':[]}\n"));
    EXPECT_EQ(zolvactl("/nonexistent-home/x", {"summary"}).code, 0);
    EXPECT_EQ(zolvactl("/nonexistent-home/x", {"analyze"}).code, 0);
    EXPECT_EQ(zolvactl("/nonexistent-home/x", {"clean", "--json"}).out,
              json("{'categories':[]}\n"));
}

TEST(HomeVariable, ThatIsUnsetEmptyOrRelativeIsTheAccounts)
{
    const passwd* account = ::getpwuid(::getuid());
    ASSERT_NE(account, nullptr);
    const std::string below = std::string(account->pw_dir) + "/nonexistent-zolva";
    using Value = std::optional<std::string>;
    for (const Value& value : {Value(), Value(""), Value("relative/home")}) {
        const Outcome outcome = ChildRun({"analyze", below}).variable("HOME", value).run();
        EXPECT_EQ(outcome.code, 0);
        EXPECT_EQ(outcome.out, "~/nonexistent-zolva  0 bytes in 0 files\n");
    }
}

} // namespace

} // namespace zolva::test
