#include "files/TreeWalker.h"

#include "files/BlockFile.h"
#include "support/DroppedCapabilities.h"
#include "support/TempTree.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>

namespace {

using zolva::BigFileHit;
using zolva::Walk;
using zolva::test::blockFile;
using zolva::test::blocksOf;
using zolva::test::TempTree;

/// One file of one block in each of "a", "a/b", "a/b/c" and "d".
class TreeWalkerRoots : public ::testing::Test
{
protected:
    void SetUp() override
    {
        for (const char* folder : {"a", "a/b", "a/b/c", "d"}) {
            m_block = blocksOf(blockFile(tree, std::string(folder) + "/file", 1));
        }
    }

    /// Files of each root; bytes and hits are checked against them.
    std::vector<std::int64_t> filesOf(const std::vector<std::string>& roots)
    {
        std::vector<std::int64_t> files;
        for (const Walk& walk : zolva::walkTrees(roots)) {
            files.push_back(walk.files);
            EXPECT_EQ(walk.bytes, walk.files * m_block);
            EXPECT_EQ(static_cast<std::int64_t>(walk.largest.size()), walk.files);
        }
        return files;
    }

    using Files = std::vector<std::int64_t>;
    TempTree tree;
    std::int64_t m_block = 0;
};

TEST_F(TreeWalkerRoots, NestedRootsHaveTheirOwnSumsWhateverTheirOrder)
{
    EXPECT_EQ(filesOf({tree.path("a"), tree.path("a/b"), tree.path("a/b/c")}), (Files{3, 2, 1}));
    EXPECT_EQ(filesOf({tree.path("a/b/c"), tree.path("a"), tree.path("a/b")}), (Files{1, 3, 2}));
    EXPECT_EQ(filesOf({tree.path("a/b/c"), tree.path("a")}), (Files{1, 3}));
}

TEST_F(TreeWalkerRoots, RepeatedRootsEachGetTheWholeUnderTheirOwnText)
{
    const std::vector<Walk> walks =
        zolva::walkTrees({tree.path("d"), tree.path("d/"), tree.path("a/../d")});
    ASSERT_EQ(walks.size(), 3U);
    EXPECT_EQ(walks[0].largest.at(0).path, tree.path("d/file"));
    EXPECT_EQ(walks[1].largest.at(0).path, tree.path("d/file"));
    EXPECT_EQ(walks[2].largest.at(0).path, tree.path("a/../d/file"));
}

TEST_F(TreeWalkerRoots, PathsInAnInnerRootBeginWithItsText)
{
    const std::vector<Walk> walks = zolva::walkTrees({tree.path("a"), tree.path("a/b/c")});
    EXPECT_EQ(walks[1].largest.at(0).path, tree.path("a/b/c/file"));
    std::vector<std::string> paths;
    for (const BigFileHit& hit : walks[0].largest) {
        paths.push_back(hit.path);
    }
    EXPECT_EQ(std::count(paths.begin(), paths.end(), tree.path("a/b/c/file")), 1);
}

TEST_F(TreeWalkerRoots, ARootReachedThroughALinkIsWalkedByItself)
{
    const std::string link = tree.link("a/link", "../d");
    EXPECT_EQ(filesOf({tree.path("a"), link}), (Files{3, 1}));
    EXPECT_EQ(filesOf({tree.path("a"), link, tree.path("d")}), (Files{3, 1, 1}));
    EXPECT_EQ(zolva::walkTrees({tree.path("a"), link})[1].largest.at(0).path, link + "/file");
}

TEST_F(TreeWalkerRoots, ALinkIntoAnotherRootGivesBothTheirWhole)
{
    const std::string link = tree.link("d/link", "../a/b");
    EXPECT_EQ(filesOf({tree.path("a"), link}), (Files{3, 2}));
    EXPECT_EQ(filesOf({link, tree.path("a/b/c"), tree.path("a")}), (Files{2, 1, 3}));
    EXPECT_EQ(filesOf({link + "/c", tree.path("d"), tree.path("a/b")}), (Files{1, 1, 2}));
}

TEST_F(TreeWalkerRoots, ALinkToTheRootThatHoldsItIsTheSameRoot)
{
    const std::string link = tree.link("a/loop", "../a");
    EXPECT_EQ(filesOf({link, tree.path("a")}), (Files{3, 3}));
    EXPECT_EQ(filesOf({tree.path("a"), link + "/b", link}), (Files{3, 2, 3}));
}

TEST_F(TreeWalkerRoots, FilesAndMissingOnesMayStandAmongTheRoots)
{
    EXPECT_EQ(filesOf({tree.path("none"), tree.path("a/file"), tree.path("a"), tree.path("a/x")}),
              (Files{0, 1, 3, 0}));
}

TEST_F(TreeWalkerRoots, ARootWithTheSameBeginningOfItsNameIsNoInnerRoot)
{
    blockFile(tree, "abc/file", 1);
    EXPECT_EQ(filesOf({tree.path("a"), tree.path("abc")}), (Files{3, 1}));
}

TEST_F(TreeWalkerRoots, AnUnreadableInnerRootCountsForItselfAndForTheOnesAround)
{
    tree.setMode("a/b/c", 0);
    zolva::test::withoutOverridingPermissions([&] {
        const std::vector<Walk> walks =
            zolva::walkTrees({tree.path("a"), tree.path("a/b"), tree.path("a/b/c")});
        EXPECT_EQ(walks[0].unreadable, 1);
        EXPECT_EQ(walks[1].unreadable, 1);
        EXPECT_EQ(walks[2].unreadable, 1);
        EXPECT_EQ(walks[0].files, 2);
        EXPECT_EQ(walks[2].files, 0);
    });
}

TEST_F(TreeWalkerRoots, AnInnerRootBehindAFolderThatCannotBeListedIsWalkedByItself)
{
    tree.setMode("a/b", 0111);
    zolva::test::withoutOverridingPermissions([&] {
        const std::vector<Walk> walks = zolva::walkTrees({tree.path("a"), tree.path("a/b/c")});
        EXPECT_EQ(walks[0].files, 1);
        EXPECT_EQ(walks[0].unreadable, 1);
        EXPECT_EQ(walks[1].files, 1);
        EXPECT_EQ(walks[1].unreadable, 0);
    });
}

TEST_F(TreeWalkerRoots, ManyRootsAreWalkedAtOnce)
{
    TempTree many;
    std::vector<std::string> roots;
    for (int i = 0; i < 400; ++i) {
        roots.push_back(many.folder("r" + std::to_string(i)));
    }
    blockFile(many, "r399/file", 1);
    const zolva::test::ScopedDescriptorLimit limit(128);
    const Files files = filesOf(roots);
    EXPECT_EQ(files.back(), 1);
    EXPECT_EQ(std::count(files.begin(), files.end(), 0), 399);
}

TEST_F(TreeWalkerRoots, LinksOnTopCountByThemselvesWhereTheyLeadSomewhereAndLinksBelowNever)
{
    // Too long to be kept in the inode: each such link has a block of its own.
    const std::string target = tree.path("d/" + std::string(100, 'f'));
    tree.text("d/" + std::string(100, 'f'), "");
    tree.link("a/link", target);
    tree.link("a/lost", target + "-gone");
    tree.link("a/b/link", target);
    zolva::WalkOptions options;
    const Walk without = zolva::walk(tree.path("a"), options);
    options.linksOnTop = true;
    const Walk with = zolva::walk(tree.path("a"), options);
    EXPECT_EQ(with.files, without.files + 1);
    EXPECT_EQ(with.bytes, without.bytes + blocksOf(tree.path("a/link")));
    EXPECT_EQ(with.largest.size(), without.largest.size());
}

TEST_F(TreeWalkerRoots, AWalkThatIsStoppedFromTheStartFindsNothing)
{
    const std::atomic<bool> stop = true;
    zolva::WalkOptions options;
    options.stop = &stop;
    EXPECT_EQ(zolva::walk(tree.path("a"), options).files, 0);
}

} // namespace
