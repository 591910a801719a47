#include "scanners/StorageAnalysis.h"

#include "RandomStorage.h"
#include "support/DroppedCapabilities.h"
#include "support/TempTree.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <string>
#include <vector>

namespace zolva {
namespace {

using std::chrono::hours;
using std::chrono::nanoseconds;
using std::chrono::seconds;
using test::blocksOf;
using test::RandomStorage;
using test::TempTree;
using Texts = std::vector<std::string>;

constexpr seconds ninetyDays{7'776'000};
const TimePoint now = std::chrono::floor<seconds>(std::chrono::system_clock::now());

class StorageAnalysis : public ::testing::Test
{
protected:
    void block(const std::string& relative, int blocks = 1)
    {
        m_tree.text(relative, "");
        RandomStorage(m_tree, 1).file(relative, blocks);
    }

    /// Makes a file of one block, last modified so long ago.
    void download(const std::string& relative, nanoseconds age, int blocks = 1)
    {
        block(relative, blocks);
        m_tree.setModified(relative, now - std::chrono::duration_cast<TimePoint::duration>(age));
    }

    [[nodiscard]] AnalyzeResult drilled(const std::string& relative = "") const
    {
        return drillDown(m_tree.path(relative));
    }

    TempTree m_tree;
};

Texts namesOf(const std::vector<AnalyzeEntry>& entries)
{
    Texts names;
    for (const AnalyzeEntry& entry : entries) {
        names.push_back(entry.name + " " + std::to_string(entry.size));
    }
    return names;
}

template <typename Files>
Texts filesOf(const Files& files)
{
    Texts names;
    for (const auto& file : files) {
        names.push_back(file.name + " " + std::to_string(file.size));
    }
    return names;
}

TEST_F(StorageAnalysis, ChildrenAreEntriesLargestFirst)
{
    block("small", 1);
    block("folder/a", 2);
    block("folder/below/b", 2);
    block(".hidden", 3);
    m_tree.folder("empty");
    const AnalyzeResult result = drilled();
    EXPECT_EQ(namesOf(result.entries),
              (Texts{"folder 16384", ".hidden 12288", "small 4096", "empty 0"}));
    EXPECT_EQ(filesOf(result.largeFiles).front(), ".hidden 12288");
    EXPECT_EQ(result.largeFiles.size(), 4U);
    EXPECT_EQ(result.totalSize, 32'768);
    EXPECT_EQ(result.totalFiles, 4);
    EXPECT_EQ(result.path, m_tree.root());
    EXPECT_FALSE(result.overview);
}

TEST_F(StorageAnalysis, EntriesTellPathAndFolderAndNoLastAccess)
{
    block("folder/a", 2);
    block("file", 1);
    const AnalyzeResult result = drilled();
    ASSERT_EQ(result.entries.size(), 2U);
    EXPECT_EQ(result.entries[0].path, m_tree.path("folder"));
    EXPECT_TRUE(result.entries[0].isDir);
    EXPECT_EQ(result.entries[1].path, m_tree.path("file"));
    EXPECT_FALSE(result.entries[1].isDir);
    EXPECT_EQ(result.entries[0].lastAccess, std::nullopt);
    EXPECT_EQ(result.entries[1].lastAccess, std::nullopt);
    ASSERT_EQ(result.largeFiles.size(), 2U);
    EXPECT_EQ(result.largeFiles[0].path, m_tree.path("folder/a"));
}

TEST_F(StorageAnalysis, DrillDownOnAFileGivesAnEmptyResult)
{
    block("file", 3);
    const AnalyzeResult result = drilled("file");
    EXPECT_TRUE(result.entries.empty());
    EXPECT_TRUE(result.largeFiles.empty());
    EXPECT_EQ(result.totalSize, 0);
    EXPECT_EQ(result.totalFiles, 0);
    EXPECT_EQ(result.path, m_tree.path("file"));
    EXPECT_FALSE(result.overview);
}

TEST_F(StorageAnalysis, DrillDownOnNothingGivesAnEmptyResult)
{
    for (const std::string& path : {m_tree.path("gone"), std::string()}) {
        const AnalyzeResult result = drillDown(path);
        EXPECT_TRUE(result.entries.empty());
        EXPECT_EQ(result.totalSize, 0);
        EXPECT_EQ(result.path, path);
    }
}

TEST_F(StorageAnalysis, DrillDownOnAnEmptyFolderGivesNoEntries)
{
    const AnalyzeResult result = drilled();
    EXPECT_TRUE(result.entries.empty());
    EXPECT_EQ(result.totalSize, 0);
    EXPECT_EQ(result.totalFiles, 0);
}

TEST_F(StorageAnalysis, AFolderThatTheUserNamesIsOpenedEvenWhereItIsALink)
{
    block("real/a", 2);
    m_tree.link("link", "real");
    const AnalyzeResult result = drilled("link");
    EXPECT_EQ(namesOf(result.entries), Texts{"a 8192"});
    ASSERT_EQ(result.largeFiles.size(), 1U);
    EXPECT_EQ(result.largeFiles[0].path, m_tree.path("link/a"));
}

TEST_F(StorageAnalysis, AChildThatIsALinkIsMeasuredAsItStands)
{
    TempTree elsewhere;
    RandomStorage(elsewhere, 1).file("large", 100);
    m_tree.link("toFolder", elsewhere.root());
    m_tree.link("toFile", elsewhere.path("large"));
    m_tree.link("toItself", ".");
    const AnalyzeResult result = drilled();
    ASSERT_EQ(result.entries.size(), 3U);
    for (const AnalyzeEntry& entry : result.entries) {
        EXPECT_EQ(entry.size, blocksOf(entry.path)) << entry.name;
        EXPECT_EQ(entry.isDir, entry.name != "toFile") << entry.name;
    }
    EXPECT_EQ(result.totalFiles, 3);
    EXPECT_EQ(result.largeFiles.size(), 3U);
}

TEST_F(StorageAnalysis, ADanglingLinkIsAnEntryThatHoldsNothing)
{
    m_tree.link("dangling", "nowhere");
    m_tree.link("loop", "loop");
    const AnalyzeResult result = drilled();
    EXPECT_EQ(result.entries.size(), 2U);
    for (const AnalyzeEntry& entry : result.entries) {
        EXPECT_EQ(entry.size, 0);
        EXPECT_FALSE(entry.isDir);
    }
    EXPECT_EQ(result.totalFiles, 0);
    EXPECT_TRUE(result.largeFiles.empty());
}

TEST_F(StorageAnalysis, AChildThatIsAFifoCountsAsOneFileAndOneFurtherBelowDoesNot)
{
    m_tree.fifo("pipe");
    m_tree.fifo("folder/pipe");
    const AnalyzeResult result = drilled();
    EXPECT_EQ(result.totalFiles, 1);
    EXPECT_EQ(filesOf(result.largeFiles), Texts{"pipe 0"});
}

TEST_F(StorageAnalysis, HardLinksCountEachTime)
{
    block("a/one", 4);
    m_tree.hardLink("b", "a/one");
    const AnalyzeResult result = drilled();
    EXPECT_EQ(result.totalSize, 32'768);
    EXPECT_EQ(result.totalFiles, 2);
    EXPECT_EQ(result.largeFiles.size(), 2U);
}

TEST_F(StorageAnalysis, OfManyLargeFilesTheTwentyLargestOfAllChildrenAreKept)
{
    for (int i = 0; i < 15; ++i) {
        block("a/" + std::to_string(i), 2 * i + 1);
        block("b/" + std::to_string(i), 2 * i + 2);
    }
    const AnalyzeResult result = drilled();
    ASSERT_EQ(result.largeFiles.size(), 20U);
    for (std::size_t i = 0; i < 20; ++i) {
        EXPECT_EQ(result.largeFiles[i].size, 4096 * (30 - static_cast<std::int64_t>(i)));
    }
    EXPECT_EQ(result.totalFiles, 30);
}

TEST_F(StorageAnalysis, OfTwentyFiveFilesOfEqualSizeTheFirstTwentyListedAreKept)
{
    for (int i = 0; i < 25; ++i) {
        block("folder/" + std::to_string(i));
    }
    const AnalyzeResult inside = drilled("folder");
    ASSERT_EQ(inside.entries.size(), 25U);
    Texts listed = namesOf(inside.entries); // equal sizes keep the order of the listing
    listed.resize(20);
    EXPECT_EQ(filesOf(inside.largeFiles), listed);
    EXPECT_EQ(filesOf(drilled().largeFiles), listed);
}

TEST_F(StorageAnalysis, AnUnreadableChildIsAnEntryWithWhatCouldBeRead)
{
    block("closed/secret", 9);
    block("partly/open", 2);
    block("partly/closed/secret", 9);
    m_tree.setMode("closed", 0);
    m_tree.setMode("partly/closed", 0);
    test::withoutOverridingPermissions([this] {
        const AnalyzeResult result = drilled();
        EXPECT_EQ(namesOf(result.entries), (Texts{"partly 8192", "closed 0"}));
        EXPECT_TRUE(std::all_of(result.entries.begin(), result.entries.end(),
                                [](const AnalyzeEntry& entry) { return entry.isDir; }));
        EXPECT_EQ(result.totalFiles, 1);
        EXPECT_TRUE(drilled("closed").entries.empty());
    });
}

TEST_F(StorageAnalysis, AFolderThatCanBeListedAndNotEnteredHasEntriesThatHoldNothing)
{
    block("folder/a", 3);
    block("other/below/a", 3);
    m_tree.setMode("folder", 0444);
    m_tree.setMode("other", 0444);
    test::withoutOverridingPermissions([this] {
        const AnalyzeResult result = drilled("folder");
        EXPECT_EQ(namesOf(result.entries), Texts{"a 0"});
        EXPECT_EQ(result.totalFiles, 0);
        const AnalyzeResult other = drilled("other");
        EXPECT_EQ(namesOf(other.entries), Texts{"below 0"});
        EXPECT_FALSE(other.entries.at(0).isDir) << "nothing can be looked at behind it";
    });
}

TEST_F(StorageAnalysis, ANameThatIsNoUtf8KeepsItsBytes)
{
    block("bad\xFFname");
    const AnalyzeResult result = drilled();
    EXPECT_EQ(namesOf(result.entries), Texts{"bad\xFFname 4096"});
    EXPECT_EQ(result.largeFiles.at(0).path, m_tree.path("bad\xFFname"));
}

TEST_F(StorageAnalysis, ATrailingSlashIsNotDoubled)
{
    block("folder/a");
    const AnalyzeResult result = drillDown(m_tree.path("folder/"));
    EXPECT_EQ(result.path, m_tree.path("folder/"));
    EXPECT_EQ(result.entries.at(0).path, m_tree.path("folder/a"));
    EXPECT_EQ(result.largeFiles.at(0).path, m_tree.path("folder/a"));
}

TEST_F(StorageAnalysis, ADownloadModifiedExactlyNinetyDaysAgoIsNotOld)
{
    download("exact", ninetyDays);
    download("older", ninetyDays + nanoseconds(1'000));
    download("younger", ninetyDays - seconds(1));
    download("future", -hours(5));
    const Walk walked = walkOldDownloads(m_tree.root(), now);
    EXPECT_EQ(filesOf(walked.largest), Texts{"older 4096"});
    EXPECT_EQ(walked.files, 1);
    EXPECT_EQ(walked.bytes, 4096);
}

TEST_F(StorageAnalysis, AnOldFolderIsTakenWholeAndARecentOneNotAtAll)
{
    download("old/recent", hours(1), 2);
    download("old/below/recent", hours(1), 3);
    download("recent/ancient", 10 * ninetyDays, 5);
    m_tree.setModified("old", now - 2 * ninetyDays);
    const Walk walked = walkOldDownloads(m_tree.root(), now);
    EXPECT_EQ(walked.bytes, 5 * 4096);
    EXPECT_EQ(walked.files, 2);
    EXPECT_EQ(filesOf(walked.largest), (Texts{"recent 12288", "recent 8192"}));
}

TEST_F(StorageAnalysis, HiddenDownloadsCountToo)
{
    download(".part", 2 * ninetyDays);
    EXPECT_EQ(walkOldDownloads(m_tree.root(), now).files, 1);
}

TEST_F(StorageAnalysis, ADownloadThatIsALinkHasTheAgeOfTheLink)
{
    TempTree elsewhere;
    RandomStorage(elsewhere, 1).file("large", 100);
    elsewhere.setModified("large", now - 2 * ninetyDays);
    const std::string old = m_tree.link("old", elsewhere.path("large"));
    m_tree.link("new", elsewhere.path("large"));
    m_tree.link("dangling", "nowhere");
    m_tree.setModified("old", now - 2 * ninetyDays);
    m_tree.setModified("new", now);
    m_tree.setModified("dangling", now - 2 * ninetyDays);
    const Walk walked = walkOldDownloads(m_tree.root(), now);
    EXPECT_EQ(filesOf(walked.largest), Texts{"old " + std::to_string(blocksOf(old))});
    EXPECT_EQ(walked.files, 1);
}

TEST_F(StorageAnalysis, TheLargestTwentyOldDownloadsComeSorted)
{
    for (int i = 0; i < 24; ++i) {
        download("folder" + std::to_string(i % 3) + "/" + std::to_string(i), hours(0), i + 1);
    }
    for (const std::string folder : {"folder0", "folder1", "folder2"}) {
        m_tree.setModified(folder, now - 2 * ninetyDays);
    }
    const Walk walked = walkOldDownloads(m_tree.root(), now);
    EXPECT_EQ(walked.files, 24);
    ASSERT_EQ(walked.largest.size(), 20U);
    for (std::size_t i = 0; i < 20; ++i) {
        EXPECT_EQ(walked.largest[i].size, 4096 * (24 - static_cast<std::int64_t>(i)));
    }
}

TEST_F(StorageAnalysis, OldDownloadsOfAMissingUnreadableOrPlainPlaceAreNone)
{
    download("file", 2 * ninetyDays);
    download("closed/a", 2 * ninetyDays);
    for (const std::string path : {"gone", "file"}) {
        const Walk walked = walkOldDownloads(m_tree.path(path), now);
        EXPECT_EQ(walked.files, 0);
        EXPECT_EQ(walked.bytes, 0);
        EXPECT_TRUE(walked.largest.empty());
    }
    ASSERT_EQ(walkOldDownloads(m_tree.path("closed"), now).files, 1);
    m_tree.setMode("closed", 0);
    test::withoutOverridingPermissions(
        [this] { EXPECT_EQ(walkOldDownloads(m_tree.path("closed"), now).files, 0); });
}

TEST_F(StorageAnalysis, AChildWhoseDateCannotBeReadCountsAsModifiedNow)
{
    download("folder/a", 2 * ninetyDays);
    m_tree.setMode("folder", 0444);
    test::withoutOverridingPermissions(
        [this] { EXPECT_EQ(walkOldDownloads(m_tree.path("folder"), now).files, 0); });
}

TEST_F(StorageAnalysis, ProgressNeverTellsMoreThanTheResult)
{
    for (int i = 0; i < 30; ++i) {
        block("folder/" + std::to_string(i));
    }
    std::vector<WalkProgress> told;
    const AnalyzeResult result = drillDown(
        m_tree.root(), [&told](const WalkProgress& progress) { told.push_back(progress); });
    EXPECT_EQ(result.totalFiles, 30);
    ASSERT_FALSE(told.empty());
    for (const WalkProgress& progress : told) {
        EXPECT_LE(progress.files, result.totalFiles);
        EXPECT_LE(progress.bytes, result.totalSize);
    }
    EXPECT_GT(told.back().files, 0);
}

} // namespace
} // namespace zolva
