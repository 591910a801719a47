#include "scanners/DiskAccess.h"

#include "support/DroppedCapabilities.h"
#include "support/ScopedHome.h"
#include "support/TempTree.h"

#include <gtest/gtest.h>

namespace zolva::test {

namespace {

const std::string cloudDrive = "Library/Mobile Documents/com~apple~CloudDocs";

std::vector<std::string> blockedIds()
{
    std::vector<std::string> ids;
    for (const diskAccess::Location& location : diskAccess::blockedLocations()) {
        ids.push_back(location.id);
    }
    return ids;
}

using Ids = std::vector<std::string>;

} // namespace

TEST(DiskAccess, FivePlacesAreProbedInTheirOrder)
{
    const TempTree tree;
    const ScopedHome home(tree.root());
    const std::vector<diskAccess::Location> expected = {
        {"downloads", "Downloads", tree.root() + "/Downloads"},
        {"desktop", "Desktop", tree.root() + "/Desktop"},
        {"documents", "Documents", tree.root() + "/Documents"},
        {"icloud", "iCloud Drive", tree.root() + "/Library/Mobile Documents/com~apple~CloudDocs"},
        {"trash", "Trash", tree.root() + "/.Trash"},
    };
    EXPECT_EQ(diskAccess::probeLocations(), expected);
}

TEST(DiskAccess, PlacesAreEqualOnlyWhenEveryFieldIs)
{
    const diskAccess::Location place{"trash", "Trash", "/home/a/.Trash"};
    EXPECT_EQ(place, (diskAccess::Location{"trash", "Trash", "/home/a/.Trash"}));
    EXPECT_NE(place, (diskAccess::Location{"bin", "Trash", "/home/a/.Trash"}));
    EXPECT_NE(place, (diskAccess::Location{"trash", "Bin", "/home/a/.Trash"}));
    EXPECT_NE(place, (diskAccess::Location{"trash", "Trash", "/home/b/.Trash"}));
}

TEST(DiskAccess, FiveUnreadablePlacesAreAllBlockedInTableOrder)
{
    TempTree tree;
    const ScopedHome home(tree.root());
    for (const std::string& place : {std::string(".Trash"), cloudDrive, std::string("Documents"),
                                     std::string("Desktop"), std::string("Downloads")}) {
        tree.folder(place);
        tree.setMode(place, 0);
    }
    withoutOverridingPermissions(
        [] { EXPECT_EQ(diskAccess::blockedLocations(), diskAccess::probeLocations()); });
}

TEST(DiskAccess, OnlyTheUnreadablePlaceIsBlocked)
{
    TempTree tree;
    const ScopedHome home(tree.root());
    for (const std::string place : {"Downloads", "Desktop", "Documents", ".Trash"}) {
        tree.folder(place);
    }
    tree.setMode("Documents", 0);
    withoutOverridingPermissions([] { EXPECT_EQ(blockedIds(), Ids{"documents"}); });
}

TEST(DiskAccess, HomeWithoutTheCloudFolderYieldsNoICloudEntry)
{
    TempTree tree;
    const ScopedHome home(tree.root());
    tree.folder("Library/Mobile Documents");
    tree.folder("Downloads");
    tree.setMode("Downloads", 0);
    withoutOverridingPermissions([] { EXPECT_EQ(blockedIds(), Ids{"downloads"}); });
}

TEST(DiskAccess, PlaceBehindAClosedFolderCountsAsNotThere)
{
    TempTree tree;
    const ScopedHome home(tree.root());
    tree.folder(cloudDrive);
    tree.setMode("Library", 0);
    withoutOverridingPermissions([] { EXPECT_EQ(blockedIds(), Ids{}); });
}

TEST(DiskAccess, RegularFileAtDesktopIsNotBlocked)
{
    TempTree tree;
    const ScopedHome home(tree.root());
    tree.text("Desktop", "no folder");
    tree.setMode("Desktop", 0);
    withoutOverridingPermissions([] { EXPECT_EQ(blockedIds(), Ids{}); });
}

TEST(DiskAccess, EmptyReadableDownloadsIsNotBlocked)
{
    TempTree tree;
    const ScopedHome home(tree.root());
    tree.folder("Downloads");
    withoutOverridingPermissions([] { EXPECT_EQ(blockedIds(), Ids{}); });
}

TEST(DiskAccess, FolderThatCanBeListedButNotEnteredIsNotBlocked)
{
    TempTree tree;
    const ScopedHome home(tree.root());
    tree.text("Downloads/file", "x");
    tree.setMode("Downloads", 0400);
    withoutOverridingPermissions([] { EXPECT_EQ(blockedIds(), Ids{}); });
}

TEST(DiskAccess, FolderThatCanBeEnteredButNotListedIsBlocked)
{
    TempTree tree;
    const ScopedHome home(tree.root());
    tree.text("Downloads/file", "x");
    tree.setMode("Downloads", 0100);
    withoutOverridingPermissions([] { EXPECT_EQ(blockedIds(), Ids{"downloads"}); });
}

TEST(DiskAccess, LinkIsJudgedByTheFolderItLeadsTo)
{
    TempTree tree;
    const ScopedHome home(tree.root());
    tree.folder("closed");
    tree.setMode("closed", 0);
    tree.folder("open");
    tree.link("Downloads", "closed");
    tree.link("Desktop", "open");
    tree.link("Documents", "nowhere");
    withoutOverridingPermissions([] { EXPECT_EQ(blockedIds(), Ids{"downloads"}); });
}

TEST(DiskAccess, MissingHomeIsNotBlocked)
{
    const TempTree tree;
    const ScopedHome home(tree.path("gone"));
    EXPECT_EQ(blockedIds(), Ids{});
    EXPECT_EQ(diskAccess::probeLocations().size(), 5U);
}

} // namespace zolva::test
