#include "ScreenBench.h"

#include "screens/model/ScreenModel.h"

namespace zolva::test {

namespace {

using TheScreens = ScreenBench;

TEST_F(TheScreens, BeginAtHome)
{
    EXPECT_EQ(ScreenModel(ready(), clock).screen(), "home");
}

TEST_F(TheScreens, GoWhereTheyAreSentAlsoWhereNothingIs)
{
    AppModel& m = ready();
    ScreenModel screens(m, clock);
    const Told told(&screens, &ScreenModel::screenChanged);
    screens.go("clean");
    EXPECT_EQ(m.screen(), "clean");
    screens.go("nowhere");
    EXPECT_EQ(screens.screen(), "nowhere");
    EXPECT_EQ(told.count(), 2);
}

TEST_F(TheScreens, GoingSomewhereClosesTheSheetWithoutRunningAnything)
{
    AppModel& m = ready();
    ScreenModel screens(m, clock);
    disk->put("/a", 1000);
    scanned(m, {cache("a", {path("/a", 1000)})});
    m.lists().setClean({"a"}, true);
    screens.clean()->remove();
    ASSERT_TRUE(screens.confirm()->isOpen());
    screens.go("purge");
    EXPECT_FALSE(screens.confirm()->isOpen());
    pumpOnce();
    EXPECT_TRUE(disk->changes().empty());
}

TEST_F(TheScreens, AreLightOrDarkAsTheModelSays)
{
    AppModel& m = ready();
    ScreenModel screens(m, clock);
    const Told told(&screens, &ScreenModel::lightThemeChanged);
    m.settings().setThemeMode(ThemeMode::Dark);
    EXPECT_FALSE(screens.lightTheme());
    m.settings().setThemeMode(ThemeMode::Light);
    EXPECT_TRUE(screens.lightTheme());
    EXPECT_EQ(told.count(), 2);
}

TEST_F(TheScreens, RunAndDismissToasts)
{
    AppModel& m = ready();
    ScreenModel screens(m, clock);
    int runs = 0;
    const QUuid id = m.toasts().addToast(BannerKind::Info, "Done", "Again", [&runs] { ++runs; });
    EXPECT_EQ(screens.toasts()->rowCount(), 1);
    screens.runToast(id);
    EXPECT_EQ(runs, 1);
    EXPECT_EQ(screens.toasts()->rowCount(), 1);
    screens.dismissToast(id);
    EXPECT_EQ(screens.toasts()->rowCount(), 0);
}

} // namespace

} // namespace zolva::test
