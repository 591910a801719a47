#include "core/AppModel.h"

#include "async/Unawaited.h"
#include "core/JsonPrefsStore.h"

#include "support/ScopedHome.h"
#include "support/TempTree.h"
#include "support/qt/EventLoop.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <memory>
#include <set>
#include <string>

namespace zolva::test {

namespace {

/// The model on the real scans, in a home of its own and without a tool.
class LiveAppModel : public ::testing::Test
{
protected:
    std::unique_ptr<AppModel> build(StartSteps which = {})
    {
        AppDependencies all = liveDependencies(clock, store);
        all.crashCapture = {}; // it would stay for the tests that follow
        all.steps = which;
        return std::make_unique<AppModel>(std::move(all));
    }

    TempTree tree;
    ScopedHome home{tree.root()};
    SystemClock clock;
    JsonPrefsStore store{tree.path("config/preferences.json")};
};

} // namespace

TEST_F(LiveAppModel, ReadsItsListsFromTheDisk)
{
    tree.file("Downloads/tool.dmg", 5000);
    tree.file("Library/Caches/org.example/blob", 1'500'000);
    const auto model = build();
    model->scanInstallers();
    settled(model->scanClean(true));
    pumpUntil([&] { return model->lists().installerState().isLoaded(); });
    ASSERT_EQ(model->lists().installerList().size(), 1U);
    EXPECT_EQ(model->lists().installerList()[0].p, "~/Downloads/tool.dmg");
    ASSERT_EQ(model->lists().liveCats().value().size(), 1U);
}

TEST_F(LiveAppModel, TellsOfADamagedFileOfSettingsWhereTheOldOneLies)
{
    tree.text("config/preferences.json", R"({"zolva.whitelist": ["~/a")");
    const auto model = build();
    ASSERT_EQ(model->toasts().toasts().size(), 1U);
    EXPECT_TRUE(model->toasts().toasts()[0].text.endsWith(
        "The old file is ~/config/preferences.json.damaged."));
    EXPECT_TRUE(std::filesystem::exists(tree.path("config/preferences.json.damaged")));
}

TEST_F(LiveAppModel, ShowsNoIntroWhereEveryFolderCanBeListed)
{
    for (const diskAccess::Location& location : diskAccess::probeLocations()) {
        std::filesystem::create_directories(location.path);
    }
    EXPECT_TRUE(settled(liveDependencies(clock, store).reads.blockedLocations()).empty());
}

TEST_F(LiveAppModel, BeginningAndEndingLeavesNothingOnTheDiskButATrashToWatch)
{
    build().reset();
    std::set<std::string> left;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(tree.root())) {
        left.insert(std::filesystem::relative(entry.path(), tree.root()).native());
    }
    EXPECT_EQ(left, (std::set<std::string>{".local", ".local/share", ".local/share/Trash",
                                           ".local/share/Trash/files", ".local/share/Trash/info"}));
}

TEST_F(LiveAppModel, WithoutItsMetersBeginningAndEndingLeavesNothingOnTheDisk)
{
    build({.meters = false}).reset();
    EXPECT_TRUE(std::filesystem::is_empty(tree.root()));
}

TEST_F(LiveAppModel, WithATrashThatCannotBeOpenedTheStartGoesOnAndTheMeterIsReadOnlyWhenAsked)
{
    tree.file(".local/share/Trash/files");
    const auto model = build();
    const TrashMeter& meter = model->removal().trash();
    EXPECT_TRUE(meter.trashUnreadable());
    EXPECT_TRUE(model->settings().prefsLoaded());

    ASSERT_TRUE(std::filesystem::remove(tree.path(".local/share/Trash/files")));
    tree.file(".local/share/Trash/files/old", 100);
    pumpOnce();
    EXPECT_TRUE(meter.trashUnreadable());
    model->scanForMenu();
    EXPECT_FALSE(meter.trashUnreadable());
    EXPECT_EQ(meter.trashCount(), 1);
}

TEST_F(LiveAppModel, MayEndWhileEveryScanStillRuns)
{
    for (int i = 0; i < 40; ++i) {
        tree.file("Library/Caches/org.example/blob" + std::to_string(i), 100);
        tree.file("Downloads/tool" + std::to_string(i) + ".dmg", 100);
    }
    for (int round = 0; round < 20; ++round) {
        auto model = build();
        model->scanAll();
        model->rescanForMenu();
        unawaited(model->live().analyze(std::string()));
        if (round % 2 == 0) {
            pumpOnce();
        }
        model.reset();
    }
    // What is still under way hands its result back to nobody.
    const auto last = build();
    settled(last->scanClean(true));
    EXPECT_TRUE(last->lists().liveCats().has_value());
}

} // namespace zolva::test
