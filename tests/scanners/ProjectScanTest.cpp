#include "scanners/ProjectScan.h"

#include "scanners/NaiveDisk.h"
#include "scanners/ReservedFile.h"
#include "support/DroppedCapabilities.h"
#include "support/ScopedHome.h"
#include "support/TempTree.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <set>

namespace zolva::test {

namespace {

using Names = std::vector<std::string>;
using namespace std::chrono_literals;

const TimePoint now{1'760'000'000s};

class ProjectScan : public ::testing::Test
{
protected:
    std::int64_t make(const std::string& path, std::int64_t bytes)
    {
        return blocksOf(reservedFile(tree, path, bytes));
    }

    /// The age told of an artifact that was modified this long ago.
    std::int64_t ageWhenModified(std::chrono::system_clock::duration ago)
    {
        make("Code/app/build/x", 4096);
        tree.setModified("Code/app/build", now - ago);
        return scanProjects(now, 1).at(0).age;
    }

    TempTree tree;
    ScopedHome home{tree.root()};
};

Names keysOf(const std::vector<Project>& projects)
{
    Names keys;
    for (const Project& project : projects) {
        keys.push_back(projectKey(project));
    }
    return keys;
}

std::set<std::string> setOf(const Names& names)
{
    return {names.begin(), names.end()};
}

} // namespace

TEST(ProjectTables, HoldEightRootsInTheirOrder)
{
    const Names expected = {"Development", "Projects", "dev", "GitHub",
                            "Code",        "Sites",    "src", "repos"};
    EXPECT_EQ(Names(projectRoots.begin(), projectRoots.end()), expected);
}

TEST(ProjectTables, HoldTenArtifactAndFivePrunedNames)
{
    const std::set<std::string> artifacts = {"node_modules", ".next", "target", ".build",  "dist",
                                             "build",        "venv",  ".venv",  ".gradle", ".tox"};
    const std::set<std::string> pruned = {".git", ".svn", ".hg", ".idea", ".vscode"};
    EXPECT_EQ(std::set<std::string>(artifactNames.begin(), artifactNames.end()), artifacts);
    EXPECT_EQ(std::set<std::string>(prunedFolderNames.begin(), prunedFolderNames.end()), pruned);
    EXPECT_EQ(artifactFloor, 1'000'000);
}

TEST_F(ProjectScan, NodeModulesOfTwoMillionBytesIsTheProjectThatHoldsIt)
{
    const std::int64_t bytes = make("Code/app/node_modules/library.js", 2'000'000);
    const auto projects = scanProjects(now);
    ASSERT_EQ(projects.size(), 1U);
    EXPECT_EQ(projects[0].p, "~/Code/app");
    EXPECT_EQ(projects[0].artifact, "node_modules");
    EXPECT_EQ(projects[0].b, bytes);
    EXPECT_EQ(projectKey(projects[0]), "~/Code/app/node_modules");
}

TEST_F(ProjectScan, FloorIsAMillionBytes)
{
    make("Code/below/node_modules/x", 900'000);
    make("Code/above/node_modules/x", 1'000'000);
    EXPECT_EQ(keysOf(scanProjects(now)), Names{"~/Code/above/node_modules"});
}

TEST_F(ProjectScan, ArtifactOfExactlyTheFloorIsKeptAndOneByteLessIsDropped)
{
    const std::int64_t bytes = make("Code/app/target/x", 8192);
    EXPECT_EQ(keysOf(scanProjects(now, bytes)), Names{"~/Code/app/target"});
    EXPECT_TRUE(scanProjects(now, bytes + 1).empty());
}

TEST_F(ProjectScan, ArtifactInsideVersionControlIsNeverReached)
{
    for (const std::string_view pruned : prunedFolderNames) {
        make("Code/app/" + std::string(pruned) + "/target/x", 8192);
    }
    EXPECT_TRUE(scanProjects(now, 1).empty());
    make("Code/app/git/target/x", 8192);
    EXPECT_EQ(keysOf(scanProjects(now, 1)), Names{"~/Code/app/git/target"});
}

TEST_F(ProjectScan, ArtifactInsideAnArtifactIsPartOfTheOuterOne)
{
    const std::int64_t outer = make("Code/a/node_modules/x", 8192);
    const std::int64_t inner = make("Code/a/node_modules/b/node_modules/x", 4096);
    const auto projects = scanProjects(now, 1);
    ASSERT_EQ(keysOf(projects), Names{"~/Code/a/node_modules"});
    EXPECT_EQ(projects[0].b, outer + inner);
}

TEST_F(ProjectScan, FileOfAnArtifactNameIsAProject)
{
    const std::int64_t bytes = make("Code/app/dist", 5'000'000);
    const auto projects = scanProjects(now);
    ASSERT_EQ(projects.size(), 1U);
    EXPECT_EQ(projects[0].p, "~/Code/app");
    EXPECT_EQ(projects[0].artifact, "dist");
    EXPECT_EQ(projects[0].b, bytes);
}

TEST_F(ProjectScan, EveryArtifactNameIsFoundInExactlyItsSpelling)
{
    std::set<std::string> expected;
    for (const std::string_view name : artifactNames) {
        make("Code/app/" + std::string(name) + "/x", 4096);
        expected.insert("~/Code/app/" + std::string(name));
    }
    for (const std::string name : {"Node_modules", "Build", "DIST", "targets", "venv2", "next"}) {
        make("Code/app/" + name + "/x", 4096);
    }
    EXPECT_EQ(setOf(keysOf(scanProjects(now, 1))), expected);
}

TEST_F(ProjectScan, EveryRootIsSearchedAndNoOtherFolder)
{
    std::set<std::string> expected;
    for (const std::string_view root : projectRoots) {
        make(std::string(root) + "/build/x", 4096);
        expected.insert("~/" + std::string(root) + "/build");
    }
    make("Work/build/x", 4096);
    make("build/x", 4096);
    EXPECT_EQ(setOf(keysOf(scanProjects(now, 1))), expected);
}

TEST_F(ProjectScan, EqualArtifactsKeepTheOrderOfTheRoots)
{
    Names expected;
    for (const std::string_view root : projectRoots) {
        make(std::string(root) + "/build/x", 4096);
        expected.push_back("~/" + std::string(root) + "/build");
    }
    EXPECT_EQ(keysOf(scanProjects(now, 1)), expected);
}

TEST_F(ProjectScan, EqualArtifactsOfOneRootKeepListingOrder)
{
    for (int i = 0; i < 40; ++i) {
        make("Code/app" + std::to_string(i) + "/build", 4096);
    }
    Names expected;
    const Names listed = naive::namesIn(tree.path("Code")).value();
    for (const std::string& name : listed) {
        expected.push_back("~/Code/" + name + "/build");
    }
    EXPECT_EQ(keysOf(scanProjects(now, 1)), expected);
}

TEST_F(ProjectScan, LargestComesFirstWhateverItsRoot)
{
    make("Development/a/build/x", 4096);
    make("Projects/b/build/x", 12288);
    make("repos/c/build/x", 8192);
    const Names expected = {"~/Projects/b/build", "~/repos/c/build", "~/Development/a/build"};
    EXPECT_EQ(keysOf(scanProjects(now, 1)), expected);
}

TEST_F(ProjectScan, MissingRootsAreNoError)
{
    EXPECT_TRUE(scanProjects(now, 1).empty());
    make("repos/app/build/x", 4096);
    EXPECT_EQ(keysOf(scanProjects(now, 1)), Names{"~/repos/app/build"});
    const ScopedHome gone(tree.path("gone"));
    EXPECT_TRUE(scanProjects(now, 1).empty());
}

TEST_F(ProjectScan, RootThatIsAFileHoldsNothing)
{
    make("Code", 8192);
    make("src", 8192);
    EXPECT_TRUE(scanProjects(now, 1).empty());
}

TEST_F(ProjectScan, RootThatIsALinkIsOpened)
{
    make("elsewhere/app/build/x", 8192);
    tree.link("Code", tree.path("elsewhere"));
    EXPECT_EQ(keysOf(scanProjects(now, 1)), Names{"~/Code/app/build"});
}

TEST_F(ProjectScan, LinksOnTheWayAreNotFollowed)
{
    make("elsewhere/build/x", 8192);
    tree.folder("Code");
    tree.link("Code/app", tree.path("elsewhere"));
    tree.link("Code/loop", tree.path("Code"));
    EXPECT_TRUE(scanProjects(now, 1).empty());
}

TEST_F(ProjectScan, ArtifactThatIsALinkCountsByItsOwnSize)
{
    make("elsewhere/x", 1'000'000);
    tree.folder("Code/app");
    tree.link("Code/app/node_modules", tree.path("elsewhere"));
    tree.link("Code/app/dist", tree.path("elsewhere/x"));
    tree.link("Code/app/build", "nowhere");
    EXPECT_TRUE(scanProjects(now, 4097).empty());
}

TEST_F(ProjectScan, HiddenFoldersAndPackagesAreEntered)
{
    make("Code/.hidden/build/x", 4096);
    make("Code/Tool.app/Contents/build/x", 8192);
    const Names expected = {"~/Code/Tool.app/Contents/build", "~/Code/.hidden/build"};
    EXPECT_EQ(keysOf(scanProjects(now, 1)), expected);
}

TEST_F(ProjectScan, DepthHasNoLimit)
{
    std::string folder = "Code";
    for (int level = 0; level < 100; ++level) {
        folder += "/level" + std::to_string(level);
    }
    make(folder + "/build/x", 4096);
    EXPECT_EQ(keysOf(scanProjects(now, 1)), Names{"~/" + folder + "/build"});
}

TEST_F(ProjectScan, UnreadableFoldersArePassedOver)
{
    make("Code/closed/build/x", 8192);
    make("Code/open/build/x", 4096);
    make("Code/locked/build/x", 8192);
    make("src/app/build/x", 8192);
    tree.setMode("Code/closed", 0);
    tree.setMode("Code/locked/build", 0);
    tree.setMode("src", 0);
    withoutOverridingPermissions(
        [] { EXPECT_EQ(keysOf(scanProjects(now, 1)), Names{"~/Code/open/build"}); });
}

TEST_F(ProjectScan, ArtifactsThatMayNotBeTouchedAreDropped)
{
    make("Code/app/build/x", 8192);
    ASSERT_EQ(scanProjects(now, 1).size(), 1U);
    // A home of such text manages nothing: what lies below it is judged by where it leads.
    tree.folder("sub");
    const ScopedHome odd(tree.root() + "/sub/..");
    EXPECT_TRUE(scanProjects(now, 1).empty());
}

TEST_F(ProjectScan, SocketsAndFifosOfArtifactNamesOccupyNothing)
{
    tree.fifo("Code/app/build");
    socketAt(tree.path("Code/app/dist"));
    EXPECT_TRUE(scanProjects(now, 1).empty());
}

TEST_F(ProjectScan, NamesAreBytes)
{
    const std::string odd = "a\nb \xff\xfe";
    make("Code/" + odd + "/build/\xff", 4096);
    const auto projects = scanProjects(now, 1);
    ASSERT_EQ(projects.size(), 1U);
    EXPECT_EQ(projects[0].p, "~/Code/" + odd);
}

TEST_F(ProjectScan, AgeIsWholeDaysSinceTheArtifactItselfChanged)
{
    make("Code/app/build/sub/x", 4096);
    tree.setModified("Code/app/build/sub/x", now - 1h);
    tree.setModified("Code/app/build/sub", now - 2h);
    tree.setModified("Code/app/build", now - 10 * 24h);
    tree.setModified("Code/app", now - 100 * 24h);
    EXPECT_EQ(scanProjects(now, 1).at(0).age, 10);
}

TEST_F(ProjectScan, AgeIsTruncatedAndNeverBelowZero)
{
    EXPECT_EQ(ageWhenModified(6 * 24h + 21h + 36min), 6); // 6.9 days
    EXPECT_EQ(ageWhenModified(7 * 24h - 1s), 6);
    EXPECT_EQ(ageWhenModified(7 * 24h), 7);
    EXPECT_EQ(ageWhenModified(0s), 0);
    EXPECT_EQ(ageWhenModified(-3 * 24h), 0);
}

TEST_F(ProjectScan, RecentArtifactsAreFoundLikeAnyOther)
{
    make("Code/new/build/x", 4096);
    make("Code/old/build/x", 8192);
    tree.setModified("Code/new/build", now - 1min);
    tree.setModified("Code/old/build", now - 900 * 24h);
    EXPECT_EQ(keysOf(scanProjects(now, 1)), (Names{"~/Code/old/build", "~/Code/new/build"}));
}

TEST_F(ProjectScan, TwoScansShareKeysButNoUuids)
{
    make("Code/a/build/x", 4096);
    make("Code/b/build/x", 4096);
    const auto first = scanProjects(now, 1);
    const auto second = scanProjects(now, 1);
    EXPECT_EQ(keysOf(first), keysOf(second));
    std::vector<Uuid> seen;
    for (const auto& projects : {first, second}) {
        for (const Project& project : projects) {
            EXPECT_EQ(std::ranges::find(seen, project.id), seen.end());
            seen.push_back(project.id);
        }
    }
    EXPECT_EQ(seen.size(), 4U);
}

} // namespace zolva::test
