#include "scanners/InstallerScanner.h"

#include "scanners/NaiveDisk.h"
#include "scanners/ReservedFile.h"
#include "support/DroppedCapabilities.h"
#include "support/ScopedHome.h"
#include "support/TempTree.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <chrono>
#include <cstdio>
#include <set>
#include <utility>

namespace zolva::test {

namespace {

using Names = std::vector<std::string>;
using namespace std::chrono_literals;

const TimePoint now{1'760'000'000s};
const std::string cloudDownloads = "Library/Mobile Documents/com~apple~CloudDocs/Downloads";

class Installers : public ::testing::Test
{
protected:
    std::int64_t make(const std::string& path, std::int64_t bytes = 4096)
    {
        return blocksOf(reservedFile(tree, path, bytes));
    }

    TempTree tree;
    ScopedHome home{tree.root()};
};

Names scannedPaths()
{
    Names paths;
    for (const InstallerItem& item : InstallerScanner::scan(now)) {
        paths.push_back(item.p);
    }
    return paths;
}

} // namespace

TEST_F(Installers, FourSourcesAreLookedAtInTheirOrder)
{
    const std::vector<std::pair<std::string, std::string>> expected = {
        {tree.root() + "/Downloads", "Downloads"},
        {tree.root() + "/Desktop", "Desktop"},
        {tree.root() + "/Library/Caches/Homebrew/downloads", "Homebrew cache"},
        {tree.root() + "/Library/Mobile Documents/com~apple~CloudDocs/Downloads", "iCloud Drive"},
    };
    std::vector<std::pair<std::string, std::string>> sources;
    for (const InstallerScanner::Source& source : InstallerScanner::sources()) {
        sources.emplace_back(source.path, source.label);
    }
    EXPECT_EQ(sources, expected);
}

TEST_F(Installers, FourExtensionsCount)
{
    const std::set<std::string> expected = {"dmg", "pkg", "xip", "iso"};
    EXPECT_EQ(std::set<std::string>(installerExtensions.begin(), installerExtensions.end()),
              expected);
}

TEST_F(Installers, ItemTellsNameSourceSizeAgeAndPath)
{
    const std::int64_t bytes = make("Library/Caches/Homebrew/downloads/Tool 1.2.dmg", 12288);
    tree.setModified("Library/Caches/Homebrew/downloads/Tool 1.2.dmg", now - 3 * 24h - 23h);
    const auto items = InstallerScanner::scan(now);
    ASSERT_EQ(items.size(), 1U);
    EXPECT_EQ(items[0].name, "Tool 1.2.dmg");
    EXPECT_EQ(items[0].src, "Homebrew cache");
    EXPECT_EQ(items[0].b, bytes);
    EXPECT_EQ(items[0].age, 3);
    EXPECT_EQ(items[0].p, "~/Library/Caches/Homebrew/downloads/Tool 1.2.dmg");
}

TEST_F(Installers, SameImageInDownloadsAndDesktopIsListedTwice)
{
    make("Downloads/Tool.dmg");
    make("Desktop/Tool.dmg");
    EXPECT_EQ(scannedPaths(), (Names{"~/Downloads/Tool.dmg", "~/Desktop/Tool.dmg"}));
}

TEST_F(Installers, HardLinksOfOneImageAreListedEach)
{
    make("Downloads/Tool.dmg");
    tree.hardLink("Desktop/Tool.dmg", "Downloads/Tool.dmg");
    EXPECT_EQ(scannedPaths(), (Names{"~/Downloads/Tool.dmg", "~/Desktop/Tool.dmg"}));
}

TEST_F(Installers, ImageWhoseNameBeginsWithADotIsNotListed)
{
    make("Downloads/.Tool.dmg");
    make("Downloads/.dmg");
    EXPECT_EQ(scannedPaths(), Names{});
}

TEST_F(Installers, ImageInASubfolderIsNotListed)
{
    make("Downloads/folder/Tool.dmg");
    EXPECT_EQ(scannedPaths(), Names{});
}

TEST_F(Installers, UpperCaseExtensionIsListedAndKeptInTheName)
{
    make("Downloads/TOOL.DMG");
    const auto items = InstallerScanner::scan(now);
    ASSERT_EQ(items.size(), 1U);
    EXPECT_EQ(items[0].name, "TOOL.DMG");
    EXPECT_EQ(items[0].p, "~/Downloads/TOOL.DMG");
}

TEST_F(Installers, FolderWithTheExtensionIsNotListed)
{
    make("Downloads/Bundle.pkg/Contents/x");
    EXPECT_EQ(scannedPaths(), Names{});
}

TEST_F(Installers, TwoItemsOfTheSameSizeKeepSourceOrder)
{
    make(cloudDownloads + "/a.dmg");
    make("Library/Caches/Homebrew/downloads/b.pkg");
    make("Desktop/c.xip");
    make("Downloads/d.iso");
    const Names expected = {"~/Downloads/d.iso", "~/Desktop/c.xip",
                            "~/Library/Caches/Homebrew/downloads/b.pkg",
                            "~/" + cloudDownloads + "/a.dmg"};
    EXPECT_EQ(scannedPaths(), expected);
}

TEST_F(Installers, ItemsOfTheSameSizeInOneSourceKeepListingOrder)
{
    for (int i = 0; i < 40; ++i) {
        make("Downloads/" + std::to_string(i) + ".dmg");
    }
    Names expected;
    const Names listed = naive::namesIn(tree.path("Downloads")).value();
    for (const std::string& name : listed) {
        expected.push_back("~/Downloads/" + name);
    }
    EXPECT_EQ(scannedPaths(), expected);
}

TEST_F(Installers, LargestComesFirstWhateverItsSource)
{
    make("Downloads/small.dmg", 4096);
    make("Desktop/large.dmg", 20480);
    make("Downloads/middle.dmg", 12288);
    const Names expected = {"~/Desktop/large.dmg", "~/Downloads/middle.dmg",
                            "~/Downloads/small.dmg"};
    EXPECT_EQ(scannedPaths(), expected);
}

TEST_F(Installers, OnlyTheLastExtensionCounts)
{
    make("Downloads/a.dmg.zip");
    make("Downloads/dmg");
    make("Downloads/b.dmgx");
    make("Downloads/c.dmg ");
    make("Downloads/d.");
    make("Downloads/e.tar.iso");
    EXPECT_EQ(scannedPaths(), Names{"~/Downloads/e.tar.iso"});
}

TEST_F(Installers, FileThatOccupiesNothingIsNotListed)
{
    make("Downloads/empty.dmg", 0);
    tree.text("Downloads/elsewhere.dmg", "");
    ASSERT_EQ(::truncate(tree.path("Downloads/elsewhere.dmg").c_str(), 50'000'000), 0);
    EXPECT_EQ(scannedPaths(), Names{});
}

TEST_F(Installers, OneBlockIsEnough)
{
    make("Downloads/tiny.dmg", 1);
    EXPECT_EQ(scannedPaths(), Names{"~/Downloads/tiny.dmg"});
}

TEST_F(Installers, LinksFifosAndSocketsAreNotListed)
{
    make("elsewhere/Tool.dmg");
    tree.link("Downloads/link.dmg", tree.path("elsewhere/Tool.dmg"));
    tree.link("Downloads/dangling.dmg", "nowhere");
    tree.fifo("Downloads/fifo.dmg");
    socketAt(tree.path("Downloads/socket.dmg"));
    EXPECT_EQ(scannedPaths(), Names{});
}

TEST_F(Installers, SourceThatIsALinkIsOpened)
{
    make("elsewhere/Tool.dmg");
    tree.link("Downloads", tree.path("elsewhere"));
    EXPECT_EQ(scannedPaths(), Names{"~/Downloads/Tool.dmg"});
}

TEST_F(Installers, MissingOrUnreadableSourceContributesNothing)
{
    make("Downloads/closed.dmg");
    make("Desktop/open.dmg");
    make("Library/Caches/Homebrew/downloads"); // a file
    tree.setMode("Downloads", 0);
    withoutOverridingPermissions([] { EXPECT_EQ(scannedPaths(), Names{"~/Desktop/open.dmg"}); });
}

TEST_F(Installers, MissingHomeGivesAnEmptyList)
{
    const ScopedHome gone(tree.path("gone"));
    EXPECT_EQ(scannedPaths(), Names{});
}

TEST_F(Installers, NamesAreBytes)
{
    make("Downloads/a\nb \xff\xfe.dmg");
    const auto items = InstallerScanner::scan(now);
    ASSERT_EQ(items.size(), 1U);
    EXPECT_EQ(items[0].name, "a\nb \xff\xfe.dmg");
    EXPECT_EQ(items[0].p, "~/Downloads/a\nb \xff\xfe.dmg");
}

TEST_F(Installers, DateInTheFutureIsNoAge)
{
    make("Downloads/Tool.dmg");
    tree.setModified("Downloads/Tool.dmg", now + 48h);
    EXPECT_EQ(InstallerScanner::scan(now).at(0).age, 0);
}

TEST_F(Installers, ChangeOfTheNameAloneLeavesTheAge)
{
    make("Downloads/Tool.dmg");
    tree.setModified("Downloads/Tool.dmg", now - 40 * 24h);
    ASSERT_EQ(::rename(tree.path("Downloads/Tool.dmg").c_str(),
                       tree.path("Downloads/Renamed.dmg").c_str()),
              0);
    EXPECT_EQ(InstallerScanner::scan(now).at(0).age, 40);
}

TEST_F(Installers, PathsThatMayNotBeTouchedAreListedAllTheSame)
{
    make("Downloads/Tool.dmg");
    tree.folder("sub");
    // Nothing below a home of such text may be touched; the scan does not ask.
    const ScopedHome odd(tree.root() + "/sub/..");
    EXPECT_EQ(scannedPaths(), Names{"~/Downloads/Tool.dmg"});
}

TEST_F(Installers, TwoScansShareNoUuids)
{
    make("Downloads/a.dmg");
    EXPECT_NE(InstallerScanner::scan(now).at(0).id, InstallerScanner::scan(now).at(0).id);
}

TEST(InstallerPath, EveryOccurrenceOfTheHomePathIsReplaced)
{
    EXPECT_EQ(InstallerScanner::shownPath("/home/a/Downloads/x.dmg", "/home/a"),
              "~/Downloads/x.dmg");
    EXPECT_EQ(InstallerScanner::shownPath("/D/Downloads/x.dmg", "/D"), "~~ownloads/x.dmg");
    EXPECT_EQ(InstallerScanner::shownPath("/home/ab/x.dmg", "/home/a"), "~b/x.dmg");
    EXPECT_EQ(InstallerScanner::shownPath("/a/a/a/a/x.dmg", "/a/a"), "~~/x.dmg");
    EXPECT_EQ(InstallerScanner::shownPath("/a/a/a/x.dmg", "/a/a"), "~/a/x.dmg");
    // What was replaced is not read again.
    EXPECT_EQ(InstallerScanner::shownPath("/a/a~bb/x.dmg", "/a~b"), "/a~b/x.dmg");
    EXPECT_EQ(InstallerScanner::shownPath("/other/x.dmg", "/home/a"), "/other/x.dmg");
}

} // namespace zolva::test
