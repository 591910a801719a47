#include "files/TreeWalker.h"

#include "support/OpenDescriptors.h"
#include "support/SpoiledMemory.h"
#include "support/TempTree.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <filesystem>

namespace {

using zolva::Walk;
using zolva::WalkOptions;
using zolva::WalkProgress;
using zolva::test::openDescriptors;

/// 85 folders, four in each but the innermost, and in each one file, so that progress is told once
/// a folder.
class TreeWalkerStop : public ::testing::Test
{
protected:
    static constexpr std::int64_t all = 1 + 4 + 16 + 64;

    void SetUp() override
    {
        grow("", 3);
        ASSERT_EQ(stoppedAfter({tree.root()}, all + 1, 1).front().files, all);
        before = openDescriptors();
    }

    void grow(const std::string& folder, int levels)
    {
        tree.file(folder + "file");
        for (int i = 0; levels > 0 && i < 4; ++i) {
            grow(folder + std::to_string(i) + "/", levels - 1);
        }
    }

    /// A walk that is stopped as soon as it has told so many files.
    static std::vector<Walk> stoppedAfter(const std::vector<std::string>& roots, std::int64_t files,
                                          unsigned threads)
    {
        std::atomic<bool> stop = false;
        WalkOptions options;
        options.threads = threads;
        options.stop = &stop;
        options.progressSpacing = std::chrono::milliseconds(0);
        options.progress = [&](const WalkProgress& progress) {
            if (progress.files >= files) {
                stop = true;
            }
        };
        return zolva::walkTrees(roots, options);
    }

    const zolva::test::SpoiledMemory spoiled;
    zolva::test::TempTree tree;
    std::size_t before = 0;
};

TEST_F(TreeWalkerStop, OneThreadEndsWhereItIsToldAndLeavesNoDescriptorOpen)
{
    for (std::int64_t files = 1; files <= all; ++files) {
        EXPECT_EQ(stoppedAfter({tree.root()}, files, 1).front().files, files);
        ASSERT_EQ(openDescriptors(), before) << "stopped after " << files;
    }
}

TEST_F(TreeWalkerStop, SeveralThreadsEndEarlyAndLeaveNoDescriptorOpen)
{
    for (const unsigned threads : {2U, 8U}) {
        // Nobody else has begun when the first folder is told.
        EXPECT_EQ(stoppedAfter({tree.root()}, 1, threads).front().files, 1);
        for (std::int64_t files = 1; files <= all; ++files) {
            EXPECT_GE(stoppedAfter({tree.root()}, files, threads).front().files, files);
            ASSERT_EQ(openDescriptors(), before) << "stopped after " << files;
        }
    }
}

TEST_F(TreeWalkerStop, TheLargestFilesOfAWalkThatEndedEarlyAreToldWhole)
{
    const std::vector<std::string> roots{tree.path("1"), tree.root(), tree.path("2/3")};
    for (std::int64_t files = 1; files <= all; files += 7) {
        const std::vector<Walk> walks = stoppedAfter(roots, files, 1);
        EXPECT_EQ(walks[1].files, files);
        // A file that was counted, and stands in its folder behind others that were not gone
        // through, was not looked at for this.
        EXPECT_LE(walks[1].largest.size(),
                  static_cast<std::size_t>(std::min<std::int64_t>(files, 20)));
        for (const Walk& walk : walks) {
            for (const zolva::BigFileHit& hit : walk.largest) {
                EXPECT_TRUE(std::filesystem::exists(hit.path)) << hit.path;
            }
        }
    }
    EXPECT_EQ(openDescriptors(), before);
}

} // namespace
