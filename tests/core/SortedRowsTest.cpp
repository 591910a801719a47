#include "core/SortedRows.h"

#include <gtest/gtest.h>

#include <QLocale>

#include <algorithm>
#include <string>
#include <vector>

namespace zolva {
namespace {

using Names = std::vector<std::string>;

const QCollator& english()
{
    static const QCollator collator(QLocale(QLocale::English, QLocale::UnitedStates));
    return collator;
}

InstallerItem item(const std::string& name, const std::string& path, std::int64_t bytes = 0,
                   std::int64_t age = 0)
{
    InstallerItem one;
    one.name = name;
    one.p = path;
    one.b = bytes;
    one.age = age;
    return one;
}

Names paths(const std::vector<InstallerItem>& rows)
{
    Names all;
    for (const InstallerItem& row : rows) {
        all.push_back(row.p);
    }
    return all;
}

Names order(const std::vector<InstallerItem>& rows, SortKey key)
{
    return paths(sortedInstallers(rows, key, english()));
}

} // namespace

TEST(SortedRows, SizesGoBothWaysAndEqualOnesByPath)
{
    const std::vector<InstallerItem> rows = {item("c", "~/3", 5), item("a", "~/2", 9),
                                             item("b", "~/1", 5)};
    EXPECT_EQ(order(rows, SortKey::SizeDesc), (Names{"~/2", "~/1", "~/3"}));
    EXPECT_EQ(order(rows, SortKey::SizeAsc), (Names{"~/1", "~/3", "~/2"}));
}

TEST(SortedRows, AgesGoBothWaysAndEqualOnesByPath)
{
    const std::vector<InstallerItem> rows = {item("c", "~/3", 0, 5), item("a", "~/2", 0, 9),
                                             item("b", "~/1", 0, 5)};
    EXPECT_EQ(order(rows, SortKey::AgeDesc), (Names{"~/2", "~/1", "~/3"}));
    EXPECT_EQ(order(rows, SortKey::AgeAsc), (Names{"~/1", "~/3", "~/2"}));
}

TEST(SortedRows, NamesGoByTheLocaleAndNotByTheirBytes)
{
    const std::vector<InstallerItem> rows = {item("Zebra", "~/1"), item("\xC3\xA9tude", "~/2"),
                                             item("apple", "~/3"), item("Eta", "~/4"),
                                             item("fig", "~/5")};
    EXPECT_EQ(order(rows, SortKey::NameAsc), (Names{"~/3", "~/4", "~/2", "~/5", "~/1"}));
}

TEST(SortedRows, ALocaleOfItsOwnAlphabetHasItsOwnOrder)
{
    const std::vector<InstallerItem> rows = {item("\xC3\xA4pple", "~/1"), item("zebra", "~/2")};
    const QCollator swedish(QLocale(QLocale::Swedish, QLocale::Sweden));
    EXPECT_EQ(paths(sortedInstallers(rows, SortKey::NameAsc, swedish)), (Names{"~/2", "~/1"}));
    EXPECT_EQ(order(rows, SortKey::NameAsc), (Names{"~/1", "~/2"}));
}

TEST(SortedRows, EqualNamesGoByPathWhateverTheOrderTheyCameIn)
{
    const std::vector<InstallerItem> rows = {item("a.dmg", "~/Downloads/a.dmg"),
                                             item("a.dmg", "~/Desktop/a.dmg")};
    EXPECT_EQ(order(rows, SortKey::NameAsc), (Names{"~/Desktop/a.dmg", "~/Downloads/a.dmg"}));
}

TEST(SortedRows, ANameThatIsNoTextHasAPlaceToo)
{
    const std::vector<InstallerItem> rows = {item("b", "~/1"), item("\xFF\xFE", "~/2"),
                                             item("a", "~/3")};
    const Names found = order(rows, SortKey::NameAsc);
    EXPECT_EQ(found.size(), 3U);
    EXPECT_LT(std::find(found.begin(), found.end(), "~/3"),
              std::find(found.begin(), found.end(), "~/1"));
}

TEST(SortedRows, ACategoryGoesByTheBytesOfAllItsPathsAndThenByItsName)
{
    const auto category = [](const std::string& name, std::int64_t first, std::int64_t second) {
        Category one;
        one.id = one.name = name;
        one.paths.resize(2);
        one.paths[0].b = first;
        one.paths[1].b = second;
        one.paths[1].prot = true;
        return one;
    };
    const std::vector<Category> rows =
        sortedCategories({category("b", 4, 0), category("a", 2, 2), category("c", 1, 9)},
                         SortKey::SizeDesc, english());
    EXPECT_EQ(rows[0].name, "c");
    EXPECT_EQ(rows[1].name, "a");
    EXPECT_EQ(rows[2].name, "b");
}

TEST(SortedRows, AProjectGoesByItsFolderAndThenByItsArtifact)
{
    const auto project = [](const std::string& folder, const std::string& artifact) {
        Project one;
        one.p = folder;
        one.artifact = artifact;
        return one;
    };
    const std::vector<Project> rows =
        sortedProjects({project("~/b", "build"), project("~/A", "target"), project("~/A", "build")},
                       SortKey::NameAsc, english());
    EXPECT_EQ(projectKey(rows[0]), "~/A/build");
    EXPECT_EQ(projectKey(rows[1]), "~/A/target");
    EXPECT_EQ(projectKey(rows[2]), "~/b/build");
}

TEST(SortedRows, AnApplicationWithoutASizeComesLast)
{
    UninstallApp unknown;
    unknown.path = "/Applications/A.app";
    UninstallApp known;
    known.path = "/Applications/B.app";
    known.bundleBytes = 1;
    const std::vector<UninstallApp> rows =
        sortedApps({unknown, known}, SortKey::SizeDesc, english());
    EXPECT_EQ(rows[0].path, known.path);
}

TEST(SortedRows, EntriesStayWhereTheyAreAndTheirPlacesAreToldByName)
{
    const std::vector<AnalyzeEntry> entries = {{"b", "/b", 9, true, std::nullopt},
                                               {"C", "/C", 5, false, std::nullopt},
                                               {"a", "/a", 3, false, std::nullopt}};
    EXPECT_EQ(placesByName(entries, english()), (std::vector<std::size_t>{2, 0, 1}));
    EXPECT_TRUE(placesByName({}, english()).empty());
}

TEST(SortedRows, EntriesOfOneNameGoByTheirPath)
{
    const std::vector<AnalyzeEntry> entries = {{"a", "/2/a", 9, true, std::nullopt},
                                               {"a", "/1/a", 5, false, std::nullopt}};
    EXPECT_EQ(placesByName(entries, english()), (std::vector<std::size_t>{1, 0}));
}

} // namespace zolva
