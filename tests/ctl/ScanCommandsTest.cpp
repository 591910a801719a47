#include "ctl/ChildRun.h"
#include "support/DroppedCapabilities.h"
#include "support/TempTree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <chrono>

namespace zolva::test {

namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

std::string number(std::int64_t value)
{
    return std::to_string(value);
}

void makeOld(TempTree& tree, const std::string& path, int days)
{
    tree.setModified(path, std::chrono::system_clock::now() - std::chrono::hours(24 * days + 1));
}

TEST(CleanCommand, GivesEachCategoryWithItsPathsLargestFirst)
{
    TempTree tree;
    const std::int64_t plain = blocksOf(tree.file("Library/Caches/plain/data", 1'000'001));
    const std::int64_t kept = blocksOf(tree.file("Library/Caches/CloudKit/data", 1'200'000));
    tree.file("Library/Caches/small/data", 100'000);
    const Outcome outcome = zolvactl(tree.root(), {"clean", "--json"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.out,
              json("{'categories':[{'id':'Application caches','name':'Application caches',"
                   "'desc':'App caches macOS rebuilds on demand','items':2,'sudo':false,"
                   "'bytes':" +
                   number(plain + kept) +
                   ",'paths':[{'p':'~/Library/Caches/CloudKit','b':" + number(kept) +
                   ",'prot':true,'sudo':false},"
                   "{'p':'~/Library/Caches/plain','b':" +
                   number(plain) + ",'prot':false,'sudo':false}]}]}\n"));
}

TEST(CleanCommand, GivesTheRawFormOfAPathThatIsNotUtf8)
{
    TempTree tree;
    const std::int64_t bytes = blocksOf(tree.file("Library/Logs/b\xff%/data", 1'000'001));
    const Outcome outcome = zolvactl(tree.root(), {"clean", "--json"});
    EXPECT_THAT(outcome.out, HasSubstr(json("'paths':[{'p':'~/Library/Logs/b\xef\xbf\xbd%',"
                                            "'raw':'~/Library/Logs/b%FF%25','b':" +
                                            number(bytes) + ",'prot':false")));
}

TEST(CleanCommand, GivesAnEmptyListAndSaysSoToPeople)
{
    const TempTree tree;
    EXPECT_EQ(zolvactl(tree.root(), {"clean", "--json"}).out, json("{'categories':[]}\n"));
    EXPECT_EQ(zolvactl(tree.root(), {"clean"}).out,
              "Nothing to clean right now. Your caches are already at their floor.\n");
}

TEST(CleanCommand, ShowsBarsByShareAndWhatIsProtected)
{
    TempTree tree;
    tree.file("Library/Caches/plain/data", 1'000'001);
    tree.file("Library/Caches/CloudKit/data", 2'100'000);
    const Outcome outcome = zolvactl(tree.root(), {"clean"});
    EXPECT_THAT(outcome.out, StartsWith("Application caches  3.1 MB, 2 items\n"
                                        "App caches macOS rebuilds on demand\n"));
    EXPECT_THAT(outcome.out, HasSubstr("  2.1 MB  ██████████"));
    EXPECT_THAT(outcome.out, HasSubstr("  ~/Library/Caches/CloudKit  protected, never removed\n"));
    EXPECT_THAT(outcome.out, HasSubstr("  ~/Library/Caches/plain\n"));
    EXPECT_THAT(outcome.out, HasSubstr("Can be cleaned: 1.0 MB (2.1 MB more is kept)\n"));
}

TEST(CleanCommand, ShowsWhatIsExcludedAndLeavesItOutOfTheSum)
{
    TempTree tree;
    tree.file("Library/Caches/plain/data", 1'000'001);
    tree.file("Library/Caches/mine/data", 2'100'000);
    tree.text(".config/zolva/preferences.json",
              json("{'zolva.whitelist':['~/Library/Caches/mine']}"));
    const Outcome outcome = zolvactl(tree.root(), {"clean"});
    EXPECT_THAT(outcome.out, HasSubstr("  ~/Library/Caches/mine   excluded, never touched\n"));
    EXPECT_THAT(outcome.out, HasSubstr("Can be cleaned: 1.0 MB (2.1 MB more is kept)\n"));
}

TEST(CleanCommand, LetsNoNameDriveTheTerminal)
{
    TempTree tree;
    tree.file("Library/Logs/a\x1b[2J\nb/data", 1'000'001);
    const Outcome outcome = ChildRun({"clean"}).home(tree.root()).outputOnTerminal().run();
    EXPECT_THAT(outcome.out, HasSubstr("~/Library/Logs/a\xef\xbf\xbd[2J\xef\xbf\xbd"
                                       "b\n"));
    EXPECT_THAT(outcome.out, Not(HasSubstr("\x1b[2J")));
}

TEST(PurgeCommand, GivesEachArtifactWithItsProjectAndAge)
{
    TempTree tree;
    const std::int64_t modules = blocksOf(tree.file("Code/app/node_modules/m.js", 1'300'000));
    const std::int64_t target = blocksOf(tree.file("Projects/t/target/bin", 1'100'000));
    makeOld(tree, "Code/app/node_modules", 10);
    makeOld(tree, "Projects/t/target", 0);
    const Outcome outcome = zolvactl(tree.root(), {"purge", "--json"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(
        outcome.out,
        json("{'projects':[{'p':'~/Code/app','artifact':'node_modules','b':" + number(modules) +
             ",'age':10},{'p':'~/Projects/t','artifact':'target','b':" + number(target) +
             ",'age':0}]}\n"));
}

TEST(PurgeCommand, ShowsAnAlignedTableAndTheSum)
{
    TempTree tree;
    tree.file("Code/app/node_modules/m.js", 1'500'000);
    makeOld(tree, "Code/app/node_modules", 10);
    tree.file("Code/t/target/bin", 1'100'000);
    makeOld(tree, "Code/t/target", 1);
    const Outcome outcome = zolvactl(tree.root(), {"purge"});
    EXPECT_EQ(outcome.out, "    SIZE  SHARE             ARTIFACT          AGE  PROJECT\n"
                           "  1.5 MB  █████████▏        node_modules  10 days  ~/Code/app\n"
                           "  1.1 MB  ██████▊           target          1 day  ~/Code/t\n"
                           "\n"
                           "Build artifacts: 2.6 MB\n");
}

TEST(PurgeCommand, ShowsWhatIsExcludedAndLeavesItOutOfTheSum)
{
    TempTree tree;
    tree.file("Code/app/node_modules/m.js", 1'500'000);
    tree.file("Code/t/target/bin", 1'100'000);
    tree.text(".config/zolva/preferences.json",
              json("{'zolva.whitelist':['~/Code/t/target','/elsewhere']}"));
    const Outcome outcome = zolvactl(tree.root(), {"purge"});
    EXPECT_THAT(outcome.out, HasSubstr("  ~/Code/app\n"));
    EXPECT_THAT(outcome.out, HasSubstr("  ~/Code/t    excluded, never touched\n"));
    EXPECT_THAT(outcome.out, HasSubstr("\nBuild artifacts: 1.5 MB (1.1 MB more is kept)\n"));
}

TEST(PurgeCommand, GivesAnEmptyListAndSaysSoToPeople)
{
    const TempTree tree;
    EXPECT_EQ(zolvactl(tree.root(), {"purge", "--json"}).out, json("{'projects':[]}\n"));
    EXPECT_EQ(zolvactl(tree.root(), {"purge"}).out,
              "No build artifacts found in your project folders.\n");
}

TEST(InstallersCommand, GivesEachInstallerWithItsSourceAndAge)
{
    TempTree tree;
    const std::int64_t image = blocksOf(tree.file("Downloads/Big One.DMG", 30'000));
    const std::int64_t package = blocksOf(tree.file("Desktop/p\xff.pkg", 9'000));
    makeOld(tree, "Downloads/Big One.DMG", 3);
    makeOld(tree, "Desktop/p\xff.pkg", 0);
    const Outcome outcome = zolvactl(tree.root(), {"--json", "installers"});
    EXPECT_EQ(outcome.code, 0);
    EXPECT_EQ(outcome.out,
              json("{'installers':[{'name':'Big One.DMG','src':'Downloads','b':" + number(image) +
                   ",'age':3,'p':'~/Downloads/Big One.DMG'},"
                   "{'name':'p\xef\xbf\xbd.pkg','src':'Desktop','b':" +
                   number(package) +
                   ",'age':0,'p':'~/Desktop/p\xef\xbf\xbd.pkg','raw':'~/Desktop/p%FF.pkg'}]}\n"));
}

TEST(InstallersCommand, ShowsATableAndTheSum)
{
    TempTree tree;
    tree.file("Downloads/a.iso", 2'100'000);
    makeOld(tree, "Downloads/a.iso", 40);
    EXPECT_EQ(zolvactl(tree.root(), {"installers"}).out,
              "    SIZE  NAME   FROM           AGE  PATH\n"
              "  2.1 MB  a.iso  Downloads  40 days  ~/Downloads/a.iso\n"
              "\n"
              "Installers: 2.1 MB\n");
}

TEST(InstallersCommand, ShowsWhatIsExcludedAndLeavesItOutOfTheSum)
{
    TempTree tree;
    tree.file("Downloads/a.iso", 2'100'000);
    tree.file("Desktop/b.iso", 1'100'000);
    tree.text(".config/zolva/preferences.json", json("{'zolva.whitelist':['~/Downloads']}"));
    const Outcome outcome = zolvactl(tree.root(), {"installers"});
    EXPECT_THAT(outcome.out, HasSubstr("  ~/Downloads/a.iso  excluded, never touched\n"));
    EXPECT_THAT(outcome.out, HasSubstr("  ~/Desktop/b.iso\n"));
    EXPECT_THAT(outcome.out, HasSubstr("\nInstallers: 1.1 MB (2.1 MB more is kept)\n"));
}

TEST(InstallersCommand, GivesAnEmptyListAndSaysSoToPeople)
{
    const TempTree tree;
    EXPECT_EQ(zolvactl(tree.root(), {"installers", "--json"}).out, json("{'installers':[]}\n"));
    EXPECT_EQ(zolvactl(tree.root(), {"installers"}).out, "No installers left behind.\n");
}

TEST(ScanCommands, LeaveOutWhatCannotBeReadAndStillAnswer)
{
    TempTree tree;
    tree.file("Downloads/a.iso", 5000);
    tree.file("Library/Caches/x/data", 1'000'001);
    tree.setMode("Downloads", 0);
    tree.setMode("Library/Caches", 0);
    withoutOverridingPermissions([&] {
        EXPECT_EQ(zolvactl(tree.root(), {"installers", "--json"}).out, json("{'installers':[]}\n"));
        const Outcome clean = zolvactl(tree.root(), {"clean", "--json"});
        EXPECT_EQ(clean.code, 0);
        EXPECT_EQ(clean.out, json("{'categories':[]}\n"));
    });
}

} // namespace

} // namespace zolva::test
