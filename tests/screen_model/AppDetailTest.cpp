#include "ScreenBench.h"

#include "screens/model/AppDetail.h"

namespace zolva::test {

namespace {

constexpr auto scanningText = "Scanning this app’s files…";

class TheAppDetail : public ScreenBench
{
protected:
    static ResidueRow left(const std::string& place, std::int64_t files, std::int64_t bytes)
    {
        ResidueRow one = row("~/Library/" + place + "/one");
        one.loc = place;
        one.n = files;
        one.b = bytes;
        return one;
    }
    static Texts places(const AppDetail& detail)
    {
        Texts all;
        for (const LeftoverLine& line : detail.lines()) {
            all.push_back(line.place.toStdString());
        }
        return all;
    }
};

TEST_F(TheAppDetail, ShowsNothingWhileNoApplicationIsInFocus)
{
    AppModel& m = ready();
    AppDetail detail(m);
    const Told told(&detail, &AppDetail::changed);
    EXPECT_FALSE(detail.present());
    EXPECT_EQ(detail.name(), "");
    EXPECT_EQ(detail.summary(), "");
    EXPECT_FALSE(detail.isEmpty());
    listed(m, {appOf("one", 1000)});
    EXPECT_TRUE(detail.present());
    EXPECT_GT(told.count(), 0);
    m.live().clearFocus();
    EXPECT_FALSE(detail.present());
}

TEST_F(TheAppDetail, NamesTheApplicationWithVersionAndDay)
{
    AppModel& m = ready();
    UninstallApp one = appOf("one", 1000);
    one.version = "2.1";
    listed(m, {one});
    const AppDetail detail(m);
    EXPECT_EQ(detail.name(), "one");
    EXPECT_EQ(detail.meta(), "Version 2.1");
}

TEST_F(TheAppDetail, SaysThatItIsLookingWhileItIs)
{
    AppModel& m = ready();
    const AppDetail detail(m);
    listed(m, {appOf("one", 1000)});
    EXPECT_EQ(detail.summary(), scanningText);
    EXPECT_TRUE(detail.lines().isEmpty());
    EXPECT_FALSE(detail.isEmpty());
}

TEST_F(TheAppDetail, ListsWhatIsFoundInTheOrderOfTheScan)
{
    AppModel& m = ready();
    const AppDetail detail(m);
    listed(m, {appOf("one", 1000)});
    leftBehind({left("Caches", 7, 9000), left("Application bundle", 2, 1000)});
    EXPECT_EQ(places(detail), (Texts{"Caches", "Application bundle"}));
    EXPECT_EQ(detail.summary(), "9 files in 2 locations · 10 KB including leftovers");
    EXPECT_FALSE(detail.isEmpty());
}

TEST_F(TheAppDetail, SaysSoWhereNothingIsFound)
{
    AppModel& m = ready();
    const AppDetail detail(m);
    listed(m, {appOf("one", 5'000'000)});
    leftBehind({});
    EXPECT_EQ(detail.summary(), "0 files in 0 locations · 5.0 MB including leftovers");
    EXPECT_TRUE(detail.isEmpty());
}

TEST_F(TheAppDetail, FollowsTheFocusAndForgetsTheOthersLeftovers)
{
    AppModel& m = ready();
    const AppDetail detail(m);
    listed(m, {appOf("one", 1000), appOf("two", 2000)});
    leftBehind({left("Caches", 7, 9000)});
    unawaited(m.live().focusApp(appOf("two", 2000)));
    EXPECT_EQ(detail.name(), "two");
    EXPECT_EQ(detail.summary(), scanningText);
    EXPECT_TRUE(detail.lines().isEmpty());
}

TEST_F(TheAppDetail, DropsWhatArrivesForAnEarlierFocus)
{
    AppModel& m = ready();
    const AppDetail detail(m);
    listed(m, {appOf("one", 1000), appOf("two", 2000)});
    unawaited(m.live().focusApp(appOf("two", 2000)));
    held.residue.answer(0, {left("Caches", 7, 9000)});
    EXPECT_EQ(detail.summary(), scanningText);
}

TEST_F(TheAppDetail, ShowsNothingOfAnApplicationThatHasLeftTheList)
{
    AppModel& m = ready();
    const AppDetail detail(m);
    listed(m, {appOf("one", 1000)});
    m.live().storeApps({appOf("two", 1000)});
    EXPECT_FALSE(detail.present());
    m.live().forgetApps();
    EXPECT_FALSE(detail.present());
}

TEST_F(TheAppDetail, IsThereForARowThatTheSearchHides)
{
    AppModel& m = ready();
    const AppDetail detail(m);
    listed(m, {appOf("one", 1000)});
    m.setQuery("uninstall", "two");
    EXPECT_EQ(detail.name(), "one");
}

} // namespace

} // namespace zolva::test
