#include "ScreenBench.h"

#include "screens/model/InstallerModel.h"

namespace zolva::test {

namespace {

class TheInstallersScreen : public ScreenBench
{
protected:
    static PickSet picked(AppModel& m) { return m.lists().instPicked(); }
    static std::string text(const InstallerModel& screen, int row, int role)
    {
        return textAt(*screen.rows(), row, role);
    }
    static InstallerItem found(const std::string& where, std::int64_t bytes, std::int64_t age = 30)
    {
        InstallerItem one;
        one.p = where;
        one.name = where.substr(where.rfind('/') + 1);
        one.src = "Downloads";
        one.b = bytes;
        one.age = age;
        return one;
    }
    /// In the order "/d", "/c", "/b", "/a".
    AppModel& withFour()
    {
        AppModel& m = ready();
        installed(m, {found("/a", 1000, 9), found("/b", 2000, 8), found("/c", 3000, 7),
                      found("/d", 4000, 99)});
        return m;
    }
};

TEST_F(TheInstallersScreen, FollowsTheScan)
{
    AppModel& m = ready();
    InstallerModel screen(m);
    const Told told(&screen, &InstallerModel::pageChanged);
    EXPECT_EQ(screen.page(), InstallerModel::Welcome);
    screen.scan();
    EXPECT_EQ(screen.page(), InstallerModel::Scanning);
    EXPECT_FALSE(screen.isEmpty());
    installers.answer(0, {});
    EXPECT_EQ(screen.page(), InstallerModel::List);
    EXPECT_TRUE(screen.isEmpty());
    EXPECT_EQ(told.count(), 2);
}

TEST_F(TheInstallersScreen, SaysWhatItLists)
{
    EXPECT_EQ(InstallerModel(ready()).subtitle(),
              "Disk images and packages you already installed from. You can download them again if "
              "you ever need to.");
}

TEST_F(TheInstallersScreen, OffersThreeOrders)
{
    AppModel& m = withFour();
    InstallerModel screen(m);
    EXPECT_EQ(screen.sort()->names(), (QStringList{"Largest first", "Oldest first", "Name"}));
    EXPECT_EQ(screen.rows()->order(), (Texts{"/d", "/c", "/b", "/a"}));
    screen.sort()->choose(1);
    EXPECT_EQ(screen.rows()->order(), (Texts{"/d", "/a", "/b", "/c"}));
    screen.sort()->choose(2);
    EXPECT_EQ(screen.rows()->order(), (Texts{"/a", "/b", "/c", "/d"}));
}

TEST_F(TheInstallersScreen, ShowsNamePlaceAgeAndSize)
{
    AppModel& m = ready();
    installed(m, {found("~/Downloads/Lumen.dmg", 2'000'000, 1)});
    const InstallerModel screen(m);
    EXPECT_EQ(text(screen, 0, ListRows::RowIdRole), "~/Downloads/Lumen.dmg");
    EXPECT_EQ(text(screen, 0, ListRows::NameRole), "Lumen.dmg");
    EXPECT_EQ(text(screen, 0, ListRows::DescRole), "Downloads · 1 days old");
    EXPECT_EQ(text(screen, 0, ListRows::TrailingRole), "2.0 MB");
    EXPECT_EQ(text(screen, 0, ListRows::ValueRole), "Not selected");
    m.lists().setInstallers({"~/Downloads/Lumen.dmg"}, true);
    EXPECT_EQ(text(screen, 0, ListRows::ValueRole), "Selected, 2.0 MB will be deleted");
}

TEST_F(TheInstallersScreen, WithNothingTickedTheBarSaysSo)
{
    AppModel& m = withFour();
    const InstallerModel screen(m);
    EXPECT_EQ(screen.countText(), "0 files selected · 0 bytes");
    EXPECT_EQ(screen.note(), "");
    EXPECT_EQ(screen.buttonTitle(), "Remove 0 bytes");
    EXPECT_FALSE(screen.canRemove());
}

TEST_F(TheInstallersScreen, CountsWhatIsTicked)
{
    AppModel& m = withFour();
    InstallerModel screen(m);
    screen.pick("/a", false);
    EXPECT_EQ(screen.countText(), "1 file selected · 1 KB");
    screen.pick("/d", false);
    EXPECT_EQ(screen.countText(), "2 files selected · 5 KB");
    EXPECT_EQ(screen.buttonTitle(), "Remove 5 KB");
    EXPECT_TRUE(screen.canRemove());
}

TEST_F(TheInstallersScreen, AnExcludedFileCanBeTickedAsItsRunLeavesItOut)
{
    AppModel& m = withFour();
    InstallerModel screen(m);
    exclude(m, "/a");
    screen.pick("/a", false);
    EXPECT_EQ(picked(m), PickSet{"/a"});
    EXPECT_EQ(screen.countText(), "1 file selected · 1 KB");
}

TEST_F(TheInstallersScreen, TakesAllOrNone)
{
    AppModel& m = withFour();
    InstallerModel screen(m);
    screen.toggleAll();
    EXPECT_EQ(screen.selectWord(), "Deselect all");
    EXPECT_EQ(picked(m).size(), 4U);
    screen.toggleAll();
    EXPECT_EQ(screen.selectWord(), "Select all");
    EXPECT_TRUE(picked(m).empty());
}

TEST_F(TheInstallersScreen, ShiftWithoutAnAnchorFlipsOneRow)
{
    AppModel& m = withFour();
    InstallerModel screen(m);
    screen.pick("/b", true);
    EXPECT_EQ(picked(m), PickSet{"/b"});
    EXPECT_EQ(m.lists().pickAnchor().at("installer"), "/b");
}

TEST_F(TheInstallersScreen, ShiftTicksFromTheAnchorAndUnticksNothing)
{
    AppModel& m = withFour();
    InstallerModel screen(m);
    screen.pick("/c", false);
    screen.pick("/d", false);
    screen.pick("/b", true);
    EXPECT_EQ(picked(m), (PickSet{"/b", "/c", "/d"}));
}

TEST_F(TheInstallersScreen, AsksBeforeItRemovesAndOnlyWithSomethingTicked)
{
    AppModel& m = withFour();
    InstallerModel screen(m);
    screen.remove();
    EXPECT_EQ(m.sheet(), std::nullopt);
    screen.pick("/a", false);
    screen.remove();
    EXPECT_EQ(m.sheet(), "installer");
    EXPECT_TRUE(disk->changes().empty());
}

TEST_F(TheInstallersScreen, RemovesOneWithoutASheetAndItsRowLeavesAlone)
{
    AppModel& m = withFour();
    disk->put("/b", 2000);
    InstallerModel screen(m);
    screen.pick("/a", false);
    ToldRows told(screen.rows());
    screen.removeOne("/b");
    EXPECT_EQ(m.sheet(), std::nullopt);
    EXPECT_EQ(screen.rows()->order(), (Texts{"/d", "/c", "/a"}));
    EXPECT_EQ(told.told, (Texts{"gone 2", "0-2"}));
    EXPECT_EQ(picked(m), PickSet{"/a"});
    pumpUntil([&m] { return !m.removal().runs().bulk(); });
    ASSERT_EQ(disk->changes().size(), 1U);
    EXPECT_NE(disk->changes().front().find("/b"), std::string::npos);
}

TEST_F(TheInstallersScreen, RemovesNothingThatIsNoLongerListed)
{
    AppModel& m = withFour();
    InstallerModel screen(m);
    screen.removeOne("/nowhere");
    EXPECT_EQ(screen.rows()->size(), 4U);
    EXPECT_TRUE(disk->changes().empty());
}

TEST_F(TheInstallersScreen, ARowWhosePathIsNoTextIsTickedAndRemovedLikeAnyOther)
{
    const std::string where = "/Downloads/a\xff\xc3\xa9.dmg";
    AppModel& m = ready();
    installed(m, {found(where, 1000)});
    InstallerModel screen(m);
    const QString id = at(*screen.rows(), 0, ListRows::RowIdRole).toString();
    screen.pick(id, false);
    EXPECT_EQ(picked(m), PickSet{where});
    screen.reveal(id);
    EXPECT_EQ(steps.back(), "revealed " + where);
    screen.removeOne(id);
    EXPECT_EQ(screen.rows()->size(), 0U);
}

TEST_F(TheInstallersScreen, ShowsAFileInItsFolder)
{
    AppModel& m = withFour();
    InstallerModel screen(m);
    screen.reveal("/b");
    EXPECT_EQ(steps.back(), "revealed /b");
    EXPECT_TRUE(disk->changes().empty());
}

TEST_F(TheInstallersScreen, ARescanForgetsWhatWasTicked)
{
    AppModel& m = withFour();
    InstallerModel screen(m);
    screen.pick("/a", false);
    screen.rescan();
    EXPECT_EQ(screen.page(), InstallerModel::Scanning);
    installers.answer(installers.count() - 1, {found("/a", 1000)});
    EXPECT_EQ(screen.countText(), "0 files selected · 0 bytes");
    EXPECT_FALSE(flagAt(*screen.rows(), 0, ListRows::TickedRole));
}

TEST_F(TheInstallersScreen, ShowsAnyNameOnOneLineAndInItsOwnDirection)
{
    AppModel& m = ready();
    installed(m, {found("/Downloads/a\nb\u202Egpj.dmg", 1000)});
    const InstallerModel screen(m);
    EXPECT_EQ(textAt(*screen.rows(), 0, ListRows::NameRole), "a\uFFFDb\uFFFDgpj.dmg");
}

} // namespace

} // namespace zolva::test
