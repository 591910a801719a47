#include "files/FolderTally.h"
#include "files/TreeWalker.h"

#include "support/TempTree.h"

#include <gtest/gtest.h>

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cstdint>
#include <random>
#include <string>
#include <tuple>
#include <vector>

// The walker against the plainest walk there is: one thread, one folder after the other, in the
// order of the listings, over many small random trees full of equal sizes.
namespace zolva {

static bool operator==(const BigFileHit& a, const BigFileHit& b)
{
    return std::tie(a.name, a.path, a.size) == std::tie(b.name, b.path, b.size);
}

static void PrintTo(const BigFileHit& hit, std::ostream* out)
{
    *out << hit.path << " (" << hit.size << ")";
}

} // namespace zolva

namespace {

using zolva::BigFileHit;
using zolva::Walk;

void plainWalk(const std::string& folder, Walk& walk)
{
    DIR* listing = ::opendir(folder.c_str());
    if (listing == nullptr) {
        ++walk.unreadable;
        return;
    }
    while (const dirent* entry = ::readdir(listing)) {
        const std::string name = static_cast<const char*>(entry->d_name);
        if (name == "." || name == "..") {
            continue;
        }
        const std::string path = folder + "/" + name;
        struct stat status
        {};
        if (::lstat(path.c_str(), &status) != 0) {
            continue;
        }
        if (S_ISDIR(status.st_mode)) {
            plainWalk(path, walk);
        }
        if (!S_ISREG(status.st_mode)) {
            continue;
        }
        const std::int64_t size = static_cast<std::int64_t>(status.st_blocks) * 512;
        ++walk.files;
        walk.bytes += size;
        if (walk.largest.size() < 20) {
            walk.largest.push_back({name, path, size});
            continue;
        }
        const auto first = std::min_element(
            walk.largest.begin(), walk.largest.end(),
            [](const BigFileHit& a, const BigFileHit& b) { return a.size < b.size; });
        if (size > first->size) {
            *first = {name, path, size};
        }
    }
    ::closedir(listing);
}

Walk plainWalk(const std::string& folder)
{
    Walk walk;
    plainWalk(folder, walk);
    return walk;
}

/// Files of 0 to 29 blocks, made once; the trees hold hard links to them, since that is quicker
/// than to fill files, and makes their blocks certain.
class BlockFiles
{
public:
    BlockFiles()
    {
        for (std::int64_t blocks = 0; blocks < 30; ++blocks) {
            const std::string path = m_tree.path(std::to_string(blocks));
            const int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0644);
            EXPECT_GE(fd, 0) << path;
            EXPECT_EQ(blocks == 0 ? 0 : ::posix_fallocate(fd, 0, blocks * 4096), 0) << path;
            ::close(fd);
        }
    }
    [[nodiscard]] std::string of(std::size_t blocks) const
    {
        return m_tree.path(std::to_string(blocks));
    }

private:
    zolva::test::TempTree m_tree;
};

/// Random folders, files of few different sizes (or of ever larger ones), links and pipes.
class RandomTree
{
public:
    RandomTree(const BlockFiles& blocks, unsigned seed) : m_blocks(blocks), m_random(seed)
    {
        m_folders.push_back(m_tree.root());
        m_sizes = pick(3) == 0 ? 30 : 1 + pick(5);
        const unsigned files = pick(4) == 0 ? 150 : 40;
        const unsigned folders = 1 + pick(25);
        // Mixed, since some file systems list in the order of making.
        for (unsigned left = files + folders; left > 0; --left) {
            if (pick(files + folders) < folders) {
                addFolder();
            } else {
                addFile();
            }
        }
        for (unsigned i = pick(4); i > 0; --i) {
            const std::string path = anyFolder() + "/l" + std::to_string(i);
            EXPECT_EQ(::symlink(anyFolder().c_str(), path.c_str()), 0);
        }
    }

    [[nodiscard]] const std::string& root() const { return m_tree.root(); }
    [[nodiscard]] const std::string& anyFolder() { return m_folders[pick(m_folders.size())]; }

    /// Makes another tree of it: other places, other sizes.
    void shuffle()
    {
        if (pick(4) == 0) {
            addFolder();
        }
        for (std::size_t i = 1 + pick(12); i > 0; --i) {
            std::string& file = m_files[pick(m_files.size())];
            const std::string path = newPath();
            if (pick(2) == 0) {
                EXPECT_EQ(::rename(file.c_str(), path.c_str()), 0) << file;
            } else {
                EXPECT_EQ(::unlink(file.c_str()), 0) << file;
                EXPECT_EQ(::link(m_blocks.of(pick(m_sizes)).c_str(), path.c_str()), 0) << path;
            }
            file = path;
        }
    }

    std::size_t pick(std::size_t below)
    {
        return std::uniform_int_distribution<std::size_t>(0, below - 1)(m_random);
    }

private:
    void addFolder()
    {
        const std::string path = newPath();
        EXPECT_EQ(::mkdir(path.c_str(), 0755), 0) << path;
        m_folders.push_back(path);
    }

    void addFile()
    {
        m_files.push_back(newPath());
        const std::string source = m_blocks.of(pick(m_sizes));
        EXPECT_EQ(::link(source.c_str(), m_files.back().c_str()), 0) << m_files.back();
    }

    std::string newPath()
    {
        return anyFolder() + "/n" + std::to_string(pick(1000)) + "-" + std::to_string(++m_made);
    }

    const BlockFiles& m_blocks;
    std::mt19937 m_random;
    zolva::test::TempTree m_tree;
    std::vector<std::string> m_folders;
    std::vector<std::string> m_files;
    std::size_t m_made = 0;
    std::size_t m_sizes = 1;
};

void expectSame(const Walk& walk, const Walk& plain, const std::string& what)
{
    EXPECT_EQ(walk.files, plain.files) << what;
    EXPECT_EQ(walk.bytes, plain.bytes) << what;
    EXPECT_EQ(walk.unreadable, plain.unreadable) << what;
    EXPECT_EQ(walk.largest, plain.largest) << what;
}

constexpr unsigned trees = 13;
constexpr unsigned shufflesOfEach = 40;

TEST(WalkOracle, EveryNumberOfThreadsFindsWhatThePlainWalkFinds)
{
    const BlockFiles blocks;
    for (unsigned seed = 0; seed < trees; ++seed) {
        RandomTree tree(blocks, seed);
        for (unsigned shuffle = 0; shuffle < shufflesOfEach && !HasFailure(); ++shuffle) {
            tree.shuffle();
            const Walk plain = plainWalk(tree.root());
            for (const unsigned threads : {1U, 2U, 8U}) {
                zolva::WalkOptions options;
                options.threads = threads;
                expectSame(zolva::walk(tree.root(), options), plain,
                           "tree " + std::to_string(seed) + "." + std::to_string(shuffle) +
                               ", threads " + std::to_string(threads));
            }
            EXPECT_EQ(zolva::folderTally(tree.root()),
                      (zolva::Tally{std::max<std::int64_t>(1, plain.files), plain.bytes}));
        }
    }
}

TEST(WalkOracle, ABigFolderWithFoldersInItIsPutTogetherInTheOrderOfItsListing)
{
    const BlockFiles blocks;
    zolva::test::TempTree tree;
    std::mt19937 random(3);
    for (unsigned i = 0; i < 700; ++i) {
        // Names so long that no buffer holds many.
        const std::string path = tree.path(std::to_string(random()) + std::string(240, 'n'));
        if (i % 60 == 7) {
            ASSERT_EQ(::mkdir(path.c_str(), 0755), 0);
            ASSERT_EQ(::link(blocks.of(29).c_str(), (path + "/largest").c_str()), 0);
            ASSERT_EQ(::link(blocks.of(6).c_str(), (path + "/middle").c_str()), 0);
        } else {
            ASSERT_EQ(::link(blocks.of(random() % 8).c_str(), path.c_str()), 0);
        }
    }
    const Walk plain = plainWalk(tree.root());
    ASSERT_EQ(plain.files, 712);
    for (const unsigned threads : {1U, 2U, 8U}) {
        for (int round = 0; round < 30 && !HasFailure(); ++round) {
            zolva::WalkOptions options;
            options.threads = threads;
            expectSame(zolva::walk(tree.root(), options), plain,
                       "threads " + std::to_string(threads));
        }
    }
}

TEST(WalkOracle, RootsThatNestRepeatAndOverlapEachGetTheirPlainWalk)
{
    const BlockFiles blocks;
    RandomTree tree(blocks, 77);
    for (unsigned shuffle = 0; shuffle < 4 * shufflesOfEach && !HasFailure(); ++shuffle) {
        tree.shuffle();
        std::vector<std::string> roots;
        for (std::size_t i = 1 + tree.pick(6); i > 0; --i) {
            roots.push_back(tree.anyFolder());
        }
        for (const unsigned threads : {1U, 2U, 8U}) {
            zolva::WalkOptions options;
            options.threads = threads;
            const std::vector<Walk> walks = zolva::walkTrees(roots, options);
            ASSERT_EQ(walks.size(), roots.size());
            for (std::size_t i = 0; i < roots.size(); ++i) {
                expectSame(walks[i], plainWalk(roots[i]),
                           roots[i] + ", shuffle " + std::to_string(shuffle) + ", threads " +
                               std::to_string(threads));
            }
        }
    }
}

} // namespace
