#include "files/TreeWalker.h"

#include "files/BlockFile.h"
#include "support/DroppedCapabilities.h"
#include "support/TempTree.h"

#include <gtest/gtest.h>

#include <dirent.h>
#include <sys/stat.h>
#include <sys/sysmacros.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <thread>

namespace {

using zolva::BigFileHit;
using zolva::Walk;
using zolva::WalkOptions;
using zolva::WalkProgress;
using zolva::test::blockFile;
using zolva::test::blocksOf;
using zolva::test::TempTree;

std::vector<std::string> pathsOf(const Walk& walk)
{
    std::vector<std::string> paths;
    for (const BigFileHit& hit : walk.largest) {
        paths.push_back(hit.path);
    }
    return paths;
}

TEST(TreeWalker, AMissingRootGivesAnEmptyWalk)
{
    const TempTree tree;
    for (const std::string& root :
         {tree.path("nothing"), tree.path("nothing/below"), std::string()}) {
        const Walk walk = zolva::walk(root);
        EXPECT_EQ(walk.files, 0);
        EXPECT_EQ(walk.bytes, 0);
        EXPECT_EQ(walk.unreadable, 0);
        EXPECT_TRUE(walk.largest.empty());
    }
}

TEST(TreeWalker, NoRootsGiveNoWalks)
{
    EXPECT_TRUE(zolva::walkTrees({}).empty());
}

TEST(TreeWalker, ARootThatIsAFileIsOneFileAndOneHit)
{
    TempTree tree;
    const std::string path = blockFile(tree, "folder/one.iso", 3);
    const Walk walk = zolva::walk(path);
    EXPECT_EQ(walk.files, 1);
    EXPECT_EQ(walk.bytes, blocksOf(path));
    ASSERT_EQ(walk.largest.size(), 1U);
    EXPECT_EQ(walk.largest[0].name, "one.iso");
    EXPECT_EQ(walk.largest[0].path, path);
    EXPECT_EQ(walk.largest[0].size, blocksOf(path));
}

TEST(TreeWalker, ARootThatIsALinkToAFileCountsTheLinkItself)
{
    TempTree tree;
    blockFile(tree, "big", 9);
    const std::string link = tree.link("link", "big");
    EXPECT_EQ(zolva::walk(link).bytes, blocksOf(link));
    EXPECT_EQ(zolva::walk(link).files, 1);
}

TEST(TreeWalker, ARootThatIsADanglingLinkIsMissing)
{
    TempTree tree;
    EXPECT_EQ(zolva::walk(tree.link("link", "nowhere")).files, 0);
}

TEST(TreeWalker, ARootThatIsALinkToAFolderIsOpenedAndPathsBeginWithItsText)
{
    TempTree tree;
    blockFile(tree, "real/sub/file", 2);
    const std::string link = tree.link("link", "real");
    const Walk walk = zolva::walk(link);
    EXPECT_EQ(walk.files, 1);
    EXPECT_EQ(pathsOf(walk), std::vector<std::string>{link + "/sub/file"});
}

TEST(TreeWalker, LinksFoundOnTheWayAreNeitherFollowedNorCounted)
{
    TempTree tree;
    blockFile(tree, "inside/file", 1);
    blockFile(tree, "outside/file", 5);
    tree.link("inside/folder", "../outside");
    tree.link("inside/link", "../outside/file");
    tree.link("inside/loop", ".");
    tree.link("inside/dangling", "nowhere");
    const Walk walk = zolva::walk(tree.path("inside"));
    EXPECT_EQ(walk.files, 1);
    EXPECT_EQ(walk.bytes, blocksOf(tree.path("inside/file")));
    EXPECT_EQ(walk.unreadable, 0);
}

TEST(TreeWalker, PipesSocketsAndDevicesAreNeitherWaitedForNorCounted)
{
    TempTree tree;
    tree.fifo("pipe");
    ASSERT_EQ(::mknod(tree.path("socket").c_str(), S_IFSOCK | 0644, 0), 0);
    ASSERT_EQ(::mknod(tree.path("device").c_str(), S_IFCHR | 0644, ::makedev(0, 0)), 0);
    const Walk walk = zolva::walk(tree.root());
    EXPECT_EQ(walk.files, 0);
    EXPECT_EQ(walk.unreadable, 0);
}

TEST(TreeWalker, APipeAsRootIsOneThingAndIsNotWaitedFor)
{
    TempTree tree;
    const Walk walk = zolva::walk(tree.fifo("pipe"));
    EXPECT_EQ(walk.files, 1);
    EXPECT_EQ(walk.bytes, 0);
}

TEST(TreeWalker, HiddenFilesAreCounted)
{
    TempTree tree;
    blockFile(tree, ".hidden", 1);
    blockFile(tree, ".folder/...", 1);
    EXPECT_EQ(zolva::walk(tree.root()).files, 2);
}

TEST(TreeWalker, EmptyFilesCountAsFilesOfNoBytes)
{
    TempTree tree;
    tree.file("a");
    tree.file("b/c");
    const Walk walk = zolva::walk(tree.root());
    EXPECT_EQ(walk.files, 2);
    EXPECT_EQ(walk.bytes, 0);
    EXPECT_EQ(walk.largest.size(), 2U);
}

TEST(TreeWalker, AHardLinkCountsEachTime)
{
    TempTree tree;
    const std::string path = blockFile(tree, "a", 4);
    tree.hardLink("sub/b", "a");
    const Walk walk = zolva::walk(tree.root());
    EXPECT_EQ(walk.files, 2);
    EXPECT_EQ(walk.bytes, 2 * blocksOf(path));
    EXPECT_EQ(walk.largest.size(), 2U);
}

TEST(TreeWalker, NamesAreBytes)
{
    TempTree tree;
    const std::vector<std::string> names = {"line\nbreak", "not\xff\xfeutf8", std::string(255, 'n'),
                                            "-rf", " "};
    std::vector<std::string> paths;
    for (const std::string& name : names) {
        paths.push_back(blockFile(tree, name + "/" + name));
    }
    std::vector<std::string> found = pathsOf(zolva::walk(tree.root()));
    std::sort(found.begin(), found.end());
    std::sort(paths.begin(), paths.end());
    EXPECT_EQ(found, paths);
}

TEST(TreeWalker, ATrailingSlashOfTheRootIsNotDoubled)
{
    TempTree tree;
    blockFile(tree, "file");
    EXPECT_EQ(pathsOf(zolva::walk(tree.root() + "/")),
              std::vector<std::string>{tree.root() + "/file"});
}

TEST(TreeWalker, OfTwentyFiveEqualFilesTheFirstTwentyListedAreKept)
{
    TempTree tree;
    for (int i = 0; i < 25; ++i) {
        blockFile(tree, "f" + std::to_string(i), 1);
    }
    std::vector<std::string> listed;
    DIR* listing = ::opendir(tree.root().c_str());
    ASSERT_NE(listing, nullptr);
    while (const dirent* entry = ::readdir(listing)) {
        const std::string name = static_cast<const char*>(entry->d_name);
        if (name != "." && name != "..") {
            listed.push_back(tree.path(name));
        }
    }
    ::closedir(listing);
    ASSERT_EQ(listed.size(), 25U);
    listed.resize(20);
    for (const unsigned threads : {1U, 8U}) {
        WalkOptions options;
        options.threads = threads;
        EXPECT_EQ(pathsOf(zolva::walk(tree.root(), options)), listed);
    }
}

TEST(TreeWalker, NoLargestAreKeptWhereNoneAreWanted)
{
    TempTree tree;
    const std::string file = blockFile(tree, "a", 2);
    WalkOptions options;
    options.keepLargest = false;
    const std::vector<Walk> walks = zolva::walkTrees({tree.root(), file}, options);
    EXPECT_EQ(walks[0].bytes, blocksOf(file));
    EXPECT_EQ(walks[1].bytes, blocksOf(file));
    EXPECT_TRUE(walks[0].largest.empty());
    EXPECT_TRUE(walks[1].largest.empty());
}

TEST(TreeWalker, FoldersThatCannotBeReadArePassedOverAndCounted)
{
    TempTree tree;
    blockFile(tree, "open/file", 1);
    blockFile(tree, "closed/file", 1);
    blockFile(tree, "searchable/file", 1);
    blockFile(tree, "listable/file", 1);
    tree.setMode("closed", 0);
    tree.setMode("searchable", 0111);
    tree.setMode("listable", 0444);
    zolva::test::withoutOverridingPermissions([&] {
        const Walk walk = zolva::walk(tree.root());
        EXPECT_EQ(walk.files, 1);
        EXPECT_EQ(walk.bytes, blocksOf(tree.path("open/file")));
        EXPECT_EQ(walk.unreadable, 3);
    });
}

TEST(TreeWalker, ARootThatCannotBeReadGivesAnEmptyWalkThatSaysSo)
{
    TempTree tree;
    blockFile(tree, "closed/file", 1);
    tree.setMode("closed", 0);
    zolva::test::withoutOverridingPermissions([&] {
        const Walk walk = zolva::walk(tree.path("closed"));
        EXPECT_EQ(walk.files, 0);
        EXPECT_EQ(walk.bytes, 0);
        EXPECT_EQ(walk.unreadable, 1);
        EXPECT_TRUE(walk.largest.empty());
    });
}

TEST(TreeWalker, WhatVanishesDuringTheWalkHarmsNothing)
{
    TempTree tree;
    for (int i = 0; i < 30; ++i) {
        tree.file("stays" + std::to_string(i) + "/file");
    }
    std::atomic<bool> enough = false;
    std::thread changer([&] {
        for (unsigned i = 0; !enough; ++i) {
            const std::string path = tree.path("stays" + std::to_string(i % 30) + "/comes");
            std::error_code ignored;
            std::filesystem::create_directories(path + "/and/goes", ignored);
            std::filesystem::remove_all(path, ignored);
        }
    });
    for (int i = 0; i < 100; ++i) {
        WalkOptions options;
        options.threads = i % 2 == 0 ? 1 : 4;
        const Walk walk = zolva::walk(tree.root(), options);
        EXPECT_EQ(walk.files, 30);
        EXPECT_EQ(walk.unreadable, 0);
    }
    enough = true;
    changer.join();
}

TEST(TreeWalker, ProgressGrowsIsToldAFewTimesASecondAndEndsWithTheWhole)
{
    TempTree tree;
    std::int64_t bytes = 0;
    for (int i = 0; i < 60; ++i) {
        bytes += blocksOf(blockFile(tree, "d" + std::to_string(i) + "/file", 1));
    }
    std::vector<WalkProgress> told;
    WalkOptions options;
    options.threads = 4;
    options.progress = [&](const WalkProgress& progress) { told.push_back(progress); };
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(zolva::walk(tree.root(), options).files, 60);
    const auto quarters =
        (std::chrono::steady_clock::now() - begin) / std::chrono::milliseconds(250);
    EXPECT_LE(told.size(), static_cast<std::size_t>(quarters) + 1);
    ASSERT_FALSE(told.empty());
    EXPECT_EQ(told.back().files, 60);
    EXPECT_EQ(told.back().bytes, bytes);
    EXPECT_TRUE(
        std::is_sorted(told.begin(), told.end(), [](const WalkProgress& a, const WalkProgress& b) {
            return a.files < b.files;
        }));
}

} // namespace
