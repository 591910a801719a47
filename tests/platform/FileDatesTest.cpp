#include "platform/FileDates.h"

#include "support/DeepFolder.h"
#include "support/TempTree.h"

#include <gtest/gtest.h>

#include <fcntl.h>
#include <sys/stat.h>

namespace zolva {

namespace {

using namespace std::chrono_literals;

constexpr FileDate past = FileDate(std::chrono::hours(24) * 15'000 + 500ms);

TEST(FileDates, TheModificationDateIsThatOfTheContent)
{
    test::TempTree tree;
    const std::string file = tree.file("file");
    const std::string folder = tree.folder("folder");
    tree.setModified("file", past);
    tree.setModified("folder", past - 24h);
    EXPECT_EQ(contentModificationDate(file), past);
    EXPECT_EQ(contentModificationDate(folder), past - 24h);
}

TEST(FileDates, ALinkHasItsOwnDateAndNotItsTargets)
{
    test::TempTree tree;
    const std::string file = tree.file("file");
    const std::string link = tree.link("link", file);
    const std::string dangling = tree.link("dangling", tree.path("nowhere"));
    tree.setModified("file", past);
    tree.setModified("link", past + 24h);
    tree.setModified("dangling", past + 48h);
    EXPECT_EQ(contentModificationDate(link), past + 24h);
    EXPECT_EQ(contentModificationDate(dangling), past + 48h);
}

TEST(FileDates, ADateBeforeTheEpochIsTold)
{
    test::TempTree tree;
    const std::string file = tree.file("file");
    tree.setModified("file", FileDate(-500ms));
    EXPECT_EQ(contentModificationDate(file), FileDate(-500ms));
}

TEST(FileDates, ADateBeyondTheClocksReachStaysInTheFuture)
{
    test::TempTree tree;
    const std::string file = tree.file("file");
    // The year 2603, or the last that the file system can keep.
    const timespec times[2] = {{20'000'000'000, 0}, {20'000'000'000, 0}};
    ASSERT_EQ(::utimensat(AT_FDCWD, file.c_str(), times, 0), 0);
    const auto date = contentModificationDate(file);
    ASSERT_TRUE(date);
    EXPECT_GT(*date, FileDate(std::chrono::hours(24) * 365 * 60));
}

TEST(FileDates, WhatIsMissingHasNoDates)
{
    test::TempTree tree;
    for (const std::string& path : {tree.path("missing"), tree.path("a/b/c"), std::string()}) {
        EXPECT_EQ(contentModificationDate(path), std::nullopt);
        EXPECT_EQ(addedToFolderDate(path), std::nullopt);
        EXPECT_EQ(creationDate(path), std::nullopt);
    }
}

TEST(FileDates, ANewFileWasCreatedAndAddedJustNowIfTheSystemKnows)
{
    test::TempTree tree;
    const auto before = std::chrono::system_clock::now() - 5s;
    const std::string file = tree.file("file");
    const auto after = std::chrono::system_clock::now() + 5s;
    for (const auto& date : {creationDate(file), addedToFolderDate(file)}) {
        EXPECT_TRUE(!date || (*date >= before && *date <= after));
    }
}

TEST(FileDates, APathTooLongForOneCallHasItsDates)
{
    test::TempTree tree;
    test::DeepFolder folder(tree, "outer");
    tree.file(folder.shallow() + "/file");
    tree.setModified(folder.shallow() + "/file", past);
    const auto created = creationDate(tree.path(folder.shallow() + "/file"));
    const std::string deep = folder.sink() + "/file";
    ASSERT_GT(deep.size(), 4096U);
    EXPECT_EQ(contentModificationDate(deep), past);
    EXPECT_EQ(contentModificationDate(deep + "x"), std::nullopt);
    EXPECT_EQ(creationDate(deep), created);
}

TEST(FileDates, ANameThatIsNotTextHasItsDate)
{
    test::TempTree tree;
    const std::string file = tree.file("\xFF\xC3");
    tree.setModified("\xFF\xC3", past);
    EXPECT_EQ(contentModificationDate(file), past);
}

} // namespace

} // namespace zolva
