#include "scanners/CleanScan.h"

#include "scanners/NaiveDisk.h"
#include "scanners/ReservedFile.h"
#include "support/DroppedCapabilities.h"
#include "support/ScopedHome.h"
#include "support/TempTree.h"

#include <gtest/gtest.h>

#include <unistd.h>

#include <algorithm>

namespace zolva::test {

namespace {

using Names = std::vector<std::string>;

/// A home of its own, and one row scanned in it.
class CleanScan : public ::testing::Test
{
protected:
    std::optional<Category> row(const std::string& path, bool recursive, std::int64_t floor) const
    {
        return scanCategory("Some row", "Some words", tree.path(path), recursive, floor);
    }

    std::int64_t make(const std::string& path, std::int64_t bytes)
    {
        return blocksOf(reservedFile(tree, path, bytes));
    }

    TempTree tree;
    ScopedHome home{tree.root()};
};

Names pathsOf(const std::optional<Category>& category)
{
    Names paths;
    if (category) {
        for (const CatPath& path : category->paths) {
            paths.push_back(path.p);
        }
    }
    return paths;
}

Names namesOf(const std::vector<Category>& categories)
{
    Names names;
    for (const Category& category : categories) {
        names.push_back(category.name);
    }
    return names;
}

} // namespace

TEST_F(CleanScan, CachesWithOnlyCloudKitLargeYieldOneProtectedPath)
{
    const std::int64_t bytes = make("Library/Caches/CloudKit/store", 1'000'000);
    make("Library/Caches/small", 4096);
    const auto categories = scanCategories();
    ASSERT_EQ(namesOf(categories), Names{"Application caches"});
    ASSERT_EQ(pathsOf(categories[0]), Names{"~/Library/Caches/CloudKit"});
    EXPECT_TRUE(categories[0].paths[0].prot);
    EXPECT_EQ(totalBytes(categories[0]), bytes);
    EXPECT_GT(totalBytes(categories[0]), 0);
}

TEST_F(CleanScan, ChildOfExactlyTheFloorIsKeptAndOneByteLessIsDropped)
{
    const std::int64_t bytes = make("Library/Logs/app/log", 8192);
    EXPECT_EQ(pathsOf(row("Library/Logs", true, bytes)), Names{"~/Library/Logs/app"});
    EXPECT_FALSE(row("Library/Logs", true, bytes + 1));
}

TEST_F(CleanScan, WholeFolderOfExactlyTheFloorIsKeptAndOneByteLessIsDropped)
{
    const std::int64_t bytes = make(".npm/_cacache/index", 8192);
    EXPECT_EQ(pathsOf(row(".npm/_cacache", false, bytes)), Names{"~/.npm/_cacache"});
    EXPECT_FALSE(row(".npm/_cacache", false, bytes + 1));
}

TEST_F(CleanScan, CatalogIsScannedWithAFloorOfAMillion)
{
    make("Library/Logs/below", 900'000);
    make("Library/Logs/above", 1'000'000);
    make(".npm/_cacache/index", 900'000);
    const auto categories = scanCategories();
    ASSERT_EQ(namesOf(categories), Names{"Application logs"});
    EXPECT_EQ(pathsOf(categories[0]), Names{"~/Library/Logs/above"});
}

TEST_F(CleanScan, NpmCacheAboveTheFloorIsOnePathHoweverManyChildrenItHas)
{
    make(".npm/_cacache/content/a", 600'000);
    make(".npm/_cacache/index/b", 600'000);
    const auto categories = scanCategories();
    ASSERT_EQ(namesOf(categories), Names{"npm cache"});
    EXPECT_EQ(pathsOf(categories[0]), Names{"~/.npm/_cacache"});
}

TEST_F(CleanScan, HiddenChildrenAreNeverListed)
{
    make("Library/Logs/.hidden/log", 8192);
    make("Library/Logs/.file", 8192);
    const std::int64_t bytes = make("Library/Logs/shown/log", 4096);
    const auto category = row("Library/Logs", true, 1);
    EXPECT_EQ(pathsOf(category), Names{"~/Library/Logs/shown"});
    EXPECT_EQ(totalBytes(category.value()), bytes);
}

TEST_F(CleanScan, HiddenFilesBelowAChildAreCounted)
{
    const std::int64_t bytes = make("Library/Logs/app/.hidden/.log", 8192);
    EXPECT_EQ(totalBytes(row("Library/Logs", true, 1).value()), bytes);
}

TEST_F(CleanScan, NothingAboveTheFloorGivesAnEmptyList)
{
    for (const CatalogEntry& entry : cleanCatalog) {
        make(std::string(entry.path) + "/child/file", 4096);
    }
    EXPECT_TRUE(scanCategories().empty());
    EXPECT_EQ(scanCategories(1).size(), cleanCatalog.size());
}

TEST_F(CleanScan, ManySmallChildrenAreInvisibleHoweverLargeTogether)
{
    for (int i = 0; i < 20; ++i) {
        make("Library/Caches/app" + std::to_string(i) + "/file", 4096);
    }
    EXPECT_FALSE(row("Library/Caches", true, 40'000));
}

TEST_F(CleanScan, MissingHomeGivesAnEmptyList)
{
    const ScopedHome gone(tree.path("gone"));
    EXPECT_TRUE(scanCategories(1).empty());
}

TEST_F(CleanScan, RowThatIsNoFolderIsAbsent)
{
    make("Stuff/file", 8192);
    EXPECT_FALSE(row("Stuff/file", true, 1));
    EXPECT_FALSE(row("Stuff/file", false, 1));
    EXPECT_FALSE(row("missing", true, 1));
    EXPECT_FALSE(row("missing", false, 1));
}

TEST_F(CleanScan, EmptyFolderIsAbsentEvenWithoutAFloor)
{
    tree.folder("Library/Logs");
    EXPECT_FALSE(row("Library/Logs", true, 0));
}

TEST_F(CleanScan, UnreadableFolderIsAbsent)
{
    make("Stuff/closed/app/log", 8192);
    EXPECT_TRUE(row("Stuff/closed", true, 1));
    EXPECT_TRUE(row("Stuff/closed", false, 1));
    tree.setMode("Stuff/closed", 0);
    withoutOverridingPermissions([this] {
        EXPECT_FALSE(row("Stuff/closed", true, 1));
        EXPECT_FALSE(row("Stuff/closed", false, 1));
    });
}

TEST_F(CleanScan, UnreadableChildIsAbsentAndItsSiblingsAreNot)
{
    make("Library/Logs/closed/log", 8192);
    make("Library/Logs/open/log", 4096);
    tree.setMode("Library/Logs/closed", 0);
    withoutOverridingPermissions(
        [this] { EXPECT_EQ(pathsOf(row("Library/Logs", true, 1)), Names{"~/Library/Logs/open"}); });
}

TEST_F(CleanScan, PathsComeLargestFirst)
{
    make("Library/Caches/small/x", 4096);
    make("Library/Caches/large/x", 20480);
    make("Library/Caches/middle/x", 12288);
    const Names expected = {"~/Library/Caches/large", "~/Library/Caches/middle",
                            "~/Library/Caches/small"};
    EXPECT_EQ(pathsOf(row("Library/Caches", true, 1)), expected);
}

TEST_F(CleanScan, EqualPathsKeepListingOrder)
{
    // More than sixteen: a sort that is not stable shows only then.
    for (int i = 0; i < 40; ++i) {
        make("Library/Caches/app" + std::to_string(i), 4096);
    }
    Names expected;
    const Names listed = naive::namesIn(tree.path("Library/Caches")).value();
    for (const std::string& name : listed) {
        expected.push_back("~/Library/Caches/" + name);
    }
    EXPECT_EQ(pathsOf(row("Library/Caches", true, 1)), expected);
}

TEST_F(CleanScan, CategoriesComeLargestFirstAndEqualOnesInCatalogOrder)
{
    make(".npm/_cacache/x", 8192);
    make("Library/Saved Application State/x", 8192);
    make("Library/Developer/Xcode/iOS DeviceSupport/x", 8192);
    make("Library/Logs/x", 8192);
    make("Library/Logs/y", 8192);
    make("Library/Developer/Xcode/DerivedData/x", 4096);
    const Names expected = {"Application logs", "Xcode device support", "Saved application state",
                            "npm cache", "Xcode DerivedData"};
    EXPECT_EQ(namesOf(scanCategories(1)), expected);
}

TEST_F(CleanScan, CategoriesAreOrderedByTheirSumAndNotByTheirLargestPath)
{
    make("Library/Caches/one", 12288);
    make("Library/Logs/x", 8192);
    make("Library/Logs/y", 8192);
    EXPECT_EQ(namesOf(scanCategories(1)), (Names{"Application logs", "Application caches"}));
}

TEST_F(CleanScan, ProtectionGoesByTheExactLastNameInAnyRow)
{
    make("Library/Logs/Mail/log", 20480);
    make("Library/Logs/mail/log", 16384);
    make("Library/Logs/Mail2/log", 12288);
    make("Library/Logs/app/Mail/log", 8192);
    const auto category = row("Library/Logs", true, 1);
    ASSERT_EQ(pathsOf(category), (Names{"~/Library/Logs/Mail", "~/Library/Logs/mail",
                                        "~/Library/Logs/Mail2", "~/Library/Logs/app"}));
    std::vector<bool> marks;
    for (const CatPath& path : category->paths) {
        marks.push_back(path.prot);
    }
    EXPECT_EQ(marks, (std::vector<bool>{true, false, false, false}));
}

TEST_F(CleanScan, WholeFolderOfAProtectedNameIsMarkedToo)
{
    make("Library/Caches/CloudKit/x", 4096);
    const auto category = row("Library/Caches/CloudKit", false, 1);
    ASSERT_TRUE(category);
    EXPECT_TRUE(category->paths[0].prot);
}

TEST_F(CleanScan, ProtectedChildrenCountTowardsTheTotal)
{
    const std::int64_t mail = make("Library/Logs/Mail/log", 8192);
    const std::int64_t app = make("Library/Logs/app/log", 4096);
    EXPECT_EQ(totalBytes(row("Library/Logs", true, 1).value()), mail + app);
}

TEST_F(CleanScan, ChildThatMayNotBeTouchedIsDroppedSilently)
{
    make("Documents/x", 8192);
    const std::int64_t bytes = make("Stuff/x", 4096);
    const auto category = row("", true, 1);
    EXPECT_EQ(pathsOf(category), Names{"~/Stuff"});
    EXPECT_EQ(totalBytes(category.value()), bytes);
}

TEST_F(CleanScan, FolderThatMayNotBeTouchedIsAbsent)
{
    make("Documents/x", 8192);
    EXPECT_FALSE(row("Documents", false, 1));
    EXPECT_TRUE(row("Documents", true, 1));
}

TEST_F(CleanScan, PlacesOutsideTheHomeFolderAreDropped)
{
    TempTree other;
    reservedFile(other, "cache/x", 8192);
    EXPECT_FALSE(scanCategory("n", "d", other.root(), true, 1));
    EXPECT_FALSE(scanCategory("n", "d", other.path("cache"), false, 1));
}

TEST_F(CleanScan, GoBuildCacheIsReportedTwiceAndSubtractedFromNeither)
{
    const std::int64_t bytes = make("Library/Caches/go-build/00/object", 8192);
    const std::int64_t other = make("Library/Caches/app/x", 4096);
    const auto categories = scanCategories(1);
    ASSERT_EQ(namesOf(categories), (Names{"Application caches", "Go build cache"}));
    EXPECT_EQ(totalBytes(categories[0]), bytes + other);
    EXPECT_EQ(totalBytes(categories[1]), bytes);
    EXPECT_EQ(pathsOf(categories[0])[0], pathsOf(categories[1])[0]);
    EXPECT_NE(categories[0].paths[0].id, categories[1].paths[0].id);
}

TEST_F(CleanScan, CategoryCarriesItsNameAsIdAndTheNumberOfItsPaths)
{
    make("Library/Logs/a", 4096);
    make("Library/Logs/b", 4096);
    const auto category = row("Library/Logs", true, 1);
    ASSERT_TRUE(category);
    EXPECT_EQ(category->id, "Some row");
    EXPECT_EQ(category->name, "Some row");
    EXPECT_EQ(category->desc, "Some words");
    EXPECT_EQ(category->items, 2);
    EXPECT_FALSE(category->sudo);
    EXPECT_FALSE(category->paths[0].sudo);
    EXPECT_FALSE(category->paths[1].sudo);
}

TEST_F(CleanScan, ChildrenThatAreNoFoldersCountByTheirOwnSize)
{
    const std::int64_t file = make("Library/Caches/file", 8192);
    make("elsewhere/large", 1'000'000);
    tree.link("Library/Caches/linkToFolder", tree.path("elsewhere"));
    tree.link("Library/Caches/linkToFile", tree.path("elsewhere/large"));
    tree.link("Library/Caches/dangling", "nowhere");
    tree.fifo("Library/Caches/fifo");
    socketAt(tree.path("Library/Caches/socket"));
    const auto category = row("Library/Caches", true, 4097);
    EXPECT_EQ(pathsOf(category), Names{"~/Library/Caches/file"});
    EXPECT_EQ(totalBytes(category.value()), file);
}

TEST_F(CleanScan, LinksFifosAndSocketsBelowAChildAddNothing)
{
    const std::int64_t bytes = make("Library/Caches/app/file", 8192);
    make("elsewhere/large", 1'000'000);
    tree.link("Library/Caches/app/linkToFolder", tree.path("elsewhere"));
    tree.link("Library/Caches/app/linkToFile", tree.path("elsewhere/large"));
    tree.fifo("Library/Caches/app/fifo");
    socketAt(tree.path("Library/Caches/app/socket"));
    EXPECT_EQ(totalBytes(row("Library/Caches", true, 1).value()), bytes);
}

TEST_F(CleanScan, HolesOccupyNothing)
{
    tree.text("Library/Caches/app/hole", "");
    ASSERT_EQ(::truncate(tree.path("Library/Caches/app/hole").c_str(), 50'000'000), 0);
    EXPECT_FALSE(row("Library/Caches", true, 1));
}

TEST_F(CleanScan, NamesAreBytes)
{
    const std::string odd = "a\nb \xff\xfe";
    make("Library/Caches/" + odd + "/\xff\n", 4096);
    EXPECT_EQ(pathsOf(row("Library/Caches", true, 1)), Names{"~/Library/Caches/" + odd});
}

TEST_F(CleanScan, CatalogFolderThatIsALinkIsOpened)
{
    make("elsewhere/app/x", 8192);
    tree.folder("Library");
    tree.link("Library/Caches", tree.path("elsewhere"));
    EXPECT_EQ(pathsOf(row("Library/Caches", true, 1)), Names{"~/Library/Caches/app"});
}

TEST_F(CleanScan, LinkInPlaceOfTheNpmCacheHoldsNothingToGain)
{
    make("elsewhere/x", 8192);
    tree.folder(".npm");
    tree.link(".npm/_cacache", tree.path("elsewhere"));
    EXPECT_FALSE(row(".npm/_cacache", false, 4097));
}

TEST_F(CleanScan, TwoScansShareNoUuids)
{
    make("Library/Caches/a", 4096);
    make("Library/Caches/b", 4096);
    std::vector<Uuid> seen;
    for (int scan = 0; scan < 2; ++scan) {
        const auto category = row("Library/Caches", true, 1);
        ASSERT_TRUE(category);
        for (const CatPath& path : category->paths) {
            EXPECT_EQ(std::ranges::find(seen, path.id), seen.end());
            seen.push_back(path.id);
        }
    }
    EXPECT_EQ(seen.size(), 4U);
}

} // namespace zolva::test
