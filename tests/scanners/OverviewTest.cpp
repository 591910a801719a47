#include "scanners/StorageAnalysis.h"

#include "RandomStorage.h"
#include "support/DroppedCapabilities.h"
#include "support/ScopedHome.h"
#include "support/TempTree.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace zolva {
namespace {

using test::RandomStorage;
using test::ScopedHome;
using test::TempTree;
using Texts = std::vector<std::string>;

const TimePoint now = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
constexpr std::chrono::hours hundredDays{2400};

class Overview : public ::testing::Test
{
protected:
    void block(const std::string& relative, int blocks = 1)
    {
        m_tree.text(relative, "");
        RandomStorage(m_tree, 1).file(relative, blocks);
    }

    TempTree m_tree;
    ScopedHome m_home{m_tree.root()};
};

/// The rows below home as "label size". The two others are the machine's own, there or not.
Texts homeRows(const AnalyzeResult& result)
{
    Texts rows;
    for (const AnalyzeEntry& entry : result.entries) {
        if (entry.path != "/Applications" && entry.path != "/Library") {
            rows.push_back(entry.name + " " + std::to_string(entry.size));
        }
    }
    return rows;
}

/// The large files below home, by the path below it.
Texts homeFiles(const AnalyzeResult& result, const std::string& home)
{
    Texts files;
    for (const LargeFile& file : result.largeFiles) {
        if (file.path.starts_with(home + "/")) {
            files.push_back(file.path.substr(home.size() + 1) + " " + std::to_string(file.size));
        }
    }
    return files;
}

TEST_F(Overview, ThePlacesAreTheseElevenInThisOrder)
{
    const std::string home = m_tree.root();
    const std::vector<std::pair<std::string, std::string>> expected = {
        {"Home", home},
        {"User Library", home + "/Library"},
        {"Applications", "/Applications"},
        {"Xcode DerivedData", home + "/Library/Developer/Xcode/DerivedData"},
        {"Xcode Simulators", home + "/Library/Developer/CoreSimulator/Devices"},
        {"System Library", "/Library"},
        {"Old Downloads (90d+)", home + "/Downloads"},
        {"Gradle Cache", home + "/.gradle"},
        {"JetBrains Cache", home + "/Library/Caches/JetBrains"},
        {"System Logs", home + "/Library/Logs"},
        {"Homebrew Cache", home + "/Library/Caches/Homebrew"}};
    const std::vector<AnalyzeLocation> places = analysisTargets();
    ASSERT_EQ(places.size(), expected.size());
    for (std::size_t i = 0; i < places.size(); ++i) {
        EXPECT_EQ(places[i].label, expected[i].first);
        EXPECT_EQ(places[i].path, expected[i].second);
        EXPECT_EQ(places[i].oldDownloads, i == 6) << places[i].label;
    }
}

TEST_F(Overview, AMissingGradleFolderHasNoEntryAndNotOneOfSizeZero)
{
    EXPECT_EQ(homeRows(overview(now).first), Texts{"Home 0"});
    m_tree.folder(".gradle");
    EXPECT_EQ(homeRows(overview(now).first), (Texts{"Home 0", "Gradle Cache 0"}));
}

TEST_F(Overview, RowsOverlapAndNothingIsSubtracted)
{
    block("Library/Logs/log", 1);
    block("Library/Caches/JetBrains/index", 2);
    block("Library/Caches/Homebrew/bottle", 3);
    block("Library/Developer/Xcode/DerivedData/a", 4);
    block("Library/Developer/CoreSimulator/Devices/b", 5);
    block(".gradle/jar", 6);
    block("Downloads/old", 7);
    block("Downloads/recent", 8);
    m_tree.setModified("Downloads/old", now - hundredDays);
    const AnalyzeResult result = overview(now).first;
    EXPECT_EQ(homeRows(result),
              (Texts{"Home 147456", "User Library 61440", "Old Downloads (90d+) 28672",
                     "Gradle Cache 24576", "Xcode Simulators 20480", "Xcode DerivedData 16384",
                     "Homebrew Cache 12288", "JetBrains Cache 8192", "System Logs 4096"}));
    EXPECT_GE(result.totalFiles, 8 + 5 + 1 + 1 + 5) << "overlaps count as often as they occur";
}

TEST_F(Overview, AFileFoundThroughSeveralRowsStandsOnceAmongTheLargeFiles)
{
    block("Library/Logs/large", 2000);
    block("Downloads/old/large", 3000);
    m_tree.setModified("Downloads/old", now - hundredDays);
    const AnalyzeResult result = overview(now).first;
    EXPECT_EQ(homeFiles(result, m_tree.root()),
              (Texts{"Downloads/old/large 12288000", "Library/Logs/large 8192000"}));
    for (const LargeFile& file : result.largeFiles) {
        EXPECT_EQ(file.name, file.path.substr(file.path.rfind('/') + 1));
    }
}

TEST_F(Overview, RepeatedFilesTakeNoPlaceFromOthersAmongTheTwenty)
{
    // 20 in Logs are found by three rows; the smaller ones outside are still among the first 25.
    for (int i = 0; i < 15; ++i) {
        block("Library/Logs/" + std::to_string(i), 3000 + i);
    }
    for (int i = 0; i < 10; ++i) {
        block("Documents/" + std::to_string(i), 2000 + i);
    }
    const AnalyzeResult result = overview(now).first;
    ASSERT_EQ(result.largeFiles.size(), 20U);
    std::set<std::string> paths;
    for (const LargeFile& file : result.largeFiles) {
        paths.insert(file.path);
    }
    EXPECT_EQ(paths.size(), 20U);
    EXPECT_TRUE(
        std::is_sorted(result.largeFiles.begin(), result.largeFiles.end(),
                       [](const LargeFile& a, const LargeFile& b) { return a.size > b.size; }));
}

TEST_F(Overview, AllEntriesAreFoldersWithoutALastAccess)
{
    m_tree.text("Downloads", "a file in its place");
    m_tree.folder("Library/Logs");
    const AnalyzeResult result = overview(now).first;
    EXPECT_GE(result.entries.size(), 4U);
    for (const AnalyzeEntry& entry : result.entries) {
        EXPECT_TRUE(entry.isDir) << entry.name;
        EXPECT_EQ(entry.lastAccess, std::nullopt) << entry.name;
    }
    EXPECT_TRUE(result.overview);
    EXPECT_EQ(result.path, "");
}

TEST_F(Overview, EntriesOfEqualSizeKeepTheOrderOfTheTable)
{
    block("Library/Logs/a", 2);
    block("Library/Caches/Homebrew/a", 2);
    block("Library/Caches/JetBrains/a", 2);
    block(".gradle/a", 2);
    EXPECT_EQ(homeRows(overview(now).first),
              (Texts{"Home 32768", "User Library 24576", "Gradle Cache 8192",
                     "JetBrains Cache 8192", "System Logs 8192", "Homebrew Cache 8192"}));
}

TEST_F(Overview, APlaceThatIsALinkIsOpenedAndADanglingOneIsNoRow)
{
    TempTree elsewhere;
    RandomStorage(elsewhere, 1).file("large", 500);
    elsewhere.setModified("large", now - hundredDays);
    m_tree.link(".gradle", elsewhere.root());
    m_tree.link("Downloads", elsewhere.root());
    m_tree.folder("Library");
    m_tree.link("Library/Logs", "nowhere");
    const AnalyzeResult result = overview(now).first;
    EXPECT_EQ(homeRows(result), (Texts{"Old Downloads (90d+) 2048000", "Gradle Cache 2048000",
                                       "Home 0", "User Library 0"}));
    EXPECT_EQ(homeFiles(result, m_tree.root()),
              (Texts{"Downloads/large 2048000", ".gradle/large 2048000"}));
}

TEST_F(Overview, APlaceThatIsAFileIsARowOfOneFileAndAsDownloadsOfNone)
{
    block(".gradle", 500);
    block("Downloads", 400);
    m_tree.setModified("Downloads", now - hundredDays);
    EXPECT_EQ(homeRows(overview(now).first),
              (Texts{"Home 3686400", "Gradle Cache 2048000", "Old Downloads (90d+) 0"}));
}

TEST_F(Overview, UnreadablePlacesAreRowsWithWhatCouldBeRead)
{
    block(".gradle/secret", 9);
    block("Library/Logs/open", 2);
    block("Downloads/old", 3);
    m_tree.setModified("Downloads/old", now - hundredDays);
    m_tree.setMode(".gradle", 0);
    m_tree.setMode("Downloads", 0);
    test::withoutOverridingPermissions([] {
        EXPECT_EQ(homeRows(overview(now).first),
                  (Texts{"Home 8192", "User Library 8192", "System Logs 8192",
                         "Old Downloads (90d+) 0", "Gradle Cache 0"}));
    });
}

TEST_F(Overview, TheTotalIsTheUsedSpaceOfTheVolumeAndTheAvailableBytesComeBeside)
{
    block("a", 3);
    const auto [result, available] = overview(now);
    const VolumeSpace space = volumeCapacity();
    ASSERT_GT(space.total, 0);
    EXPECT_GT(available, 0);
    EXPECT_LE(available, space.total);
    EXPECT_GE(result.totalSize, 1);
    // Others write to the same disk meanwhile.
    EXPECT_NEAR(static_cast<double>(result.totalSize + available), static_cast<double>(space.total),
                1.0);
}

TEST(OverviewWithoutAHome, TheTotalIsOneWhenTheCapacityCannotBeRead)
{
    TempTree tree;
    const ScopedHome home(tree.path("gone"));
    EXPECT_EQ(volumeCapacity().available, 0);
    EXPECT_EQ(volumeCapacity().total, 0);
    const auto [result, available] = overview(now);
    EXPECT_EQ(result.totalSize, 1);
    EXPECT_EQ(available, 0);
    EXPECT_EQ(homeRows(result), Texts{});
}

TEST_F(Overview, ProgressNeverTellsMoreThanTheResult)
{
    block("Library/Logs/a");
    WalkProgress last;
    const AnalyzeResult result =
        overview(now, [&last](const WalkProgress& progress) { last = progress; }).first;
    EXPECT_LE(last.files, result.totalFiles);
}

} // namespace
} // namespace zolva
