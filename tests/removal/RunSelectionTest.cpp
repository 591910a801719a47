#include "removal/runs/RunSelection.h"

#include "removal/ReclaimSummary.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace zolva {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

CatPath catPath(std::string path, std::int64_t bytes, bool prot = false)
{
    CatPath row;
    row.p = std::move(path);
    row.b = bytes;
    row.prot = prot;
    return row;
}

Category category(std::string id, std::vector<CatPath> paths)
{
    Category row;
    row.id = row.name = std::move(id);
    row.paths = std::move(paths);
    return row;
}

Project project(std::string folder, std::int64_t bytes)
{
    Project row;
    row.p = std::move(folder);
    row.artifact = "build";
    row.b = bytes;
    return row;
}

InstallerItem installer(std::string path, std::int64_t bytes)
{
    InstallerItem row;
    row.p = std::move(path);
    row.b = bytes;
    return row;
}

template <typename Row>
std::vector<std::string> pathsOf(const std::vector<Row>& rows)
{
    std::vector<std::string> paths;
    for (const Row& row : rows) {
        paths.push_back(row.p);
    }
    return paths;
}

const std::vector<Category> categories{
    category("A", {catPath("/h/a1", 10), catPath("/h/a2", 20, true), catPath("/h/a3", 30)}),
    category("B", {catPath("/h/b1", 40)}),
    category("C", {catPath("/h/c1", 50)}),
};

TEST(RunSelection, TakesThePathsOfTickedCategoriesInOrderWithoutProtectedAndExcluded)
{
    const CategoryPicks picks{{"A", true}, {"B", false}, {"C", true}, {"gone", true}};
    const auto selected = selectedCleanPaths(categories, picks, {"/h/a3"});
    EXPECT_THAT(pathsOf(selected), ElementsAre("/h/a1", "/h/c1"));
    EXPECT_EQ(bytesOf(selected), 60);
    EXPECT_EQ(selectedCleanBytes(categories, picks, {"/h/a3"}), 60);
    EXPECT_EQ(selectedCategoryCount(picks), 3);
}

TEST(RunSelection, WithAllSelectedPathsProtectedTheSheetDoesNotOpen)
{
    const std::vector<Category> all{category("A", {catPath("/h/a", 10, true)})};
    const std::int64_t bytes = bytesOf(selectedCleanPaths(all, {{"A", true}}, {}));
    EXPECT_EQ(bytes, 0);
    EXPECT_FALSE(mayRaiseSheet("erase", {.cleanBytes = bytes}));
}

TEST(RunSelection, ASheetOpensOnlyWithSomethingToConfirm)
{
    for (const char* id : {"erase", "purge", "installer", "uninstall"}) {
        EXPECT_FALSE(mayRaiseSheet(id, {})) << id;
        EXPECT_TRUE(mayRaiseSheet(id, {1, 1, 1, 1})) << id;
    }
    EXPECT_FALSE(mayRaiseSheet("erase", {0, 1, 1, 1}));
    EXPECT_FALSE(mayRaiseSheet("purge", {1, 0, 1, 1}));
    EXPECT_FALSE(mayRaiseSheet("installer", {1, 1, 0, 1}));
    EXPECT_FALSE(mayRaiseSheet("uninstall", {1, 1, 1, 0}));
    EXPECT_TRUE(mayRaiseSheet("emptytrash", {}));
    EXPECT_TRUE(mayRaiseSheet("anything", {}));
}

TEST(RunSelection, TakesProjectsByTheirKeysAndWithoutTheExcluded)
{
    const std::vector<Project> projects{project("/h/p", 1), project("/h/q", 2), project("/h/r", 4)};
    const std::set<std::string> picks{"/h/r/build", "/h/p/build", "/h/q"};
    EXPECT_THAT(pathsOf(selectedProjects(projects, picks, {})), ElementsAre("/h/p", "/h/r"));
    EXPECT_THAT(pathsOf(selectedProjects(projects, picks, {"/h/r/build"})), ElementsAre("/h/p"));
    EXPECT_THAT(pathsOf(removableProjects(projects, {"/h/p"})), ElementsAre("/h/q", "/h/r"));
    EXPECT_EQ(bytesOf(projects), 7);
    EXPECT_EQ(selectedProjectBytes(projects, picks, {}), 5);
    EXPECT_EQ(selectedProjectBytes(projects, picks, {"/h/r/build"}), 1);
    EXPECT_EQ(removableProjectBytes(projects, {"/h/p"}), 6);
}

TEST(RunSelection, TakesInstallersByTheirPathsAndLeavesExclusionsToTheRun)
{
    const std::vector<InstallerItem> items{installer("/h/a", 1), installer("/h/b", 2)};
    const auto selected = selectedInstallers(items, {"/h/b", "/h/x"});
    EXPECT_THAT(pathsOf(selected), ElementsAre("/h/b"));
    EXPECT_EQ(bytesOf(selected), 2);
}

TEST(CleanNote, TellsHowManyPathsStay)
{
    EXPECT_EQ(cleanNote(1, true), "1 path protected and skipped.");
    EXPECT_EQ(cleanNote(2, false), "2 paths protected and skipped.");
}

TEST(CleanNote, OtherwiseSaysWhatBecomesOfTheSelection)
{
    EXPECT_EQ(cleanNote(0, true),
              "Everything selected goes to the Trash. Your Mac rebuilds these on its own.");
    EXPECT_EQ(cleanNote(0, false),
              "Everything selected is deleted for good. Your Mac rebuilds these on its own.");
}

std::vector<std::string> shown(const std::array<ReclaimRow, 4>& rows)
{
    std::vector<std::string> all;
    for (const ReclaimRow& row : rows) {
        all.push_back(row.id.toStdString() + " " + std::to_string(row.bytes) + " " +
                      std::to_string(row.count));
    }
    return all;
}

TEST(ReclaimSummary, WithNoScanYetTheFourRowsStandEmptyApartFromTheTrash)
{
    const std::vector<InstallerItem> installers;
    const std::vector<std::string> whitelist;
    const ReclaimSources sources{nullptr, nullptr, installers, whitelist, 70, 3, false};
    EXPECT_THAT(shown(reclaimRows(sources)),
                ElementsAre("clean 0 0", "purge 0 0", "installer 0 0", "trash 70 3"));
    EXPECT_EQ(reclaimTotal(sources), 70);
    EXPECT_EQ(scannedReclaimBytes(nullptr, sources), 0);
}

TEST(ReclaimSummary, AddsUpWhatMayGoByKind)
{
    const std::vector<Project> projects{project("/h/p", 100), project("/h/q", 200)};
    const std::vector<InstallerItem> installers{installer("/h/i", 1000)};
    std::vector<std::string> whitelist;
    const ReclaimSources sources{&categories, &projects, installers, whitelist, 70, 3, false};
    EXPECT_THAT(shown(reclaimRows(sources)),
                ElementsAre("clean 130 3", "purge 300 2", "installer 1000 1", "trash 70 3"));
    EXPECT_EQ(cleanableBytes(sources), 130);
    EXPECT_EQ(reclaimTotal(sources), 1500);
    const std::vector<Category> live{category("B", {catPath("/h/b1", 40)})};
    EXPECT_EQ(scannedReclaimBytes(&live, sources), 340);

    // The next read follows the list, without a scan.
    whitelist = {"/h/q", "/h/a1"};
    EXPECT_THAT(shown(reclaimRows(sources)),
                ElementsAre("clean 120 3", "purge 100 1", "installer 1000 1", "trash 70 3"));
}

TEST(ReclaimSummary, AnUnreadableTrashIsNothingInItsRowAndInTheTotal)
{
    const std::vector<InstallerItem> installers{installer("/h/i", 1000)};
    const std::vector<std::string> whitelist;
    const ReclaimSources sources{nullptr, nullptr, installers, whitelist, 70, 3, true};
    EXPECT_EQ(shown(reclaimRows(sources))[3], "trash 0 0");
    EXPECT_EQ(reclaimTotal(sources), 1000);
}

TEST(ReclaimSummary, ACategoryEntirelyExcludedDropsOutOfTheCountAndItsBytesWithIt)
{
    const std::vector<InstallerItem> installers;
    const std::vector<std::string> whitelist{"/h/b1"};
    const ReclaimSources sources{&categories, nullptr, installers, whitelist, 0, 0, false};
    EXPECT_EQ(shown(reclaimRows(sources))[0], "clean 90 2");
}

TEST(ReclaimSummary, CategoriesWithoutBytesAreCounted)
{
    const std::vector<InstallerItem> installers;
    const std::vector<std::string> whitelist;
    const std::vector<Category> empty{category("A", {}), category("B", {catPath("/h/b", 0)}),
                                      category("C", {catPath("/h/c", 1, true)})};
    const ReclaimSources sources{&empty, nullptr, installers, whitelist, 0, 0, false};
    EXPECT_EQ(shown(reclaimRows(sources))[0], "clean 0 2");
}

TEST(ReclaimSummary, TheRowsSayWhatTheyAreAndWhereTheyLead)
{
    const std::vector<InstallerItem> installers;
    const std::vector<std::string> whitelist;
    const auto rows = reclaimRows({nullptr, nullptr, installers, whitelist, 0, 0, false});
    std::vector<std::string> all;
    for (const ReclaimRow& row : rows) {
        all.push_back(
            (row.label + "|" + row.symbol + "|" + row.noun + "|" + row.screen.value_or("-"))
                .toStdString());
    }
    EXPECT_THAT(all, ElementsAre("Caches|sparkles|category|clean",
                                 "Build artifacts|folder.badge.minus|project|purge",
                                 "Installers|shippingbox.fill|file|installer",
                                 "Trash|trash.fill|item|-"));
}

} // namespace
} // namespace zolva
