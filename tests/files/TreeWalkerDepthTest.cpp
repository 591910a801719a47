#include "files/FolderListing.h"
#include "files/FolderTally.h"
#include "files/TreeWalker.h"

#include "files/BlockFile.h"
#include "support/QuickPlace.h"
#include "support/ScopedHome.h"
#include "support/TempTree.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <stdexcept>

namespace {

using zolva::Walk;
using zolva::WalkOptions;
using zolva::test::ScopedDescriptorLimit;
using zolva::test::ScopedVariable;
using zolva::test::TempTree;

/// A chain of folders with names of 255 bytes, so deep that its path fits no call; at the bottom an
/// empty file, on the way others if wanted.
class DeepChain
{
public:
    enum class EachLevel
    {
        Nothing,
        FileAndSideFolder
    };

    DeepChain(unsigned depth, EachLevel each) : m_depth(depth), m_each(each)
    {
        int at = start();
        for (unsigned level = 0; level < m_depth; ++level) {
            if (m_each == EachLevel::FileAndSideFolder) {
                touch(at, "file");
                must(::mkdirat(at, "side", 0755));
                const int side = enter(at, "side");
                touch(side, "file");
                ::close(side);
            }
            must(::mkdirat(at, m_name.c_str(), 0755));
            at = move(at, m_name.c_str());
        }
        touch(at, "bottom");
        ::close(at);
    }

    ~DeepChain()
    {
        int at = start();
        for (unsigned level = 0; level < m_depth; ++level) {
            at = move(at, m_name.c_str());
        }
        ::unlinkat(at, "bottom", 0);
        for (unsigned level = 0; level < m_depth; ++level) {
            at = move(at, "..");
            ::unlinkat(at, m_name.c_str(), AT_REMOVEDIR);
            if (m_each == EachLevel::FileAndSideFolder) {
                ::unlinkat(at, "side/file", 0);
                ::unlinkat(at, "side", AT_REMOVEDIR);
                ::unlinkat(at, "file", 0);
            }
        }
        ::close(at);
    }
    DeepChain(const DeepChain&) = delete;
    DeepChain& operator=(const DeepChain&) = delete;

    [[nodiscard]] const std::string& root() const { return m_tree.root(); }
    [[nodiscard]] std::string pathAt(unsigned level) const
    {
        std::string path = m_tree.root();
        for (unsigned i = 0; i < level; ++i) {
            path += "/" + m_name;
        }
        return path;
    }

private:
    static int must(int result)
    {
        if (result < 0) {
            throw std::runtime_error("the chain cannot be made");
        }
        return result;
    }
    static int enter(int at, const char* name)
    {
        return must(::openat(at, name, O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    }
    static int move(int at, const char* name)
    {
        const int next = enter(at, name);
        ::close(at);
        return next;
    }
    static void touch(int at, const char* name)
    {
        ::close(must(::openat(at, name, O_WRONLY | O_CREAT | O_CLOEXEC, 0644)));
    }
    [[nodiscard]] int start() const { return enter(AT_FDCWD, m_tree.root().c_str()); }

    const ScopedVariable m_place{"TMPDIR", zolva::test::quickPlace()};
    TempTree m_tree;
    const std::string m_name = std::string(255, 'd');
    const unsigned m_depth;
    const EachLevel m_each;
};

Walk walkWith(const std::string& root, unsigned threads)
{
    WalkOptions options;
    options.threads = threads;
    return zolva::walk(root, options);
}

TEST(TreeWalkerDepth, FiveThousandLevelsOfTheLongestNamesAreCountedWhole)
{
    constexpr unsigned depth = 5000;
    const DeepChain chain(depth, DeepChain::EachLevel::Nothing);
    for (const unsigned limit : {1000U, 256U}) {
        const ScopedDescriptorLimit scoped(limit);
        for (const unsigned threads : {1U, 8U}) {
            const Walk walk = walkWith(chain.root(), threads);
            EXPECT_EQ(walk.files, 1);
            EXPECT_EQ(walk.unreadable, 0);
            ASSERT_EQ(walk.largest.size(), 1U);
            EXPECT_EQ(walk.largest[0].path, chain.pathAt(depth) + "/bottom");
        }
        std::vector<std::string> found;
        zolva::findByName(chain.root(), {"bottom"}, {}, found);
        EXPECT_EQ(found, std::vector<std::string>{chain.pathAt(depth) + "/bottom"});
    }
}

TEST(TreeWalkerDepth, FoldersThatWaitAtEveryLevelAreAllReachedWithFewDescriptors)
{
    constexpr unsigned depth = 300;
    const DeepChain chain(depth, DeepChain::EachLevel::FileAndSideFolder);
    for (const unsigned limit : {1000U, 256U, 64U}) {
        const ScopedDescriptorLimit scoped(limit);
        for (const unsigned threads : {1U, 2U, 8U}) {
            const Walk walk = walkWith(chain.root(), threads);
            EXPECT_EQ(walk.files, 2 * depth + 1);
            EXPECT_EQ(walk.unreadable, 0);
        }
        std::vector<std::string> found;
        zolva::findByName(chain.root(), {"file"}, {}, found);
        EXPECT_EQ(found.size(), 2 * depth);
    }
}

TEST(TreeWalkerDepth, APathTooLongForOneCallServesAsRoot)
{
    constexpr unsigned depth = 60;
    const DeepChain chain(depth, DeepChain::EachLevel::FileAndSideFolder);
    constexpr std::int64_t below = 2 * std::int64_t{depth - 40} + 1;
    const std::string root = chain.pathAt(40);
    EXPECT_EQ(zolva::walk(root).files, below);
    EXPECT_EQ(zolva::folderTally(root), (zolva::Tally{below, 0}));
    EXPECT_EQ(zolva::folderTally(root + "/file"), (zolva::Tally{1, 0}));
    EXPECT_EQ(zolva::folderTally(root + "/none"), (zolva::Tally{0, 0}));
    EXPECT_TRUE(zolva::isFolderAt(root));
    EXPECT_TRUE(zolva::existsAt(root + "/file"));
    const auto entries = zolva::listFolder(root, zolva::HiddenEntries::Keep);
    ASSERT_TRUE(entries.has_value());
    EXPECT_EQ(entries->size(), 3U);
    const std::vector<Walk> walks = zolva::walkTrees({chain.root(), root, chain.pathAt(50)});
    EXPECT_EQ(walks[0].files, 2 * depth + 1);
    EXPECT_EQ(walks[1].files, below);
    EXPECT_EQ(walks[2].files, 2 * (depth - 50) + 1);
}

} // namespace
