#include "ctl/ChildRun.h"
#include "support/DroppedCapabilities.h"
#include "support/TempTree.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <nlohmann/json.hpp>
#include <sys/stat.h>

#include <filesystem>
#include <map>
#include <string>
#include <tuple>
#include <vector>

namespace zolva::test {

namespace {

using ::testing::HasSubstr;
using ::testing::IsEmpty;
using Json = nlohmann::ordered_json;

Outcome makeDemoHome(std::vector<std::string> arguments)
{
    arguments.insert(arguments.begin(), "-B");
    arguments.insert(arguments.begin() + 1, ZOLVA_SOURCE_DIR "/scripts/make-demo-home");
    return ChildRun(std::move(arguments)).program("/usr/bin/python3").run();
}

/// Mode, size and time of modification of everything below, by its name.
std::map<std::string, std::tuple<unsigned, std::int64_t, std::int64_t>>
treeOf(const std::string& root)
{
    std::map<std::string, std::tuple<unsigned, std::int64_t, std::int64_t>> tree;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(root)) {
        struct stat status
        {};
        EXPECT_EQ(::lstat(entry.path().c_str(), &status), 0);
        const std::int64_t size = S_ISREG(status.st_mode) ? status.st_size : 0;
        tree[entry.path().native().substr(root.size())] = {status.st_mode, size,
                                                           status.st_mtim.tv_sec};
    }
    return tree;
}

TEST(DemoHome, IsTheSameForTheSameSeedAndDay)
{
    const TempTree tree;
    for (const char* name : {"one", "two"}) {
        const Outcome outcome =
            makeDemoHome({tree.path(name), "--seed", "7", "--date", "2026-03-01"});
        EXPECT_EQ(outcome.code, 0);
        EXPECT_EQ(outcome.out, "");
        EXPECT_EQ(outcome.err, "");
    }
    const auto one = treeOf(tree.path("one"));
    EXPECT_GT(one.size(), 300U);
    EXPECT_EQ(one, treeOf(tree.path("two")));
}

TEST(DemoHome, DiffersWithTheSeed)
{
    const TempTree tree;
    EXPECT_EQ(makeDemoHome({tree.path("one"), "--seed", "1", "--date", "2026-03-01"}).code, 0);
    EXPECT_EQ(makeDemoHome({tree.path("two"), "--seed", "2", "--date", "2026-03-01"}).code, 0);
    EXPECT_NE(treeOf(tree.path("one")), treeOf(tree.path("two")));
}

TEST(DemoHome, RefusesAPlaceThatIsNotEmpty)
{
    TempTree tree;
    tree.file("mine/keep", 10);
    const std::string file = tree.file("file", 10);
    for (const std::string& place : {tree.path("mine"), file}) {
        const auto before = treeOf(tree.root());
        const Outcome outcome = makeDemoHome({place});
        EXPECT_EQ(outcome.code, 1);
        EXPECT_THAT(outcome.err, HasSubstr("exists and is not an empty folder"));
        EXPECT_EQ(treeOf(tree.root()), before);
    }
}

TEST(DemoHome, GivesEveryScanSomethingToFind)
{
    const TempTree tree;
    const std::string home = tree.path("home");
    ASSERT_EQ(makeDemoHome({home, "--apps", tree.path("apps.json")}).code, 0);
    const auto ask = [&home](std::vector<std::string> words) {
        words.emplace_back("--json");
        return Json::parse(zolvactl(home, std::move(words)).out);
    };
    const Json clean = ask({"clean"});
    EXPECT_EQ(clean["categories"].size(), 7U);
    EXPECT_THAT(clean.dump(), HasSubstr("\"prot\":true"));
    EXPECT_GE(ask({"purge"})["projects"].size(), 4U);
    EXPECT_GE(ask({"installers"})["installers"].size(), 6U);
    const Json apps = ask({"apps", "--apps", tree.path("apps.json")});
    ASSERT_EQ(apps["apps"].size(), 6U);
    for (const Json& app : apps["apps"]) {
        EXPECT_TRUE(app["version"].is_string()) << app;
        EXPECT_GT(app["bundleBytes"].get<std::int64_t>(), 0) << app;
    }
    const Json residue = ask({"leftovers", "--apps", tree.path("apps.json"), "--path",
                              apps["apps"][0]["path"].get<std::string>()});
    EXPECT_GE(residue["residue"].size(), 6U);
    EXPECT_THAT(residue.dump(), HasSubstr("\"sharedWith\":\"Lumen Editor Beta\""));
    const Json summary = ask({"summary"});
    EXPECT_GT(summary["total"].get<std::int64_t>(), 15'000'000);
    EXPECT_THAT(summary["blocked"], IsEmpty());
}

TEST(DemoHome, BlocksItsPlacesOnRequest)
{
    const TempTree tree;
    withoutOverridingPermissions([&] {
        const std::string home = tree.path("home");
        ASSERT_EQ(makeDemoHome({home, "--blocked"}).code, 0);
        const Json found = Json::parse(zolvactl(home, {"summary", "--json"}).out);
        EXPECT_EQ(found["blocked"].dump(),
                  json("['downloads','desktop','documents','icloud','trash']"));
    });
}

TEST(DemoHome, FillsATrashThatTheDesktopCanRead)
{
    const TempTree tree;
    const std::string home = tree.path("home");
    ASSERT_EQ(makeDemoHome({home}).code, 0);
    const std::filesystem::path trash(home + "/.local/share/Trash");
    int items = 0;
    for (const auto& entry : std::filesystem::directory_iterator(trash / "files")) {
        const std::string info = entry.path().filename().native() + ".trashinfo";
        EXPECT_TRUE(std::filesystem::is_regular_file(trash / "info" / info)) << info;
        ++items;
    }
    EXPECT_EQ(items, 3);
}

} // namespace

} // namespace zolva::test
