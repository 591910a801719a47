#include "scanners/AppInventory.h"

#include "platform/FileDates.h"
#include "support/DroppedCapabilities.h"
#include "support/TempTree.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>

namespace zolva {
namespace {

using test::blocksOf;
using test::TempTree;

UninstallApp appAt(const std::string& path)
{
    UninstallApp app;
    app.name = "Foo";
    app.bundleID = "org.example.foo";
    app.source = "Homebrew";
    app.uninstallName = "foo";
    app.path = path;
    app.size = "about 3 GB";
    return app;
}

constexpr const char* infoList = "<plist version=\"1.0\"><dict>"
                                 "<key>CFBundleShortVersionString</key><string>2.5</string>"
                                 "</dict></plist>";

TEST(EnrichApp, FillsVersionDateAndBytesFromTheBundleAndLeavesTheRest)
{
    TempTree tree;
    const std::string info = tree.text("Foo.app/Contents/Info.plist", infoList);
    const std::string binary = tree.file("Foo.app/Contents/MacOS/Foo", 10'000);
    const std::string hidden = tree.file("Foo.app/.hidden", 5000);
    const UninstallApp app = enrichApp(appAt(tree.path("Foo.app")));

    EXPECT_EQ(app.version, "2.5");
    EXPECT_EQ(app.bundleBytes, blocksOf(info) + blocksOf(binary) + blocksOf(hidden));
    EXPECT_EQ(app.size, "about 3 GB");
    EXPECT_EQ(app.name, "Foo");
    EXPECT_EQ(app.bundleID, "org.example.foo");
    EXPECT_EQ(app.source, "Homebrew");
    EXPECT_EQ(app.uninstallName, "foo");
    EXPECT_EQ(app.path, tree.path("Foo.app"));
}

TEST(EnrichApp, TheDateIsOfTheBundlesArrivalAndNotOfItsContent)
{
    using namespace std::chrono_literals;
    TempTree tree;
    const auto before = std::chrono::system_clock::now() - 5s;
    const std::string bundle = tree.folder("Foo.app");
    tree.setModified("Foo.app", before - 24h);
    const auto installed = enrichApp(appAt(bundle)).installedDate;
    // None where neither date is kept on the disk.
    ASSERT_EQ(installed.has_value(), creationDate(bundle).has_value());
    EXPECT_TRUE(!installed || *installed >= before);
}

TEST(EnrichApp, AMissingBundleHasZeroBytesAndNothingElse)
{
    TempTree tree;
    const UninstallApp app = enrichApp(appAt(tree.path("Gone.app")));
    EXPECT_EQ(app.bundleBytes, 0);
    EXPECT_EQ(app.version, std::nullopt);
    EXPECT_EQ(app.installedDate, std::nullopt);
}

TEST(EnrichApp, ABundleOfOtherBytesThanThePathTellsIsNotMeasured)
{
    TempTree tree;
    tree.text("Foo.app/Contents/Info.plist", infoList);
    tree.file("Foo.app/data", 5000);
    const UninstallApp app = enrichApp(appAt(tree.path("Foo.app") + std::string("\0.app", 5)));
    EXPECT_EQ(app.bundleBytes, 0);
    EXPECT_EQ(app.version, std::nullopt);
    EXPECT_EQ(app.installedDate, std::nullopt);
}

TEST(EnrichApp, WhatWasFilledBeforeDoesNotStayWhereThePathIsNone)
{
    TempTree tree;
    UninstallApp app = appAt(tree.folder("Foo.app") + std::string("\0.app", 5));
    app.version = "old";
    app.installedDate = std::chrono::system_clock::now();
    app.bundleBytes = 77;
    app = enrichApp(std::move(app));
    EXPECT_EQ(app.version, std::nullopt);
    EXPECT_EQ(app.installedDate, std::nullopt);
    EXPECT_EQ(app.bundleBytes, 0);
}

TEST(EnrichApp, ABundleThatIsALinkHasTheBytesOfTheLink)
{
    TempTree tree;
    tree.file("real.app/data", 50'000);
    const std::string link = tree.link("Foo.app", tree.path("real.app"));
    EXPECT_EQ(enrichApp(appAt(link)).bundleBytes, blocksOf(link));
}

TEST(EnrichApp, AnUnreadableBundleIsMeasuredAsFarAsItCanBe)
{
    TempTree tree;
    const std::string open = tree.file("Foo.app/open", 5000);
    tree.file("Foo.app/Contents/secret", 50'000);
    tree.text("Foo.app/Contents/Info.plist", infoList);
    tree.setMode("Foo.app/Contents", 0);
    test::withoutOverridingPermissions([&] {
        const UninstallApp app = enrichApp(appAt(tree.path("Foo.app")));
        EXPECT_EQ(app.bundleBytes, blocksOf(open));
        EXPECT_EQ(app.version, std::nullopt);
    });
}

TEST(EnrichApp, FieldsThatWereFilledBeforeAreFilledAnew)
{
    TempTree tree;
    UninstallApp app = appAt(tree.folder("Foo.app"));
    app.version = "old";
    app.bundleBytes = 77;
    app = enrichApp(std::move(app));
    EXPECT_EQ(app.version, std::nullopt);
    EXPECT_EQ(app.bundleBytes, 0);
}

} // namespace
} // namespace zolva
