#include "files/TreeWalker.h"

#include "support/DroppedCapabilities.h"
#include "support/TempTree.h"

#include <gtest/gtest.h>

#include <dirent.h>
#include <sys/stat.h>

#include <algorithm>
#include <random>

namespace {

using zolva::test::TempTree;
using Names = std::set<std::string, std::less<>>;
using Paths = std::vector<std::string>;

Paths search(const std::string& root, const Names& hits, const Names& pruned = {})
{
    Paths found;
    zolva::findByName(root, hits, pruned, found);
    return found;
}

Paths sorted(Paths paths)
{
    std::sort(paths.begin(), paths.end());
    return paths;
}

void plainSearch(const std::string& folder, const Names& hits, const Names& pruned, Paths& found)
{
    DIR* listing = ::opendir(folder.c_str());
    if (listing == nullptr) {
        return;
    }
    while (const dirent* entry = ::readdir(listing)) {
        const std::string name = static_cast<const char*>(entry->d_name);
        const std::string path = folder + "/" + name;
        struct stat status
        {};
        if (name == "." || name == ".." || pruned.contains(name)) {
            continue;
        }
        if (hits.contains(name)) {
            found.push_back(path);
        } else if (::lstat(path.c_str(), &status) == 0 && S_ISDIR(status.st_mode)) {
            plainSearch(path, hits, pruned, found);
        }
    }
    ::closedir(listing);
}

TEST(TreeWalkerSearch, HitsOfAnyKindAreFoundAndNotEntered)
{
    TempTree tree;
    tree.folder("one/target/target");
    tree.file("two/target");
    tree.link("three/target", "..");
    tree.fifo("four/target");
    tree.link("five/target", "nowhere");
    EXPECT_EQ(sorted(search(tree.root(), {"target"})),
              sorted({tree.path("one/target"), tree.path("two/target"), tree.path("three/target"),
                      tree.path("four/target"), tree.path("five/target")}));
}

TEST(TreeWalkerSearch, LinksAreNotEntered)
{
    TempTree tree;
    tree.folder("outside/target");
    tree.link("inside/link", "../outside");
    tree.link("inside/loop", ".");
    EXPECT_EQ(search(tree.path("inside"), {"target"}), Paths{});
}

TEST(TreeWalkerSearch, PrunedNamesAreNotEnteredAndWinOverHits)
{
    TempTree tree;
    tree.folder("skip/target");
    tree.folder("both");
    tree.folder("kept/target");
    EXPECT_EQ(search(tree.root(), {"target", "both"}, {"skip", "both"}),
              Paths{tree.path("kept/target")});
}

TEST(TreeWalkerSearch, ARootIsOpenedThroughALinkAndIsNoHitItself)
{
    TempTree tree;
    tree.folder("target/sub/target");
    tree.link("link", "target");
    EXPECT_EQ(search(tree.path("target"), {"target"}), Paths{tree.path("target/sub/target")});
    EXPECT_EQ(search(tree.path("link"), {"target"}), Paths{tree.path("link/sub/target")});
}

TEST(TreeWalkerSearch, AddsToWhatWasFoundBefore)
{
    TempTree tree;
    tree.folder("target");
    Paths found{"before"};
    zolva::findByName(tree.root(), {"target"}, {}, found);
    EXPECT_EQ(found, (Paths{"before", tree.path("target")}));
}

TEST(TreeWalkerSearch, NothingIsFoundWhereNothingCanBeListed)
{
    TempTree tree;
    const std::string file = tree.file("target");
    EXPECT_EQ(search(file, {"target"}), Paths{});
    EXPECT_EQ(search(tree.path("none"), {"target"}), Paths{});
    tree.folder("closed/target");
    tree.setMode("closed", 0);
    zolva::test::withoutOverridingPermissions(
        [&] { EXPECT_EQ(search(tree.path("closed"), {"target"}), Paths{}); });
}

TEST(TreeWalkerSearch, TheOrderIsThatOfTheListingsFoldersEnteredWhereTheyAreMet)
{
    TempTree tree;
    std::mt19937 random(5);
    Paths folders{""};
    for (int i = 0; i < 120; ++i) {
        const std::string parent = folders[random() % folders.size()];
        const std::string path = parent + "n" + std::to_string(random() % 12);
        tree.folder(path);
        folders.push_back(path + "/");
    }
    const Names hits{"n1", "n2", "n3"};
    const Names pruned{"n4", "n2"};
    Paths plain;
    plainSearch(tree.root(), hits, pruned, plain);
    ASSERT_GT(plain.size(), 5U);
    EXPECT_EQ(search(tree.root(), hits, pruned), plain);
}

} // namespace
