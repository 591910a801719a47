#include "files/WalkDescriptors.h"
#include "files/WalkSystem.h"

#include "files/BlockFile.h"
#include "support/TempTree.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>

namespace {

using zolva::WalkDescriptors;
using zolva::WalkFolder;
using zolva::WalkFolderRef;
using zolva::test::TempTree;

/// "top/middle/child" with room for one descriptor, taken by another folder by then.
class TreeWalkerDescriptors : public ::testing::Test
{
protected:
    void SetUp() override
    {
        tree.folder("top/middle/child");
        tree.folder("other");
        middle = below(top("top"), "middle");
        descriptors.keep(*middle, opened("top/middle"), 1);
        descriptors.keep(*other, opened("other"), 1);
    }
    void TearDown() override { ::close(descriptors.openChild(*other, "none", spareTimes)); }

    WalkFolderRef top(const std::string& relative)
    {
        WalkFolderRef folder(new WalkFolder);
        folder->name = tree.path(relative);
        return folder;
    }
    static WalkFolderRef below(const WalkFolderRef& parent, const std::string& name)
    {
        WalkFolderRef folder(new WalkFolder);
        folder->parent = parent;
        folder->name = name;
        return folder;
    }
    int opened(const std::string& relative)
    {
        const int descriptor = zolva::openFolder(tree.path(relative), spareTimes);
        EXPECT_GE(descriptor, 0);
        return descriptor;
    }

    TempTree tree;
    bool spareTimes = true;
    WalkDescriptors descriptors{1};
    WalkFolderRef other = top("other");
    WalkFolderRef middle;
};

TEST_F(TreeWalkerDescriptors, AFolderWhoseDescriptorWasClosedIsReachedAgain)
{
    ASSERT_EQ(middle->kept.descriptor, -1);
    const int child = descriptors.openChild(*middle, "child", spareTimes);
    EXPECT_GE(child, 0);
    ::close(child);
}

TEST_F(TreeWalkerDescriptors, ALinkPutInThePlaceOfAClosedFolderIsRefused)
{
    tree.folder("elsewhere/child");
    ASSERT_EQ(std::rename(tree.path("top/middle").c_str(), tree.path("moved").c_str()), 0);
    tree.link("top/middle", "../elsewhere");
    EXPECT_EQ(descriptors.openChild(*middle, "child", spareTimes), -1);
}

TEST_F(TreeWalkerDescriptors, ALinkPutHigherUpOnTheWayIsRefused)
{
    tree.folder("elsewhere/middle/child");
    ASSERT_EQ(std::rename(tree.path("top").c_str(), tree.path("moved").c_str()), 0);
    tree.link("top", "elsewhere");
    EXPECT_EQ(descriptors.openChild(*middle, "child", spareTimes), -1);
    EXPECT_EQ(errno, ENOENT);
}

TEST_F(TreeWalkerDescriptors, AnotherFolderInThePlaceOfAClosedOneIsRefused)
{
    ASSERT_EQ(std::rename(tree.path("top/middle").c_str(), tree.path("moved").c_str()), 0);
    tree.folder("top/middle/child");
    EXPECT_EQ(descriptors.openChild(*middle, "child", spareTimes), -1);
    EXPECT_EQ(errno, ENOENT);
}

TEST_F(TreeWalkerDescriptors, ALinkInThePlaceOfAListedFolderIsRefused)
{
    tree.link("other/child", "../top");
    EXPECT_EQ(descriptors.openChild(*other, "child", spareTimes), -1);
    other->kept.unopened = 1;
    descriptors.keep(*other, opened("other"), 1);
}

TEST(TreeWalkerDescriptorLimit, MostOfTheDescriptorsAreLeftToTheRestOfTheProgram)
{
    for (const unsigned limit : {64U, 256U, 1000U}) {
        const zolva::test::ScopedDescriptorLimit scoped(limit);
        EXPECT_LE(WalkDescriptors::suitableCapacity(), limit / 4);
        EXPECT_GE(WalkDescriptors::suitableCapacity(), 8U);
    }
}

} // namespace
