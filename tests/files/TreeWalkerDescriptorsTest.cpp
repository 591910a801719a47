#include "files/TreeWalker.h"
#include "files/WalkDescriptors.h"
#include "files/WalkSystem.h"

#include "files/BlockFile.h"
#include "support/OpenDescriptors.h"
#include "support/SpoiledMemory.h"
#include "support/TempTree.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <string>
#include <vector>

namespace {

using zolva::WalkDescriptors;
using zolva::WalkFolder;
using zolva::WalkFolderRef;
using zolva::test::openDescriptors;
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

TEST(TreeWalkerLettingGo, AFolderWhoseSubfoldersAreNeverOpenedIsClosedInItsTurn)
{
    const zolva::test::SpoiledMemory spoiled;
    TempTree tree;
    const std::size_t before = openDescriptors();
    {
        WalkDescriptors descriptors(1);
        for (const char* name : {"a", "b", "c"}) {
            const std::string path = tree.folder(name);
            const WalkFolderRef folder(new WalkFolder);
            folder->name = path;
            const int descriptor = descriptors.openRoot(path, folder->spareTimes);
            ASSERT_GE(descriptor, 0);
            descriptors.keep(*folder, descriptor, 1);
            EXPECT_EQ(openDescriptors(), before + 1);
        }
    }
    EXPECT_EQ(openDescriptors(), before);
}

/// Leaves the process only so many descriptors.
class FewDescriptors
{
public:
    explicit FewDescriptors(std::size_t left)
    {
        for (int at = 0; at >= 0;) {
            at = ::open("/", O_PATH | O_CLOEXEC);
            m_taken.push_back(at);
        }
        m_taken.pop_back(); // the one that was refused
        for (; left > 0; --left) {
            ::close(m_taken.back());
            m_taken.pop_back();
        }
    }
    ~FewDescriptors()
    {
        for (const int descriptor : m_taken) {
            ::close(descriptor);
        }
    }
    FewDescriptors(const FewDescriptors&) = delete;
    FewDescriptors& operator=(const FewDescriptors&) = delete;

private:
    const zolva::test::ScopedDescriptorLimit m_limit{64};
    std::vector<int> m_taken;
};

TEST(TreeWalkerFewDescriptors, ARootIsOpenedAtTheCostOfAnIdleFolder)
{
    TempTree tree;
    const std::string path = tree.folder("idle");
    WalkDescriptors descriptors(8);
    const WalkFolderRef idle(new WalkFolder);
    idle->name = path;
    descriptors.keep(*idle, descriptors.openRoot(path, idle->spareTimes), 1);
    const FewDescriptors none(0);
    bool spareTimes = true;
    const int root = descriptors.openRoot(tree.root(), spareTimes);
    EXPECT_GE(root, 0);
    EXPECT_EQ(idle->kept.descriptor, -1);
    ::close(root);
}

/// 40 folders with a file each.
void growTree(TempTree& tree, const std::string& folder, int levels)
{
    tree.file(folder + "file");
    for (int i = 0; levels > 0 && i < 3; ++i) {
        growTree(tree, folder + std::to_string(i) + "/", levels - 1);
    }
}

/// What a walk by so many threads counts, and the files that a search finds.
struct Found
{
    std::int64_t files = 0;
    std::int64_t unreadable = 0;
    std::size_t searched = 0;

    friend bool operator==(const Found&, const Found&) = default;
};

Found found(const TempTree& tree, unsigned threads)
{
    zolva::WalkOptions options;
    options.threads = threads;
    const zolva::Walk walk = zolva::walk(tree.root(), options);
    std::vector<std::string> files;
    zolva::findByName(tree.root(), {"file"}, {}, files);
    return {walk.files, walk.unreadable, files.size()};
}

TEST(TreeWalkerFewDescriptors, ThreeAreEnoughForOneThread)
{
    TempTree tree;
    growTree(tree, "", 3);
    // First without need: a sanitizer opens something of its own where it meets a type first.
    const Found all{40, 0, 40};
    ASSERT_EQ(found(tree, 1), all);
    const std::size_t before = openDescriptors();
    {
        const FewDescriptors three(3);
        EXPECT_EQ(found(tree, 1), all);
    }
    EXPECT_EQ(openDescriptors(), before);
}

TEST(TreeWalkerFewDescriptors, SeveralThreadsWithTooFewEndAndCountWhatTheyCouldNotOpen)
{
    TempTree tree;
    growTree(tree, "", 3);
    ASSERT_EQ(found(tree, 8), (Found{40, 0, 40})); // as above
    const std::size_t before = openDescriptors();
    for (const std::size_t left : {0U, 1U, 2U, 4U, 8U}) {
        const FewDescriptors few(left);
        const Found some = found(tree, 8);
        EXPECT_LE(some.files, 40);
        EXPECT_EQ(some.files == 40, some.unreadable == 0) << left;
    }
    EXPECT_EQ(openDescriptors(), before);
}

} // namespace
