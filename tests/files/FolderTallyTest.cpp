#include "files/FolderTally.h"

#include "files/BlockFile.h"
#include "support/DroppedCapabilities.h"
#include "support/TempTree.h"

#include <gtest/gtest.h>

#include <unistd.h>

namespace {

using zolva::folderTally;
using zolva::Tally;
using zolva::test::blockFile;
using zolva::test::blocksOf;
using zolva::test::TempTree;

TEST(FolderTally, AMissingPathIsZeroOfZero)
{
    const TempTree tree;
    EXPECT_EQ(folderTally(tree.path("none")), (Tally{0, 0}));
    EXPECT_EQ(folderTally(""), (Tally{0, 0}));
}

TEST(FolderTally, NothingButAMissingPathHasACountBelowOne)
{
    TempTree tree;
    tree.folder("empty");
    tree.folder("nested/empty/folders");
    tree.file("file");
    tree.fifo("pipe");
    tree.link("link", "empty");
    for (const char* name : {"empty", "nested", "file", "pipe", "link"}) {
        EXPECT_EQ(folderTally(tree.path(name)).count, 1) << name;
    }
}

TEST(FolderTally, AnEmptyFolderIsOneOfNoBytes)
{
    TempTree tree;
    EXPECT_EQ(folderTally(tree.folder("empty")), (Tally{1, 0}));
}

TEST(FolderTally, AFolderOfEmptyFilesHasACountAndNoBytes)
{
    TempTree tree;
    tree.file("folder/a");
    tree.file("folder/b");
    tree.file("folder/sub/c");
    EXPECT_EQ(folderTally(tree.path("folder")), (Tally{3, 0}));
}

TEST(FolderTally, CountsRegularFilesOnlyHiddenOnesIncluded)
{
    TempTree tree;
    std::int64_t bytes = blocksOf(blockFile(tree, "top/.hidden", 2));
    bytes += blocksOf(blockFile(tree, "top/Some.app/inner", 3));
    tree.link("top/link", ".hidden");
    tree.fifo("top/pipe");
    tree.folder("top/folder");
    EXPECT_EQ(folderTally(tree.path("top")), (Tally{2, bytes}));
}

TEST(FolderTally, AFileIsOneOfItsSize)
{
    TempTree tree;
    const std::string path = blockFile(tree, "file", 7);
    EXPECT_EQ(folderTally(path), (Tally{1, blocksOf(path)}));
}

TEST(FolderTally, ALinkIsOneOfItsOwnSizeNeverItsTargetsTree)
{
    TempTree tree;
    blockFile(tree, "folder/a", 5);
    blockFile(tree, "folder/b", 5);
    const std::string link = tree.link("link", "folder");
    EXPECT_EQ(folderTally(link), (Tally{1, blocksOf(link)}));
    // So long a target needs a block of its own.
    std::string far;
    for (int i = 0; i < 100; ++i) {
        far += "folder/../";
    }
    const std::string longLink = tree.link("long", far + "folder");
    EXPECT_EQ(folderTally(longLink), (Tally{1, blocksOf(longLink)}));
}

TEST(FolderTally, ADanglingLinkIsNothing)
{
    TempTree tree;
    EXPECT_EQ(folderTally(tree.link("link", "nowhere")), (Tally{0, 0}));
    EXPECT_EQ(folderTally(tree.link("loop", "loop")), (Tally{0, 0}));
}

TEST(FolderTally, AFolderThatCannotBeListedIsOneOfNoBytes)
{
    TempTree tree;
    blockFile(tree, "closed/a", 1);
    blockFile(tree, "closed/b", 1);
    tree.setMode("closed", 0);
    zolva::test::withoutOverridingPermissions([&] {
        EXPECT_EQ(folderTally(tree.path("closed")), (Tally{1, 0}));
    });
}

TEST(FolderTally, UnreadableFoldersBelowArePassedOver)
{
    TempTree tree;
    const std::int64_t bytes = blocksOf(blockFile(tree, "top/a", 1));
    blockFile(tree, "top/closed/b", 1);
    tree.setMode("top/closed", 0);
    zolva::test::withoutOverridingPermissions([&] {
        EXPECT_EQ(folderTally(tree.path("top")), (Tally{1, bytes}));
    });
}

TEST(FolderTally, ManyPathsAtOnceComeBackInTheirOrder)
{
    TempTree tree;
    const std::int64_t block = blocksOf(blockFile(tree, "a/one", 1));
    blockFile(tree, "a/b/two", 1);
    const std::string link = tree.link("a/link", "b");
    const std::vector<Tally> tallies =
        zolva::folderTallies({tree.path("a/b"), tree.path("none"), tree.path("a"), link,
                              tree.path("a/one"), tree.path("a/b")});
    EXPECT_EQ(
        tallies,
        (std::vector<Tally>{
            {1, block}, {0, 0}, {2, 2 * block}, {1, blocksOf(link)}, {1, block}, {1, block}}));
    EXPECT_TRUE(zolva::folderTallies({}).empty());
}

TEST(FolderTally, AllocatedSizeIsTheThingsOwnAndZeroIfNothingIsThere)
{
    TempTree tree;
    const std::string file = blockFile(tree, "file", 3);
    EXPECT_EQ(zolva::allocatedSize(file), blocksOf(file));
    const std::string link = tree.link("link", "file");
    EXPECT_EQ(zolva::allocatedSize(link), blocksOf(link));
    EXPECT_EQ(zolva::allocatedSize(tree.path("none")), 0);
}

TEST(FolderTally, AFileWithHolesCountsWhatItOccupies)
{
    TempTree tree;
    const std::string path = tree.file("sparse");
    ASSERT_EQ(::truncate(path.c_str(), 1 << 30), 0);
    EXPECT_EQ(folderTally(path), (Tally{1, 0}));
}

} // namespace
