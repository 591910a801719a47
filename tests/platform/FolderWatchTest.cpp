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
    const FolderWatch watch(tree.root());
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
    const FolderWatch watch(tree.root());
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
    const FolderWatch watch(tree.root());
    tree.file("below/a");
    EXPECT_FALSE(isTold(watch));
}

TEST(FolderWatch, ThatTheFolderItselfWasRenamedOrRemovedIsTold)
{
    test::TempTree tree;
    const std::string folder = tree.folder("folder");
    const FolderWatch watch(folder);
    ASSERT_EQ(std::rename(folder.c_str(), tree.path("renamed").c_str()), 0);
    EXPECT_TRUE(isTold(watch));
    watch.drain();
    EXPECT_FALSE(isTold(watch));
    ASSERT_EQ(::rmdir(tree.path("renamed").c_str()), 0);
    EXPECT_TRUE(isTold(watch));
}

TEST(FolderWatch, AFolderThatIsMissingIsNotWatched)
{
    const test::TempTree tree;
    const FolderWatch watch(tree.path("missing"));
    EXPECT_LT(watch.descriptor(), 0);
    watch.drain();
}

} // namespace
} // namespace zolva
