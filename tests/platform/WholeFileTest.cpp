#include "platform/WholeFile.h"

#include "support/DroppedCapabilities.h"
#include "support/TempTree.h"

#include <gtest/gtest.h>

#include <sys/resource.h>
#include <sys/stat.h>
#include <unistd.h>

#include <csignal>

namespace zolva {
namespace {

constexpr std::size_t limit = 100'000;

TEST(WholeFile, WhatWasWrittenIsReadBack)
{
    const test::TempTree tree;
    const std::string bytes = std::string("a\0b\xFF", 4) + std::string(40'000, 'x');
    EXPECT_FALSE(replaceWholeFile(tree.path("f"), bytes, 0600));
    const WholeFile read = readWholeFile(tree.path("f"), limit);
    EXPECT_FALSE(read.error);
    EXPECT_EQ(read.bytes, bytes);
}

TEST(WholeFile, TheModeIsTheOneAskedForWhateverTheMask)
{
    const test::TempTree tree;
    EXPECT_FALSE(replaceWholeFile(tree.path("f"), "x", 0644));
    struct stat status
    {};
    ASSERT_EQ(::stat(tree.path("f").c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777u, 0644u);
}

TEST(WholeFile, AFileOverTheLimitIsNotRead)
{
    test::TempTree tree;
    tree.text("f", "12345");
    EXPECT_FALSE(readWholeFile(tree.path("f"), 5).error);
    EXPECT_EQ(readWholeFile(tree.path("f"), 4).error, std::errc::file_too_large);
    EXPECT_TRUE(readWholeFile(tree.path("f"), 4).bytes.empty());
}

TEST(WholeFile, OnlyRegularFilesAreRead)
{
    test::TempTree tree;
    EXPECT_EQ(readWholeFile(tree.path("none"), limit).error, std::errc::no_such_file_or_directory);
    EXPECT_EQ(readWholeFile(tree.root(), limit).error, std::errc::invalid_argument);
    EXPECT_EQ(readWholeFile(tree.fifo("pipe"), limit).error, std::errc::invalid_argument);
}

TEST(WholeFile, AWriteThatTheDiskDoesNotTakeLeavesTheOldContentAndNothingBeside)
{
    test::TempTree tree;
    const std::string file = tree.text("f", "old");
    test::withoutOverridingPermissions([&] {
        // The nearest thing to a full disk that a process can make for itself.
        std::signal(SIGXFSZ, SIG_IGN);
        const rlimit nothing{0, 0};
        ASSERT_EQ(::setrlimit(RLIMIT_FSIZE, &nothing), 0);
        EXPECT_TRUE(replaceWholeFile(file, "new", 0600));
    });
    EXPECT_EQ(readWholeFile(file, limit).bytes, "old");
    EXPECT_EQ(::unlink(file.c_str()), 0);
    EXPECT_EQ(::rmdir(tree.root().c_str()), 0) << "something was left beside it";
}

TEST(WholeFile, AFolderInTheWayIsAnErrorAndLeavesNothingBeside)
{
    test::TempTree tree;
    const std::string folder = tree.folder("f");
    EXPECT_TRUE(replaceWholeFile(folder, "new", 0600));
    EXPECT_EQ(::rmdir(folder.c_str()), 0);
    EXPECT_EQ(::rmdir(tree.root().c_str()), 0) << "something was left beside it";
}

} // namespace
} // namespace zolva
