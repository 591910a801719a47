#include "scanners/LeftoverScan.h"

#include "RandomStorage.h"
#include "files/PathGuards.h"
#include "support/QuickPlace.h"
#include "support/ScopedHome.h"
#include "support/TempTree.h"

#include <gtest/gtest.h>

#include <dirent.h>
#include <sys/stat.h>

#include <algorithm>
#include <cstdint>
#include <functional>
#include <set>
#include <string>
#include <utility>
#include <vector>

/// A second, naive implementation of the scan, and the comparison with the real one on random
/// homes.
namespace zolva {
namespace {

using test::blocksOf;
using test::RandomStorage;
using test::ScopedHome;
using test::TempTree;
using Texts = std::vector<std::string>;

UninstallApp appOf(const std::string& name, const std::string& bundleID, const std::string& path)
{
    UninstallApp app;
    app.name = name;
    app.bundleID = bundleID;
    app.path = path;
    return app;
}

void addBelow(const std::string& path, std::int64_t& count, std::int64_t& bytes)
{
    DIR* folder = ::opendir(path.c_str());
    while (const dirent* entry = ::readdir(folder)) {
        const std::string name = entry->d_name;
        const std::string full = path + "/" + name;
        struct stat status
        {};
        if (name == "." || name == ".." || ::lstat(full.c_str(), &status) != 0) {
            continue;
        }
        if (S_ISREG(status.st_mode)) {
            ++count;
            bytes += blocksOf(full);
        } else if (S_ISDIR(status.st_mode)) {
            addBelow(full, count, bytes);
        }
    }
    ::closedir(folder);
}

/// Count and bytes the plain way.
std::pair<std::int64_t, std::int64_t> plainTally(const std::string& path)
{
    struct stat status
    {};
    if (::stat(path.c_str(), &status) != 0 || ::lstat(path.c_str(), &status) != 0) {
        return {0, 0};
    }
    if (!S_ISDIR(status.st_mode)) {
        return {1, blocksOf(path)};
    }
    std::int64_t count = 0;
    std::int64_t bytes = 0;
    addBelow(path, count, bytes);
    return {std::max<std::int64_t>(1, count), bytes};
}

/// The rows by the rule, written out place by place.
Texts plainRows(const UninstallApp& app, const std::vector<UninstallApp>& apps,
                const std::string& home)
{
    std::vector<std::pair<std::int64_t, std::string>> found;
    const auto look = [&](const std::string& loc, const std::string& path,
                          const std::string& owner) {
        const auto [count, bytes] = plainTally(path);
        if (pathRefusal(path) || count == 0 || (bytes == 0 && loc != "Application bundle")) {
            return;
        }
        found.emplace_back(bytes, loc + " ~" + path.substr(home.size()) + " " +
                                      std::to_string(count) + " " + std::to_string(bytes) + " " +
                                      owner);
    };
    const auto owner = [&](const std::function<bool(const UninstallApp&)>& same) {
        for (const UninstallApp& other : apps) {
            if (other.bundleID + other.path != app.bundleID + app.path && same(other)) {
                return "<" + other.name + ">";
            }
        }
        return std::string();
    };
    look("Application bundle", app.path, "");
    const std::string library = home + "/Library/";
    const std::string& id = app.bundleID;
    if (isUsableIdentifier(id)) {
        const std::string who = owner([&](const UninstallApp& o) { return o.bundleID == id; });
        look("Caches", library + "Caches/" + id, who);
        look("Containers", library + "Containers/" + id, who);
        look("Group Containers", library + "Group Containers/" + id, who);
        look("Preferences", library + "Preferences/" + id + ".plist", who);
        look("Saved application state", library + "Saved Application State/" + id + ".savedState",
             who);
        look("WebKit storage", library + "WebKit/" + id, who);
        look("HTTP storage", library + "HTTPStorages/" + id, who);
        look("Cookies", library + "Cookies/" + id + ".binarycookies", who);
    }
    if (isUsableIdentifier(app.name)) {
        const std::string who = owner([&](const UninstallApp& o) { return o.name == app.name; });
        look("Application Support", library + "Application Support/" + app.name, who);
        look("Logs", library + "Logs/" + app.name, who);
    }
    std::stable_sort(found.begin(), found.end(),
                     [](const auto& a, const auto& b) { return a.first > b.first; });
    Texts texts;
    for (const auto& [bytes, text] : found) {
        texts.push_back(text);
    }
    return texts;
}

/// What a few of the places hold, each by a key that an application may have.
void growPlaces(TempTree& tree, RandomStorage& random)
{
    Texts folders = {"Applications"};
    std::set<std::string> made;
    for (int i = random.upTo(5); i >= 0; --i) {
        const std::string place = random.anyOf(Texts{
            "Caches", "Containers", "Group Containers", "Preferences", "WebKit", "HTTPStorages",
            "Cookies", "Saved Application State", "Application Support", "Logs"});
        const std::string after = place == "Preferences"               ? ".plist"
                                  : place == "Cookies"                 ? ".binarycookies"
                                  : place == "Saved Application State" ? ".savedState"
                                                                       : "";
        const std::string key = random.anyOf(Texts{"foo", "Foo", "org.foo", " foo", "N"});
        const std::string path = "Library/" + place + "/" + key + after;
        tree.folder("Library/" + place);
        if (!made.insert(path).second) {
            continue;
        }
        if (random.oneIn(3)) {
            random.file(path, random.upTo(3));
        } else {
            folders.push_back(path);
            tree.folder(path);
        }
    }
    random.fill(folders, 12);
}

TEST(LeftoverScanOracle, ThreeHundredRandomHomesGiveTheRowsOfThePlainRule)
{
    const test::ScopedVariable place("TMPDIR", test::quickPlace());
    const Texts keys = {"foo", "Foo", "org.foo", "unknown", "..", " foo", "a/b", "", "N"};
    std::size_t rowsSeen = 0;
    for (unsigned seed = 0; seed < 300; ++seed) {
        TempTree tree;
        const ScopedHome home(tree.root());
        RandomStorage random(tree, seed);
        std::vector<UninstallApp> apps;
        for (int i = random.upTo(3); i >= 0; --i) {
            const std::string bundle = "Applications/" + std::to_string(random.upTo(2)) + ".app";
            apps.push_back(appOf(random.anyOf(keys), random.anyOf(keys), tree.folder(bundle)));
        }
        growPlaces(tree, random);
        for (const UninstallApp& app : apps) {
            Texts told;
            for (const ResidueRow& row : scanResidue(app, apps)) {
                told.push_back(row.loc + " " + row.p + " " + std::to_string(row.n) + " " +
                               std::to_string(row.b) + " " +
                               (row.shared ? "<" + row.sharedWith.value_or("?") + ">" : ""));
            }
            rowsSeen += told.size();
            ASSERT_EQ(told, plainRows(app, apps, tree.root())) << "seed " << seed;
        }
    }
    EXPECT_GT(rowsSeen, 900U);
}

} // namespace
} // namespace zolva
