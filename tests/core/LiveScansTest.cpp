#include "core/LiveScans.h"

#include "support/ScopedHome.h"
#include "support/TempTree.h"
#include "support/qt/EventLoop.h"
#include "support/qt/ManualClock.h"

#include <gtest/gtest.h>

#include <chrono>
#include <string>
#include <vector>

namespace zolva::test {

namespace {

/// The real scans, on a home of their own.
class BackgroundScans : public ::testing::Test
{
protected:
    TempTree tree;
    ScopedHome home{tree.root()};
    ManualClock clock;
    LiveScans scans = backgroundScans(clock);
};

} // namespace

TEST_F(BackgroundScans, CachesAreFoundWithoutHoldingUpTheCaller)
{
    tree.file("Library/Caches/org.example/blob", 1'500'000);
    auto scan = scans.clean();
    EXPECT_FALSE(scan.isReady());
    const std::vector<Category> found = settled(std::move(scan));
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].paths.at(0).p, "~/Library/Caches/org.example");
}

TEST_F(BackgroundScans, TheAgeOfAProjectIsCountedFromTheClocksNow)
{
    tree.file("Projects/site/node_modules/blob", 1'500'000);
    tree.setModified("Projects/site/node_modules", clock.now() - std::chrono::hours(24 * 10));
    const std::vector<Project> found = settled(scans.purge());
    ASSERT_EQ(found.size(), 1U);
    EXPECT_EQ(found[0].artifact, "node_modules");
    EXPECT_EQ(found[0].age, 10);
}

TEST_F(BackgroundScans, EveryApplicationIsEnrichedInTheOrderOfTheList)
{
    tree.file("Applications/B.app/blob", 5000);
    std::vector<UninstallApp> apps(2);
    apps[0].name = "B";
    apps[0].path = tree.path("Applications/B.app");
    apps[1].name = "A";
    apps[1].path = tree.path("Applications/A.app");
    const std::vector<UninstallApp> found = settled(scans.enrich(apps));
    ASSERT_EQ(found.size(), 2U);
    EXPECT_EQ(found[0].name, "B");
    EXPECT_GE(found[0].bundleBytes.value_or(-1), 5000);
    EXPECT_EQ(found[1].name, "A");
    EXPECT_EQ(found[1].bundleBytes, 0);
}

TEST_F(BackgroundScans, LeftoversAreThoseOfTheApplicationAskedFor)
{
    UninstallApp app;
    app.name = "Example";
    app.bundleID = "org.example";
    app.path = tree.folder("Applications/Example.app");
    tree.file("Library/Caches/org.example/blob", 5000);
    const std::vector<ResidueRow> rows = settled(scans.residue(app, {app}));
    bool cacheFound = false;
    for (const ResidueRow& row : rows) {
        cacheFound = cacheFound || row.p == "~/Library/Caches/org.example";
    }
    EXPECT_TRUE(cacheFound);
}

TEST_F(BackgroundScans, AnAnalysisIsOfTheFolderOrOfTheOverviewWithTheFreeSpaceBesideIt)
{
    tree.file("folder/blob", 5000);
    const Analysis folder = settled(scans.analyze(tree.path("folder")));
    EXPECT_EQ(folder.result.path, tree.path("folder"));
    EXPECT_FALSE(folder.result.overview);
    EXPECT_EQ(folder.result.entries.size(), 1U);
    EXPECT_GT(folder.free, 0);

    const Analysis overview = settled(scans.analyze(""));
    EXPECT_TRUE(overview.result.overview);
    EXPECT_EQ(overview.result.path, "");
}

} // namespace zolva::test
