#include "platform/FolderWatch.h"

#include "support/TempTree.h"

#include <gtest/gtest.h>

#include <poll.h>
#include <unistd.h>

#include <cstdio>

namespace zolva {
namespace {

bool isTold(const FolderWatch& watch)
{
    pollfd poll{watch.descriptor(), POLLIN, 0};
    return ::poll(&poll, 1, 0) > 0;
}

TEST(FolderWatch, TellsWhatIsAddedRemovedAndRenamed)
{
    test::TempTree tree;
    FolderWatch watch(tree.root());
    ASSERT_GE(watch.descriptor(), 0);
    EXPECT_FALSE(isTold(watch));
    const std::string file = tree.file("a");
    EXPECT_TRUE(isTold(watch));
    watch.drain();
    EXPECT_FALSE(isTold(watch));
    ASSERT_EQ(std::rename(file.c_str(), tree.path("b").c_str()), 0);
    EXPECT_TRUE(isTold(watch));
    watch.drain();
    ASSERT_EQ(::unlink(tree.path("b").c_str()), 0);
    EXPECT_TRUE(isTold(watch));
}

TEST(FolderWatch, DrainingForgetsAllThatWasTold)
{
    test::TempTree tree;
    FolderWatch watch(tree.root());
    for (int i = 0; i < 400; ++i) {
        const std::string name = tree.path("a folder with a rather long name " + std::to_string(i));
        ASSERT_EQ(::symlink("nowhere", name.c_str()), 0);
    }
    watch.drain();
    EXPECT_FALSE(isTold(watch));
}

TEST(FolderWatch, WhatHappensFartherBelowIsNotTold)
{
    test::TempTree tree;
    tree.folder("below");
    FolderWatch watch(tree.root());
    tree.file("below/a");
    EXPECT_FALSE(isTold(watch));
}

TEST(FolderWatch, ThatTheFolderItselfWasRenamedOrRemovedIsTold)
{
    test::TempTree tree;
    const std::string folder = tree.folder("folder");
    FolderWatch watch(folder);
    ASSERT_EQ(std::rename(folder.c_str(), tree.path("renamed").c_str()), 0);
    EXPECT_TRUE(isTold(watch));
    watch.drain();
    EXPECT_FALSE(isTold(watch));
    ASSERT_EQ(::rmdir(tree.path("renamed").c_str()), 0);
    EXPECT_TRUE(isTold(watch));
}

/// What was told until now is forgotten; whether the next file in the folder is told.
bool isWatched(FolderWatch& watch, const std::string& folder)
{
    watch.drain();
    EXPECT_FALSE(isTold(watch));
    const std::string file = folder + "/new";
    EXPECT_EQ(::symlink("nowhere", file.c_str()), 0);
    const bool told = isTold(watch);
    EXPECT_EQ(::unlink(file.c_str()), 0);
    watch.drain();
    return told;
}

TEST(FolderWatch, AFolderThatWasRemovedIsWatchedAgainWhenItIsMadeAnew)
{
    test::TempTree tree;
    const std::string folder = tree.folder("Trash/files");
    FolderWatch watch(folder);
    const int descriptor = watch.descriptor();
    for (int i = 0; i < 3; ++i) {
        ASSERT_EQ(::rmdir(folder.c_str()), 0);
        EXPECT_TRUE(isTold(watch));
        watch.drain();
        EXPECT_FALSE(isTold(watch));
        tree.folder("Trash/files");
        EXPECT_TRUE(isTold(watch));
        EXPECT_TRUE(isWatched(watch, folder));
    }
    EXPECT_EQ(watch.descriptor(), descriptor);
}

TEST(FolderWatch, AFolderThatWasRemovedWithItsParentIsWatchedAgainToo)
{
    test::TempTree tree;
    const std::string folder = tree.folder("share/Trash/files");
    FolderWatch watch(folder);
    ASSERT_EQ(::rmdir(folder.c_str()), 0);
    watch.drain();
    ASSERT_EQ(::rmdir(tree.path("share/Trash").c_str()), 0);
    EXPECT_TRUE(isTold(watch));
    watch.drain();
    tree.folder("share/Trash");
    EXPECT_TRUE(isTold(watch));
    watch.drain();
    tree.folder("share/Trash/files");
    EXPECT_TRUE(isTold(watch));
    EXPECT_TRUE(isWatched(watch, folder));
}

TEST(FolderWatch, WhatCameBetweenTwoLooksIsWatchedWhole)
{
    test::TempTree tree;
    const std::string folder = tree.folder("share/Trash/files");
    FolderWatch watch(folder);
    ASSERT_EQ(::rmdir(folder.c_str()), 0);
    ASSERT_EQ(::rmdir(tree.path("share/Trash").c_str()), 0);
    tree.folder("share/Trash/files");
    EXPECT_TRUE(isTold(watch));
    EXPECT_TRUE(isWatched(watch, folder));
}

TEST(FolderWatch, AnotherFolderInItsPlaceIsWatchedAndTheOldOneNoMore)
{
    test::TempTree tree;
    const std::string folder = tree.folder("Trash/files");
    FolderWatch watch(folder);
    ASSERT_EQ(std::rename(tree.path("Trash").c_str(), tree.path("Old").c_str()), 0);
    EXPECT_TRUE(isTold(watch));
    tree.folder("Trash/files");
    EXPECT_TRUE(isWatched(watch, folder));
    tree.file("Old/files/a");
    EXPECT_FALSE(isTold(watch));
}

TEST(FolderWatch, WhatHappensBesideTheFolderIsNotTold)
{
    test::TempTree tree;
    FolderWatch watch(tree.folder("share/Trash/files"));
    tree.file("share/Trash/directorysizes");
    tree.file("share/a");
    EXPECT_FALSE(isTold(watch));
}

TEST(FolderWatch, AFolderThatIsMissingIsNotWatched)
{
    const test::TempTree tree;
    FolderWatch watch(tree.path("missing"));
    EXPECT_LT(watch.descriptor(), 0);
    watch.drain();
}

} // namespace
} // namespace zolva
