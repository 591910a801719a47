#include "mole/AppListDocument.h"

#include "files/SizeText.h"
#include "scanners/AppInventory.h"
#include "support/ScopedHome.h"
#include "support/TempTree.h"
#include "tools/ToolProcess.h"

#include <nlohmann/json.hpp>

#include <gtest/gtest.h>

#include <algorithm>
#include <csignal>
#include <string>

namespace zolva::test {

namespace {

using Json = nlohmann::json;
using mole::BundleRow;
using mole::bundlesBelow;

std::string infoOf(const std::string& entries)
{
    return R"(<?xml version="1.0" encoding="UTF-8"?><plist version="1.0"><dict>)" + entries +
           "</dict></plist>";
}

std::string entry(const std::string& key, const std::string& value)
{
    return "<key>" + key + "</key><string>" + value + "</string>";
}

/// A binary property list of {"CFBundleIdentifier": "org.example.bin"}, laid out by hand.
std::string binaryInfo()
{
    const std::string key = "CFBundleIdentifier";
    const std::string value = "org.example.bin";
    std::string bytes = "bplist00";
    const std::size_t top = bytes.size();
    bytes += std::string("\xD1\x01\x02", 3);
    const std::size_t keyAt = bytes.size();
    bytes += std::string("\x5F\x10", 2) + static_cast<char>(key.size()) + key;
    const std::size_t valueAt = bytes.size();
    bytes += std::string("\x5F\x10", 2) + static_cast<char>(value.size()) + value;
    const std::size_t table = bytes.size();
    for (const std::size_t place : {top, keyAt, valueAt}) {
        bytes += static_cast<char>(place);
    }
    bytes += std::string(6, '\0') + std::string("\x01\x01", 2);    // widths of places and names
    bytes += std::string(7, '\0') + '\x03' + std::string(8, '\0'); // three objects, the first tops
    bytes += std::string(7, '\0') + static_cast<char>(table);
    return bytes;
}

std::vector<BundleRow> bundlesIn(const TempTree& tree)
{
    std::vector<std::string> untellable;
    return bundlesBelow({tree.root()}, untellable);
}

} // namespace

TEST(AppList, NameAndIdentifierComeFromTheInfoWithTheDisplayNameFirst)
{
    TempTree tree;
    const ScopedHome elsewhere(tree.path("home"));
    tree.text("One.app/Contents/Info.plist",
              infoOf(entry("CFBundleName", "Short") + entry("CFBundleDisplayName", "The Long One") +
                     entry("CFBundleIdentifier", "org.example.one")));
    tree.text("Two.app/Contents/Info.plist",
              infoOf(entry("CFBundleName", "Second") + entry("CFBundleDisplayName", " ") +
                     entry("CFBundleIdentifier", "org.example.two")));
    const auto rows = bundlesIn(tree);
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0].name, "The Long One");
    EXPECT_EQ(rows[0].bundleID, "org.example.one");
    EXPECT_EQ(rows[0].uninstallName, "One");
    EXPECT_EQ(rows[0].path, tree.path("One.app"));
    EXPECT_EQ(rows[0].source, tree.root());
    EXPECT_EQ(rows[1].name, "Second");
}

TEST(AppList, ABinaryInfoIsRead)
{
    TempTree tree;
    tree.text("Bin.app/Contents/Info.plist", binaryInfo());
    const auto rows = bundlesIn(tree);
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0].bundleID, "org.example.bin");
    EXPECT_EQ(rows[0].name, "Bin");
}

TEST(AppList, ABundleWithoutIdentifierOrWithADamagedInfoIsUnknownByItsFileName)
{
    TempTree tree;
    tree.text("Bare.app/Contents/Info.plist", infoOf(""));
    tree.text("Broken.app/Contents/Info.plist", "bplist00 not really");
    tree.text("Number.app/Contents/Info.plist",
              infoOf("<key>CFBundleIdentifier</key><integer>7</integer>"));
    const auto rows = bundlesIn(tree);
    ASSERT_EQ(rows.size(), 3U);
    for (const BundleRow& row : rows) {
        EXPECT_EQ(row.bundleID, "unknown");
        EXPECT_EQ(row.name, row.uninstallName);
    }
}

TEST(AppList, APipeInPlaceOfTheInfoKeepsNobodyWaiting)
{
    TempTree tree;
    tree.fifo("Pipe.app/Contents/Info.plist");
    const auto rows = bundlesIn(tree);
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0].bundleID, "unknown");
}

TEST(AppList, OnlyFoldersNamedAppWithAnInfoAreBundles)
{
    TempTree tree;
    tree.text("Plain/Contents/Info.plist", infoOf(""));
    tree.folder("Empty.app/Contents");
    tree.text("File.app", "text");
    tree.text(".app/Contents/Info.plist", infoOf(""));
    tree.text("Real.app/Contents/Info.plist", infoOf(""));
    tree.link("Link.app", tree.path("Real.app"));
    const auto rows = bundlesIn(tree);
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0].name, "Real");
}

TEST(AppList, BundlesInSubfoldersAreListedAndThoseWithinBundlesAreNot)
{
    TempTree tree;
    tree.text("b/deep/Inner.app/Contents/Info.plist", infoOf(""));
    tree.text("A.app/Contents/Info.plist", infoOf(""));
    tree.text("A.app/Contents/Helpers/Part.app/Contents/Info.plist", infoOf(""));
    const auto rows = bundlesIn(tree);
    ASSERT_EQ(rows.size(), 2U);
    EXPECT_EQ(rows[0].name, "A");
    EXPECT_EQ(rows[1].name, "Inner");
}

TEST(AppList, TheSizeIsThatOnDiskOfTheWholeBundle)
{
    TempTree tree;
    const std::string info = tree.text("A.app/Contents/Info.plist", infoOf(""));
    const std::string data = tree.file("A.app/Contents/Resources/data", 300'000);
    const auto rows = bundlesIn(tree);
    ASSERT_EQ(rows.size(), 1U);
    EXPECT_EQ(rows[0].size, sizeText(blocksOf(info) + blocksOf(data)));
}

TEST(AppList, ABundleWhosePathIsNotUtf8IsLeftOutAndTold)
{
    TempTree tree;
    tree.text("Bad\xff.app/Contents/Info.plist", infoOf(""));
    std::vector<std::string> untellable;
    EXPECT_TRUE(bundlesBelow({tree.root()}, untellable).empty());
    EXPECT_EQ(untellable, std::vector<std::string>{tree.path("Bad\xff.app")});
}

TEST(AppList, AMissingFolderHoldsNothing)
{
    TempTree tree;
    std::vector<std::string> untellable;
    EXPECT_TRUE(bundlesBelow({tree.path("none")}, untellable).empty());
    EXPECT_EQ(mole::appListDocument({}), "[]");
}

TEST(AppList, TheHomesOwnFolderIsLookedAtAfterTheSystems)
{
    TempTree tree;
    const ScopedHome home(tree.root());
    EXPECT_EQ(mole::applicationFolders(),
              (std::vector<std::string>{"/Applications", tree.path("Applications")}));
}

TEST(AppList, TheToolPrintsAnArrayWithTheSixKeysThatTheProgramDecodes)
{
    TempTree home;
    home.text("Applications/Mine.app/Contents/Info.plist",
              infoOf(entry("CFBundleIdentifier", "org.example.mine")));
    ToolProcess tool({"uninstall", "--list"}, {{{"HOME", home.root()}}});
    const std::string output = tool.readOutput();
    const std::optional<Ending> ending = tool.wait();
    ASSERT_TRUE(ending);
    EXPECT_EQ(ending->exitCode, 0);

    const Json list = Json::parse(output, nullptr, false);
    ASSERT_TRUE(list.is_array());
    const std::string path = home.path("Applications/Mine.app");
    const auto mine =
        std::ranges::find_if(list, [&](const Json& one) { return one.at("path") == path; });
    ASSERT_NE(mine, list.end());
    EXPECT_EQ(mine->size(), 6U);
    EXPECT_EQ(mine->at("name"), "Mine");
    EXPECT_EQ(mine->at("bundle_id"), "org.example.mine");
    EXPECT_EQ(mine->at("source"), "~/Applications");
    EXPECT_EQ(mine->at("uninstall_name"), "Mine");
    EXPECT_TRUE(mine->at("size").is_string());
    EXPECT_TRUE(decodeAppList(output).has_value());
}

namespace {

/// More bundles than one page can tell of.
void addManyBundles(TempTree& home)
{
    for (int number = 0; number < 40; ++number) {
        home.text("Applications/Application with a long name " + std::to_string(number) +
                      ".app/Contents/Info.plist",
                  infoOf(""));
    }
}

} // namespace

TEST(AppList, APipeThatDoesNotWaitForItsReaderGetsAllOfTheList)
{
    TempTree home;
    addManyBundles(home);
    ToolProcess tool(
        {"uninstall", "--list"},
        {.changes = {{"HOME", home.root()}}, .smallPipe = true, .nonBlockingPipe = true});
    ASSERT_TRUE(tool.waitUntilFull());
    const Json list = Json::parse(tool.readOutput(), nullptr, false);
    ASSERT_TRUE(list.is_array());
    EXPECT_GE(list.size(), 40U);
}

TEST(AppList, AReaderThatDoesNotReadDoesNotKeepTheToolFromEnding)
{
    TempTree home;
    addManyBundles(home);
    ToolProcess asked({"uninstall", "--list"},
                      {.changes = {{"HOME", home.root()}}, .smallPipe = true});
    ASSERT_TRUE(asked.waitUntilFull());
    asked.send(SIGTERM);
    const std::optional<Ending> ending = asked.wait();
    ASSERT_TRUE(ending);
    EXPECT_EQ(ending->signal, SIGTERM);

    ToolProcess left({"uninstall", "--list"},
                     {.changes = {{"HOME", home.root()}}, .smallPipe = true});
    ASSERT_TRUE(left.waitUntilFull());
    left.closeOutput();
    const std::optional<Ending> quiet = left.wait();
    ASSERT_TRUE(quiet);
    EXPECT_EQ(quiet->exitCode, 0);
    EXPECT_EQ(left.readErrors(), "");
}

} // namespace zolva::test
