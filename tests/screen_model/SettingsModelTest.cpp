#include "ScreenBench.h"

#include "screens/model/SettingsModel.h"

#include <chrono>

namespace zolva::test {

namespace {

using namespace std::chrono_literals;

class TheSettingsScreen : public ScreenBench
{
protected:
    template <typename T>
    T stored(const std::string& key) const
    {
        return std::get<T>(store.values.at("zolva." + key));
    }
    static std::string error(const SettingsModel& page) { return page.draftError().toStdString(); }
    static Texts listed(SettingsModel& page)
    {
        return column(*page.exclusions(), ExclusionRows::PathRole);
    }
    static void type(SettingsModel& page, const std::string& text)
    {
        page.setDraft(QString::fromStdString(text));
    }
};

// Switches and choices

TEST_F(TheSettingsScreen, OffersThreeThemesAndStoresTheChosenOne)
{
    AppModel& m = ready();
    SettingsModel page(m);
    const Told told(&page, &SettingsModel::themeChanged);
    EXPECT_EQ(page.themes(), (QStringList{"System", "Light", "Dark"}));
    EXPECT_EQ(page.theme(), 0);
    page.setTheme(2);
    EXPECT_EQ(page.theme(), 2);
    EXPECT_EQ(stored<std::string>("themeMode"), "dark");
    EXPECT_FALSE(m.isLightTheme());
    page.setTheme(1);
    EXPECT_TRUE(m.isLightTheme());
    EXPECT_EQ(told.count(), 2);
}

TEST_F(TheSettingsScreen, AThemeThatIsNotOfferedIsNotChosen)
{
    SettingsModel page(ready());
    page.setTheme(1);
    page.setTheme(3);
    page.setTheme(-1);
    EXPECT_EQ(page.theme(), 1);
}

TEST_F(TheSettingsScreen, TheSwitchOfTheTrashChangesItsWordsAndIsStored)
{
    AppModel& m = ready();
    SettingsModel page(m);
    const Told told(&page, &SettingsModel::keepInTrashChanged);
    EXPECT_TRUE(page.keepInTrash());
    EXPECT_TRUE(page.keepInTrashNote().contains("put things in the Trash"));
    EXPECT_EQ(page.keepInTrashSpoken(), "On, removals are recoverable");
    page.setKeepInTrash(false);
    EXPECT_TRUE(page.keepInTrashNote().contains("for good"));
    EXPECT_EQ(page.keepInTrashSpoken(), "Off, removals are permanent");
    EXPECT_EQ(stored<bool>("keepInTrash"), false);
    EXPECT_FALSE(m.settings().keepInTrash());
    EXPECT_EQ(told.count(), 1);
}

TEST_F(TheSettingsScreen, TheAskingForAFingerIsStored)
{
    SettingsModel page(ready());
    EXPECT_TRUE(page.touchid());
    page.setTouchid(false);
    EXPECT_FALSE(page.touchid());
    EXPECT_EQ(stored<bool>("requireTouchID"), false);
}

// Sliders

TEST_F(TheSettingsScreen, OneSecondIsSingularAndTwoAreNot)
{
    SettingsModel page(ready());
    EXPECT_EQ(page.interval(), 1);
    EXPECT_EQ(page.intervalText(), "1 second");
    page.setInterval(2);
    EXPECT_EQ(page.intervalText(), "2 seconds");
    EXPECT_EQ(stored<std::int64_t>("pollInterval"), 2);
}

TEST_F(TheSettingsScreen, ANewIntervalRestartsAStreamThatRuns)
{
    AppModel& m = ready();
    SettingsModel page(m);
    m.live().retainStatus();
    page.setInterval(5);
    EXPECT_EQ(script.intervals, (std::vector<std::chrono::seconds>{1s, 5s}));
}

TEST_F(TheSettingsScreen, TheThresholdIsAPercentage)
{
    SettingsModel page(ready());
    EXPECT_EQ(page.thresholdText(), "80%");
    page.setThreshold(99);
    EXPECT_EQ(page.threshold(), 99);
    EXPECT_EQ(page.thresholdText(), "99%");
    EXPECT_EQ(stored<std::int64_t>("diskThreshold"), 99);
}

// What is never touched

TEST_F(TheSettingsScreen, AnEmptyDraftCannotBeAddedAndIsNotComplainedAbout)
{
    AppModel& m = ready();
    SettingsModel page(m);
    EXPECT_FALSE(page.canAdd());
    EXPECT_EQ(error(page), "");
    page.add();
    EXPECT_EQ(m.exclusions().whitelist(), Texts{});
}

TEST_F(TheSettingsScreen, TheDraftIsCheckedAtEachKeystroke)
{
    AppModel& m = ready();
    exclude(m, "/keep");
    SettingsModel page(m);
    const Told told(&page, &SettingsModel::draftChecked);
    type(page, "k");
    EXPECT_EQ(error(page), "Enter a full path, starting with / or ~.");
    EXPECT_FALSE(page.canAdd());
    type(page, "/keep/below");
    EXPECT_EQ(error(page), "Already covered by an existing exclusion.");
    type(page, "/");
    EXPECT_EQ(error(page), "That would exclude everything, switching Zolva off.");
    type(page, "/other");
    EXPECT_EQ(error(page), "");
    EXPECT_TRUE(page.canAdd());
    EXPECT_EQ(told.count(), 4);
}

TEST_F(TheSettingsScreen, TheDraftIsCheckedAnewWhenTheListChanges)
{
    AppModel& m = ready();
    exclude(m, "/keep");
    SettingsModel page(m);
    type(page, "/keep/below");
    const Told told(&page, &SettingsModel::draftChecked);
    page.remove(0);
    EXPECT_EQ(error(page), "");
    EXPECT_EQ(told.count(), 1);
}

TEST_F(TheSettingsScreen, AddingTakesTheDraftIntoTheListAndEmptiesTheField)
{
    AppModel& m = ready();
    SettingsModel page(m);
    const Told told(&page, &SettingsModel::draftChanged);
    type(page, "/one");
    page.add();
    EXPECT_EQ(listed(page), Texts{"/one"});
    EXPECT_EQ(page.draft(), "");
    EXPECT_EQ(told.count(), 2);
    EXPECT_EQ(stored<Texts>("whitelist"), Texts{"/one"});
}

TEST_F(TheSettingsScreen, AWrongDraftStaysWhereItIs)
{
    SettingsModel page(ready());
    type(page, "wrong");
    page.add();
    EXPECT_EQ(page.draft(), "wrong");
    EXPECT_EQ(listed(page), Texts{});
}

TEST_F(TheSettingsScreen, ADraftIsKeptWhileOtherScreensAreShown)
{
    AppModel& m = ready();
    {
        SettingsModel page(m);
        type(page, "/half");
    }
    EXPECT_EQ(SettingsModel(m).draft(), "/half");
}

TEST_F(TheSettingsScreen, RowsComeAtTheEndAndGoWhereTheyAre)
{
    AppModel& m = ready();
    SettingsModel page(m);
    ToldRows told(page.exclusions());
    int inserted = 0;
    int removed = 0;
    QObject::connect(
        page.exclusions(), &QAbstractItemModel::rowsInserted, &page,
        [&inserted](const QModelIndex&, int first, int last) { inserted += 10 * first + last; });
    QObject::connect(
        page.exclusions(), &QAbstractItemModel::rowsRemoved, &page,
        [&removed](const QModelIndex&, int first, int last) { removed += 10 * first + last; });
    exclude(m, "/a");
    exclude(m, "/b");
    exclude(m, "/c");
    EXPECT_EQ(inserted, 0 + 11 + 22);
    page.remove(1);
    EXPECT_EQ(removed, 11);
    EXPECT_EQ(listed(page), (Texts{"/a", "/c"}));
    EXPECT_EQ(m.exclusions().whitelist(), (Texts{"/a", "/c"}));
    EXPECT_EQ(told.told, (Texts{"new 0", "new 1", "new 2", "gone 1"}));
}

TEST_F(TheSettingsScreen, RowsOfAnotherOrderAreAnotherList)
{
    AppModel& m = ready();
    SettingsModel page(m);
    m.exclusions().setWhitelist({"/a", "/b", "/c"});
    ToldRows told(page.exclusions());
    m.exclusions().setWhitelist({"/c", "/b", "/d", "/e"});
    EXPECT_EQ(told.told, (Texts{"gone 0", "reset"}));
    EXPECT_EQ(listed(page), (Texts{"/c", "/b", "/d", "/e"}));
    m.exclusions().setWhitelist({});
    EXPECT_EQ(listed(page), Texts{});
}

TEST_F(TheSettingsScreen, TwoEqualRowsGoTogether)
{
    AppModel& m = ready();
    SettingsModel page(m);
    m.exclusions().setWhitelist({"/a", "/b", "/a"});
    const ToldRows told(page.exclusions());
    page.remove(2);
    EXPECT_EQ(listed(page), Texts{"/b"});
    m.exclusions().setWhitelist({"/b", "/b"});
    m.exclusions().setWhitelist({"/b"});
    EXPECT_EQ(listed(page), Texts{"/b"});
}

TEST_F(TheSettingsScreen, ARowThatIsNotThereIsNotRemoved)
{
    AppModel& m = ready();
    exclude(m, "/a");
    SettingsModel page(m);
    page.remove(1);
    page.remove(-1);
    EXPECT_EQ(listed(page), Texts{"/a"});
}

TEST_F(TheSettingsScreen, APathThatIsNoTextIsShownAndRemovedByItsBytes)
{
    AppModel& m = ready();
    m.exclusions().setWhitelist({"/a\xff", "/a\xfe"});
    SettingsModel page(m);
    EXPECT_EQ(listed(page), (Texts{"/a\xef\xbf\xbd", "/a\xef\xbf\xbd"}));
    page.remove(0);
    EXPECT_EQ(m.exclusions().whitelist(), Texts{"/a\xfe"});
}

TEST_F(TheSettingsScreen, ShowsAnyExclusionOnOneLineAndInItsOwnDirection)
{
    AppModel& m = ready();
    m.exclusions().setWhitelist({"/a\n/b\u202Ec"});
    SettingsModel page(m);
    EXPECT_EQ(listed(page), Texts{"/a\uFFFD/b\uFFFDc"});
    page.remove(0);
    EXPECT_EQ(m.exclusions().whitelist(), Texts{});
}

// The outside tool

TEST_F(TheSettingsScreen, TheSourceAndTheLicenseOpenOutside)
{
    SettingsModel page(ready());
    EXPECT_EQ(page.toolLine(), "mo an unknown version · Bundled (modified) · GPL-3.0");
    steps.clear();
    page.viewSource();
    page.openLicense();
    ASSERT_EQ(steps.size(), 2U);
    EXPECT_EQ(steps.front().rfind("page https://", 0), 0U);
    EXPECT_EQ(steps.front().find("/tree/"), std::string::npos);
    EXPECT_EQ(steps.back(), "license opened");
}

} // namespace

} // namespace zolva::test
