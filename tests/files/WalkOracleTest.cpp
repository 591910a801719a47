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

/// A file whose blocks are certain at once.
void blockFile(const std::string& path, std::int64_t blocks)
{
    const int fd = ::open(path.c_str(), O_WRONLY | O_CREAT | O_CLOEXEC, 0644);
    ASSERT_GE(fd, 0) << path;
    if (blocks > 0) {
        ASSERT_EQ(::posix_fallocate(fd, 0, blocks * 4096), 0);
    }
    ::close(fd);
}

/// Random folders, files of few different sizes (or of ever larger ones), links and pipes.
class RandomTree
{
public:
    explicit RandomTree(unsigned seed) : m_random(seed)
    {
        m_folders.push_back(m_tree.root());
        m_sizes = pick(3) == 0 ? 30 : 1 + pick(5);
        const unsigned files = pick(4) == 0 ? 150 : 40;
        const unsigned folders = 1 + pick(25);
        for (unsigned i = 0; i < folders; ++i) {
            const std::string path =
                anyFolder() + "/d" + std::to_string(pick(1000)) + "-" + std::to_string(i);
            ::mkdir(path.c_str(), 0755);
            m_folders.push_back(path);
        }
        for (unsigned i = 0; i < files; ++i) {
            addFile(i);
        }
        for (unsigned i = pick(4); i > 0; --i) {
            const std::string path = anyFolder() + "/l" + std::to_string(i);
            EXPECT_EQ(::symlink(anyFolder().c_str(), path.c_str()), 0);
        }
    }

    [[nodiscard]] const std::string& root() const { return m_tree.root(); }
    [[nodiscard]] const std::string& anyFolder() { return m_folders[pick(m_folders.size())]; }

    std::size_t pick(std::size_t below)
    {
        return std::uniform_int_distribution<std::size_t>(0, below - 1)(m_random);
    }

private:
    void addFile(unsigned number)
    {
        const std::string path =
            anyFolder() + "/f" + std::to_string(pick(1000)) + "-" + std::to_string(number);
        if (pick(8) == 0 && !m_last.empty()) {
            EXPECT_EQ(::link(m_last.c_str(), path.c_str()), 0);
            return;
        }
        blockFile(path, static_cast<std::int64_t>(pick(m_sizes)));
        m_last = path;
    }

    std::mt19937 m_random;
    zolva::test::TempTree m_tree;
    std::vector<std::string> m_folders;
    std::string m_last;
    std::size_t m_sizes = 1;
};

void expectSame(const Walk& walk, const Walk& plain, const std::string& what)
{
    EXPECT_EQ(walk.files, plain.files) << what;
    EXPECT_EQ(walk.bytes, plain.bytes) << what;
    EXPECT_EQ(walk.unreadable, plain.unreadable) << what;
    EXPECT_EQ(walk.largest, plain.largest) << what;
}

constexpr unsigned trees = 520;

TEST(WalkOracle, EveryNumberOfThreadsFindsWhatThePlainWalkFinds)
{
    for (unsigned seed = 0; seed < trees && !HasFailure(); ++seed) {
        const RandomTree tree(seed);
        const Walk plain = plainWalk(tree.root());
        for (const unsigned threads : {1U, 2U, 8U}) {
            zolva::WalkOptions options;
            options.threads = threads;
            expectSame(zolva::walk(tree.root(), options), plain,
                       "tree " + std::to_string(seed) + ", threads " + std::to_string(threads));
        }
        EXPECT_EQ(zolva::folderTally(tree.root()),
                  (zolva::Tally{std::max<std::int64_t>(1, plain.files), plain.bytes}));
    }
}

TEST(WalkOracle, RootsThatNestRepeatAndOverlapEachGetTheirPlainWalk)
{
    for (unsigned seed = 1000; seed < 1000 + trees / 4 && !HasFailure(); ++seed) {
        RandomTree tree(seed);
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
                           roots[i] + ", tree " + std::to_string(seed) + ", threads " +
                               std::to_string(threads));
            }
        }
    }
}

} // namespace
