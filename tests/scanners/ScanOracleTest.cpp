#include "scanners/CleanScan.h"
#include "scanners/InstallerScanner.h"
#include "scanners/NaiveDisk.h"
#include "scanners/ProjectScan.h"
#include "scanners/RandomTree.h"
#include "scanners/ReservedFile.h"
#include "support/DroppedCapabilities.h"
#include "support/ScopedHome.h"
#include "support/TempTree.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <functional>
#include <set>
#include <sstream>

// Each scan against a second one, written for plainness, on hundreds of random homes.

namespace zolva::test {

namespace {

constexpr long long nowSeconds = 1'760'000'000;
const TimePoint now{std::chrono::seconds(nowSeconds)};
constexpr std::int64_t nowNanoseconds = nowSeconds * 1'000'000'000;

using Lines = std::vector<std::string>;

/// A row of any scan, as far as it counts.
struct Row
{
    std::int64_t bytes;
    std::string text;
};

Lines largestFirst(std::vector<Row> rows)
{
    // Insertion sort: plain, and equal ones keep their order.
    for (std::size_t i = 1; i < rows.size(); ++i) {
        for (std::size_t j = i; j > 0 && rows[j - 1].bytes < rows[j].bytes; --j) {
            std::swap(rows[j - 1], rows[j]);
        }
    }
    Lines lines;
    for (const Row& row : rows) {
        lines.push_back(std::to_string(row.bytes) + " " + row.text);
    }
    return lines;
}

struct Campaign
{
    unsigned homes;
    std::vector<std::string> places; ///< below home
    unsigned depth;
    std::vector<std::string> names;
};

/// Files of none to four blocks, one that is a hole, a fifo and a socket.
TreeStock stockIn(TempTree& tree)
{
    TreeStock stock;
    for (std::int64_t file = 0; file < 15; ++file) {
        stock.things.push_back(
            reservedFile(tree, "things/" + std::to_string(file), (file % 5) * 4096));
    }
    std::filesystem::resize_file(stock.things.front(), 5'000'000);
    stock.things.push_back(tree.fifo("things/fifo"));
    stock.things.push_back(tree.path("things/socket"));
    socketAt(stock.things.back());
    stock.attic = tree.folder("attic");
    return stock;
}

/// Runs `check` on random homes, in a process that permission bits bind. It returns the number of
/// rows it saw.
void onRandomHomes(const Campaign& campaign,
                   const std::function<std::size_t(unsigned, const std::string&)>& check)
{
    withoutOverridingPermissions([&] {
        TempTree tree;
        TreeStock stock = stockIn(tree);
        const std::string home = tree.folder("home");
        std::size_t rows = 0;
        for (unsigned seed = 1; seed <= campaign.homes; ++seed) {
            RandomTree grown(home + "/side", seed, campaign.names, stock);
            for (const std::string& place : campaign.places) {
                grown.growPlace(home + "/" + place, campaign.depth);
            }
            grown.finish(nowSeconds);
            // Now and then a home of odd text, below which nothing may be touched.
            const std::string text = seed % 25 == 0 ? home + "/../home" : home;
            const ScopedHome scoped(text);
            rows += check(seed, text);
            ASSERT_FALSE(::testing::Test::HasFailure());
        }
        EXPECT_GT(rows, std::size_t{campaign.homes} / 2) << "too little to compare";
    });
}

// The clean catalog.

struct PlainEntry
{
    std::string name;
    std::string path;
    bool recursive;
};

const std::vector<PlainEntry> plainCatalog = {
    {"Xcode DerivedData", "Library/Developer/Xcode/DerivedData", true},
    {"Xcode device support", "Library/Developer/Xcode/iOS DeviceSupport", true},
    {"Application caches", "Library/Caches", true},
    {"Application logs", "Library/Logs", true},
    {"Saved application state", "Library/Saved Application State", true},
    {"npm cache", ".npm/_cacache", false},
    {"Go build cache", "Library/Caches/go-build", false},
};

const std::set<std::string> plainProtected = {"CloudKit", "Mail", "Keychains", "FamilyCircle"};

void addPlainPath(std::vector<Row>& rows, std::int64_t& sum, const std::string& path,
                  const std::string& home, std::int64_t floor)
{
    const std::int64_t bytes = naive::bytesOf(path);
    if (bytes < floor || naive::isRefused(path, home)) {
        return;
    }
    const bool prot = plainProtected.count(naive::nameOf(path)) == 1;
    rows.push_back({bytes, naive::tilde(path, home) + (prot ? " protected" : "")});
    sum += bytes;
}

Lines plainCategories(const std::string& home, std::int64_t floor)
{
    std::vector<Row> categories;
    for (const PlainEntry& entry : plainCatalog) {
        const std::string folder = home + "/" + entry.path;
        std::vector<Row> rows;
        std::int64_t sum = 0;
        if (naive::leadsToFolder(folder) && !entry.recursive) {
            addPlainPath(rows, sum, folder, home, floor);
        } else if (naive::leadsToFolder(folder)) {
            for (const std::string& name : naive::namesIn(folder).value_or(Lines{})) {
                if (name[0] != '.') {
                    addPlainPath(rows, sum, folder + "/" + name, home, floor);
                }
            }
        }
        if (!rows.empty() && sum >= floor) {
            std::string text = entry.name + ":";
            for (const std::string& line : largestFirst(rows)) {
                text += " [" + line + "]";
            }
            categories.push_back({sum, text});
        }
    }
    return largestFirst(categories);
}

Lines scannedCategories(std::int64_t floor)
{
    Lines lines;
    for (const Category& category : scanCategories(floor)) {
        std::ostringstream line;
        line << totalBytes(category) << ' ' << category.name << ':';
        for (const CatPath& path : category.paths) {
            line << " [" << path.b << ' ' << path.p << (path.prot ? " protected" : "") << ']';
        }
        EXPECT_EQ(category.items, static_cast<std::int64_t>(category.paths.size()));
        lines.push_back(line.str());
    }
    return lines;
}

// The project folders.

void findPlainly(const std::string& folder, std::vector<std::string>& hits)
{
    static const std::set<std::string> artifacts = {"node_modules", ".next", "target", ".build",
                                                    "dist",         "build", "venv",   ".venv",
                                                    ".gradle",      ".tox"};
    static const std::set<std::string> pruned = {".git", ".svn", ".hg", ".idea", ".vscode"};
    for (const std::string& name : naive::namesIn(folder).value_or(Lines{})) {
        const std::string path = folder + "/" + name;
        if (pruned.count(name) == 1) {
            continue;
        }
        if (artifacts.count(name) == 1) {
            hits.push_back(path);
        } else if (naive::isOwnFolder(path)) {
            findPlainly(path, hits);
        }
    }
}

Lines plainProjects(const std::string& home, std::int64_t floor)
{
    std::vector<std::string> hits;
    for (const std::string root :
         {"Development", "Projects", "dev", "GitHub", "Code", "Sites", "src", "repos"}) {
        findPlainly(home + "/" + root, hits);
    }
    std::vector<Row> rows;
    for (const std::string& hit : hits) {
        const std::int64_t bytes = naive::bytesOf(hit);
        if (bytes >= floor && !naive::isRefused(hit, home)) {
            rows.push_back({bytes, naive::tilde(naive::parentOf(hit), home) + " | " +
                                       naive::nameOf(hit) + " | " +
                                       std::to_string(naive::ageOf(hit, nowNanoseconds))});
        }
    }
    return largestFirst(rows);
}

Lines scannedProjects(std::int64_t floor)
{
    Lines lines;
    for (const Project& project : scanProjects(now, floor)) {
        lines.push_back(std::to_string(project.b) + " " + project.p + " | " + project.artifact +
                        " | " + std::to_string(project.age));
    }
    return lines;
}

// The installers.

bool hasInstallerEnding(std::string name)
{
    std::ranges::transform(name, name.begin(), [](char letter) {
        return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter + 32) : letter;
    });
    return name.size() > 4 && (name.ends_with(".dmg") || name.ends_with(".pkg") ||
                               name.ends_with(".xip") || name.ends_with(".iso"));
}

Lines plainInstallers(const std::string& home)
{
    const std::vector<std::pair<std::string, std::string>> sources = {
        {"Downloads", "Downloads"},
        {"Desktop", "Desktop"},
        {"Library/Caches/Homebrew/downloads", "Homebrew cache"},
        {"Library/Mobile Documents/com~apple~CloudDocs/Downloads", "iCloud Drive"},
    };
    std::vector<Row> rows;
    for (const auto& [folder, label] : sources) {
        for (const std::string& name : naive::namesIn(home + "/" + folder).value_or(Lines{})) {
            const std::string path = home + "/" + folder + "/" + name;
            if (name[0] == '.' || !hasInstallerEnding(name) || !naive::isOwnFile(path) ||
                naive::bytesOf(path) < 1) {
                continue;
            }
            rows.push_back(
                {naive::bytesOf(path), name + " | " + label + " | " +
                                           std::to_string(naive::ageOf(path, nowNanoseconds)) +
                                           " | ~/" + folder + "/" + name});
        }
    }
    return largestFirst(rows);
}

Lines scannedInstallers()
{
    Lines lines;
    for (const InstallerItem& item : InstallerScanner::scan(now)) {
        lines.push_back(std::to_string(item.b) + " " + item.name + " | " + item.src + " | " +
                        std::to_string(item.age) + " | " + item.p);
    }
    return lines;
}

} // namespace

TEST(ScanOracle, CategoriesAreThoseOfThePlainScanOnRandomHomes)
{
    Campaign campaign{.homes = 200,
                      .depth = 3,
                      .names = {"CloudKit", "Mail", "FamilyCircle", "mail", ".hidden", "go-build",
                                "com.app", "a\nb", "\xff\xfe", " spaced ", "Keychains", "x.log"}};
    for (const PlainEntry& entry : plainCatalog) {
        campaign.places.push_back(entry.path);
    }
    onRandomHomes(campaign, [](unsigned seed, const std::string& home) {
        const std::int64_t floor =
            std::array<std::int64_t, 6>{1, 4096, 4097, 8192, 12288, 20000}[seed % 6];
        const Lines plain = plainCategories(home, floor);
        EXPECT_EQ(scannedCategories(floor), plain) << "seed " << seed << ", floor " << floor;
        return plain.size();
    });
}

TEST(ScanOracle, ProjectsAreThoseOfThePlainScanOnRandomHomes)
{
    const Campaign campaign{
        .homes = 200,
        .places = {"Development", "Projects", "dev", "GitHub", "Code", "Sites", "src", "repos"},
        .depth = 3,
        .names = {"app", "lib", "node_modules", "dist", "build", ".git", ".idea", "target",
                  ".hidden", "\xff", "x\ny", ".venv", "Build", "node_modules2"}};
    onRandomHomes(campaign, [](unsigned seed, const std::string& home) {
        const std::int64_t floor = std::array<std::int64_t, 4>{1, 4096, 4097, 8192}[seed % 4];
        const Lines plain = plainProjects(home, floor);
        EXPECT_EQ(scannedProjects(floor), plain) << "seed " << seed << ", floor " << floor;
        return plain.size();
    });
}

TEST(ScanOracle, InstallersAreThoseOfThePlainScanOnRandomHomes)
{
    const Campaign campaign{.homes = 150,
                            .places = {"Downloads", "Desktop", "Library/Caches/Homebrew/downloads",
                                       "Library/Mobile Documents/com~apple~CloudDocs/Downloads"},
                            .depth = 2,
                            .names = {"a.dmg", "B.DMG", ".hidden.dmg", "x.pkg", "y.iso.txt", "dmg",
                                      "z.XiP", "n\n.iso", "\xff.pkg", "q.", "two..dmg", "dmg.d",
                                      "c.Iso"}};
    onRandomHomes(campaign, [](unsigned seed, const std::string& home) {
        const Lines plain = plainInstallers(home);
        EXPECT_EQ(scannedInstallers(), plain) << "seed " << seed;
        return plain.size();
    });
}

} // namespace zolva::test
