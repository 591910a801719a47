#include "scanners/StorageAnalysis.h"

#include "RandomStorage.h"
#include "support/QuickPlace.h"
#include "support/ScopedHome.h"
#include "support/TempTree.h"

#include <gtest/gtest.h>

#include <dirent.h>
#include <sys/stat.h>

#include <algorithm>
#include <chrono>
#include <cstdint>
#include <set>
#include <string>
#include <vector>

/// A second, naive implementation of the analysis, one walk after the other, and the comparison
/// with the real one on random trees.
namespace zolva {
namespace {

using test::blocksOf;
using test::RandomStorage;
using test::ScopedHome;
using test::TempTree;
using Texts = std::vector<std::string>;

const TimePoint now = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
constexpr std::chrono::seconds ninetyDays{7'776'000};

Texts plainListing(const std::string& folder)
{
    Texts names;
    DIR* open = ::opendir(folder.c_str());
    while (const dirent* entry = open != nullptr ? ::readdir(open) : nullptr) {
        const std::string name = entry->d_name;
        if (name != "." && name != "..") {
            names.push_back(name);
        }
    }
    if (open != nullptr) {
        ::closedir(open);
    }
    return names;
}

mode_t kindOf(const std::string& path, bool follow)
{
    struct stat status
    {};
    const int failed = follow ? ::stat(path.c_str(), &status) : ::lstat(path.c_str(), &status);
    return failed != 0 ? 0 : status.st_mode & S_IFMT;
}

void addHit(Walk& walk, const std::string& name, const std::string& path)
{
    const BigFileHit hit{name, path, blocksOf(path)};
    walk.bytes += hit.size;
    ++walk.files;
    if (walk.largest.size() < 20) {
        walk.largest.push_back(hit);
        return;
    }
    std::size_t smallest = 0;
    for (std::size_t i = 1; i < walk.largest.size(); ++i) {
        smallest = walk.largest[i].size < walk.largest[smallest].size ? i : smallest;
    }
    if (hit.size > walk.largest[smallest].size) {
        walk.largest[smallest] = hit;
    }
}

void addBelow(Walk& walk, const std::string& folder)
{
    for (const std::string& name : plainListing(folder)) {
        const std::string path = folder + "/" + name;
        if (kindOf(path, false) == S_IFREG) {
            addHit(walk, name, path);
        } else if (kindOf(path, false) == S_IFDIR) {
            addBelow(walk, path);
        }
    }
}

/// `named`: a folder that the table or the user names is opened even where it is a link.
Walk plainWalk(const std::string& path, bool named)
{
    Walk walk;
    if (kindOf(path, true) == 0) {
        return walk;
    }
    if (kindOf(path, named) == S_IFDIR) {
        addBelow(walk, path);
    } else {
        addHit(walk, path.substr(path.rfind('/') + 1), path);
    }
    return walk;
}

template <typename Sized>
void sortBySize(std::vector<Sized>& all)
{
    std::stable_sort(all.begin(), all.end(),
                     [](const Sized& a, const Sized& b) { return a.size > b.size; });
}

void add(Walk& sum, const Walk& part)
{
    sum.bytes += part.bytes;
    sum.files += part.files;
    sum.largest.insert(sum.largest.end(), part.largest.begin(), part.largest.end());
}

void keepTwenty(std::vector<BigFileHit>& hits)
{
    sortBySize(hits);
    hits.erase(hits.begin() + static_cast<std::ptrdiff_t>(std::min<std::size_t>(20, hits.size())),
               hits.end());
}

Walk plainOldDownloads(const std::string& folder)
{
    Walk sum;
    for (const std::string& name : plainListing(folder)) {
        const std::string path = folder + "/" + name;
        struct stat status
        {};
        ::lstat(path.c_str(), &status);
        const auto modified = std::chrono::seconds(status.st_mtim.tv_sec) +
                              std::chrono::nanoseconds(status.st_mtim.tv_nsec);
        if (modified < now.time_since_epoch() - ninetyDays) {
            add(sum, plainWalk(path, false));
        }
    }
    keepTwenty(sum.largest);
    return sum;
}

Texts described(const std::vector<AnalyzeEntry>& entries, const std::vector<BigFileHit>& hits,
                std::int64_t files)
{
    Texts texts = {std::to_string(files) + " files"};
    for (const AnalyzeEntry& entry : entries) {
        texts.push_back(entry.name + " at " + entry.path + " " + std::to_string(entry.size) +
                        (entry.isDir ? " folder" : ""));
    }
    for (const BigFileHit& hit : hits) {
        texts.push_back(hit.name + " = " + hit.path + " " + std::to_string(hit.size));
    }
    return texts;
}

Texts described(const AnalyzeResult& result)
{
    std::vector<BigFileHit> hits;
    for (const LargeFile& file : result.largeFiles) {
        hits.push_back({file.name, file.path, file.size});
    }
    return described(result.entries, hits, result.totalFiles);
}

Texts plainDrillDown(const std::string& folder)
{
    std::vector<AnalyzeEntry> entries;
    Walk sum;
    for (const std::string& name : plainListing(folder)) {
        const std::string path = folder + "/" + name;
        const Walk walk = plainWalk(path, false);
        entries.push_back({name, path, walk.bytes, kindOf(path, true) == S_IFDIR, std::nullopt});
        add(sum, walk);
    }
    sortBySize(entries);
    keepTwenty(sum.largest);
    return described(entries, sum.largest, sum.files);
}

Texts plainOverview()
{
    std::vector<AnalyzeEntry> entries;
    Walk sum;
    for (const AnalyzeLocation& row : analysisTargets()) {
        if (kindOf(row.path, true) == 0) {
            continue;
        }
        const Walk walk =
            row.oldDownloads ? plainOldDownloads(row.path) : plainWalk(row.path, true);
        entries.push_back({row.label, row.path, walk.bytes, true, std::nullopt});
        add(sum, walk);
    }
    sortBySize(entries);
    sortBySize(sum.largest);
    std::vector<BigFileHit> first;
    std::set<std::string> seen;
    for (const BigFileHit& hit : sum.largest) {
        if (seen.insert(hit.path).second && first.size() < 20) {
            first.push_back(hit);
        }
    }
    return described(entries, first, sum.files);
}

/// A home with some of the usual places, old downloads and things of all kinds.
void growHome(TempTree& tree, RandomStorage& random)
{
    Texts folders = {"Documents"};
    tree.folder("Documents");
    for (const std::string place :
         {"Library", "Library/Developer/Xcode/DerivedData", "Downloads", ".gradle",
          "Library/Developer/CoreSimulator/Devices", "Library/Caches/JetBrains", "Library/Logs",
          "Library/Caches/Homebrew"}) {
        if (kindOf(tree.path("Library"), false) == S_IFLNK && place.starts_with("Library/")) {
            continue;
        }
        if (random.oneIn(8) && kindOf(tree.path(place), false) == 0) {
            tree.link(place, tree.path(random.anyOf(Texts{"Documents", "nowhere"})));
        } else if (random.oneIn(2)) {
            tree.folder(place);
            folders.push_back(place);
        }
    }
    random.fill(folders, random.oneIn(5) ? 60 : 12);
    for (const std::string& name : plainListing(tree.path("Downloads"))) {
        const std::vector<std::chrono::seconds> ages = {
            ninetyDays, ninetyDays + std::chrono::seconds(1), 2 * ninetyDays,
            ninetyDays - std::chrono::seconds(1), std::chrono::seconds(0)};
        tree.setModified("Downloads/" + name, now - random.anyOf(ages));
    }
}

TEST(StorageAnalysisOracle, ThreeHundredRandomHomesAreAnalysedAsByThePlainRule)
{
    const test::ScopedVariable place("TMPDIR", test::quickPlace());
    std::int64_t oldFiles = 0;
    std::size_t fullLists = 0;
    for (unsigned seed = 0; seed < 300; ++seed) {
        TempTree tree;
        const ScopedHome home(tree.root());
        RandomStorage random(tree, seed);
        growHome(tree, random);

        const AnalyzeResult seen = overview(now).first;
        ASSERT_EQ(described(seen), plainOverview()) << "seed " << seed;
        for (const std::string& folder :
             {tree.root(), tree.path("Library"), tree.path("Documents"), tree.path("Downloads")}) {
            const AnalyzeResult drilled = drillDown(folder);
            ASSERT_EQ(described(drilled), plainDrillDown(folder)) << "seed " << seed;
            std::int64_t sum = 0;
            for (const AnalyzeEntry& entry : drilled.entries) {
                sum += entry.size;
            }
            ASSERT_EQ(drilled.totalSize, sum) << "seed " << seed;
        }
        const Walk old = walkOldDownloads(tree.path("Downloads"), now);
        const Walk plain = plainOldDownloads(tree.path("Downloads"));
        ASSERT_EQ(described({}, old.largest, old.files), described({}, plain.largest, plain.files));
        ASSERT_EQ(old.bytes, plain.bytes) << "seed " << seed;
        oldFiles += old.files;
        fullLists += seen.largeFiles.size() == 20 ? 1U : 0U;
    }
    EXPECT_GT(oldFiles, 100) << "the trees hold what the rule is about";
    EXPECT_GT(fullLists, 30U) << "the trees hold more files than are kept";
}

} // namespace
} // namespace zolva
