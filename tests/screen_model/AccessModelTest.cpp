#include "ScreenBench.h"

#include "screens/model/AccessMessages.h"
#include "screens/model/AccessModel.h"

#include <algorithm>

namespace zolva::test {

namespace {

class TheAccessViews : public ScreenBench
{
protected:
    /// Answers the probe of a first start.
    AppModel& introduced(const Texts& labels)
    {
        AppModel& m = start();
        probes.answer(0, blocked(labels));
        return m;
    }
    [[nodiscard]] std::ptrdiff_t settingsOpened() const
    {
        return std::count(steps.begin(), steps.end(), "access settings opened");
    }
};

TEST_F(TheAccessViews, JoinLabelsWithNoneLeftOut)
{
    EXPECT_EQ(joinedLabels({}), "");
    EXPECT_EQ(joinedLabels(blocked({"Mail"})), "Mail");
    EXPECT_EQ(joinedLabels(blocked({"Mail", "Safari"})), "Mail and Safari");
    EXPECT_EQ(joinedLabels(blocked({"Mail", "Messages", "Safari"})), "Mail, Messages and Safari");
    EXPECT_EQ(joinedLabels(blocked({"a", "b", "c", "d", "e"})), "a, b, c, d and e");
}

TEST_F(TheAccessViews, IntroSpeaksOfOneLocationAsIt)
{
    const AccessModel access(introduced({"Mail"}));
    EXPECT_TRUE(access.introShown());
    EXPECT_EQ(
        access.introText(),
        "macOS is withholding Mail. Zolva will still work, but anything in it is missing from "
        "every total it shows you.");
    EXPECT_EQ(access.introSpoken(), "Zolva cannot see everything yet. macOS is withholding Mail.");
}

TEST_F(TheAccessViews, IntroSpeaksOfMoreLocationsAsThem)
{
    const AccessModel access(introduced({"Mail", "Safari"}));
    EXPECT_EQ(
        access.introText(),
        "macOS is withholding Mail and Safari. Zolva will still work, but anything in them is "
        "missing from every total it shows you.");
}

TEST_F(TheAccessViews, IntroOfAnEmptyListSpeaksOfSomeLocations)
{
    AppModel& m = introduced({"Mail"});
    AccessModel access(m);
    const Told told(&access, &AccessModel::changed);
    blind(m, {});
    EXPECT_TRUE(access.introShown());
    EXPECT_EQ(access.introText(),
              "macOS is withholding some locations. Zolva will still work, but anything in them is "
              "missing from every total it shows you.");
    EXPECT_EQ(access.introSpoken(),
              "Zolva cannot see everything yet. macOS is withholding some locations.");
    EXPECT_FALSE(access.noticeShown());
    EXPECT_EQ(told.count(), 1);
}

TEST_F(TheAccessViews, NoticeNamesTheLocations)
{
    AppModel& m = ready();
    AccessModel access(m);
    EXPECT_FALSE(access.noticeShown());
    blind(m, {"Mail", "Messages", "Safari"});
    EXPECT_TRUE(access.noticeShown());
    EXPECT_FALSE(access.introShown());
    EXPECT_EQ(access.noticeTitle(), "Mail, Messages and Safari not searched");
    EXPECT_EQ(access.noticeSpoken(),
              "Mail, Messages and Safari could not be searched. macOS is blocking access, so "
              "anything there is missing from these totals.");
}

TEST_F(TheAccessViews, ADismissedIntroLeavesTheNoticeAndOpensTheSettingsWhereAsked)
{
    AppModel& m = introduced({"Mail"});
    AccessModel access(m);
    const Told told(&access, &AccessModel::introShownChanged);
    access.dismissIntro(false);
    EXPECT_FALSE(access.introShown());
    EXPECT_TRUE(access.noticeShown());
    EXPECT_EQ(told.count(), 1);
    EXPECT_EQ(settingsOpened(), 0);
    EXPECT_TRUE(m.settings().prefs().seenAccessIntro());
    access.dismissIntro(true);
    EXPECT_EQ(settingsOpened(), 1);
}

TEST_F(TheAccessViews, TheNoticesButtonOpensTheSettingsAndNothingElse)
{
    AppModel& m = introduced({"Mail"});
    AccessModel access(m);
    access.openSettings();
    EXPECT_EQ(settingsOpened(), 1);
    EXPECT_TRUE(access.introShown());
    EXPECT_FALSE(m.settings().prefs().seenAccessIntro());
}

} // namespace

} // namespace zolva::test
