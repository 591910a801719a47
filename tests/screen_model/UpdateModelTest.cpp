#include "screens/model/UpdateModel.h"
#include "screen_model/ScreenBench.h"
#include "screens/model/ScreenModel.h"

namespace zolva::test {

namespace {

class UpdateScreen : public ScreenBench
{
protected:
    AppModel& configured()
    {
        bundle = bundleWithFeed(tree.root());
        return ready();
    }
    static UpdateCheckResult offer()
    {
        return UpdateAvailable{{7, "1.2", "https://example.org/get", std::nullopt}};
    }
};

} // namespace

TEST_F(UpdateScreen, TellsTheVersionThatRuns)
{
    const UpdateModel updates(configured());
    EXPECT_EQ(updates.title(), QStringLiteral("Zolva 0.1.0"));
    EXPECT_EQ(updates.versionText(), QStringLiteral("0.1.0 (5)"));
    EXPECT_EQ(updates.menuTitle(), QStringLiteral("Check for Updates…"));
}

TEST_F(UpdateScreen, OfABuildWithoutAFeedHasAMenuEntryThatIsOff)
{
    bundle = AppBundle();
    const UpdateModel updates(ready());
    EXPECT_TRUE(updates.menuShown());
    EXPECT_FALSE(updates.canCheck());
    EXPECT_FALSE(updates.hasAction());
}

TEST_F(UpdateScreen, OfABuildThatLeavesThemToOthersHasNoMenuEntryAndNoButton)
{
    bundle = bundleWithFeed(tree.root());
    bundle->checksForUpdates = false;
    UpdateModel updates(ready());
    EXPECT_FALSE(updates.menuShown());
    EXPECT_FALSE(updates.canCheck());
    EXPECT_FALSE(updates.hasAction());
    updates.check();
    updates.act();
    EXPECT_EQ(updateChecks.count(), 0U);
}

TEST_F(UpdateScreen, TheMenuEntryIsOffWhileACheckRuns)
{
    UpdateModel updates(configured());
    const Told told(&updates, &UpdateModel::changed);
    EXPECT_TRUE(updates.canCheck());
    updates.check();
    EXPECT_EQ(updateChecks.count(), 1U);
    EXPECT_FALSE(updates.canCheck());
    EXPECT_EQ(updates.message(), QStringLiteral("Checking for updates…"));
    EXPECT_EQ(updates.actionTitle(), QStringLiteral("Checking…"));
    EXPECT_EQ(told.count(), 1);
    updateChecks.answer(0, UpToDate());
    EXPECT_TRUE(updates.canCheck());
    EXPECT_EQ(told.count(), 2);
}

TEST_F(UpdateScreen, TheButtonChecksUntilSomethingIsOfferedAndThenOpensIt)
{
    UpdateModel updates(configured());
    EXPECT_EQ(updates.actionTitle(), QStringLiteral("Check now"));
    updates.act();
    updateChecks.answer(0, offer());
    EXPECT_TRUE(updates.actionIsOffer());
    EXPECT_EQ(updates.actionTitle(), QStringLiteral("Download"));
    EXPECT_EQ(updates.message(), QStringLiteral("Zolva 1.2 is available."));
    updates.act();
    EXPECT_EQ(steps.back(), "page https://example.org/get");
    EXPECT_EQ(updateChecks.count(), 1U);
}

TEST_F(UpdateScreen, TheMenuEntryChecksAgainWhileSomethingIsOffered)
{
    UpdateModel updates(configured());
    updates.check();
    updateChecks.answer(0, offer());
    EXPECT_TRUE(updates.canCheck());
    updates.check();
    EXPECT_EQ(updates.message(), QStringLiteral("Checking for updates…"));
    EXPECT_EQ(updates.actionTitle(), QStringLiteral("Download"));
    EXPECT_TRUE(updates.canAct());
    updateChecks.answer(1, UpdateCheckFailed{"The update information was unreadable."});
    EXPECT_EQ(updates.message(), QStringLiteral("The update information was unreadable."));
}

TEST_F(UpdateScreen, IsTheOneOfTheScreens)
{
    AppModel& m = configured();
    ScreenModel screens(m, clock);
    screens.updates()->check();
    EXPECT_TRUE(m.updates().isChecking());
}

} // namespace zolva::test
