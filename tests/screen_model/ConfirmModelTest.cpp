#include "ScreenBench.h"

#include "screens/model/ConfirmModel.h"

namespace zolva::test {

namespace {

constexpr auto eraseBody =
    "Removing 2 paths across 1 category. They go to the Trash, so you can put them back. Your Mac "
    "rebuilds these caches on its own. Anything already in your Trash is left alone.";

class TheConfirmation : public ScreenBench
{
protected:
    AppModel& ticked()
    {
        AppModel& m = ready();
        disk->put("/a", 1000);
        disk->put("/b", 2000);
        scanned(m, {cache("a", {path("/a", 1000), path("/b", 2000)})});
        m.lists().setClean({"a"}, true);
        return m;
    }
};

TEST_F(TheConfirmation, IsClosedAndWordlessAtFirst)
{
    const ConfirmModel confirm(ready());
    EXPECT_FALSE(confirm.isOpen());
    EXPECT_EQ(confirm.title(), "");
    EXPECT_EQ(confirm.symbol(), "sparkles");
}

TEST_F(TheConfirmation, OfCleaningSpeaksOfTheTickedPaths)
{
    AppModel& m = ticked();
    ConfirmModel confirm(m);
    const Told told(&confirm, &ConfirmModel::isOpenChanged);
    m.raiseSheet("erase");
    EXPECT_TRUE(confirm.isOpen());
    EXPECT_EQ(confirm.title(), "Move 3 KB to the Trash?");
    EXPECT_EQ(confirm.body(), eraseBody);
    EXPECT_EQ(confirm.button(), "Clean");
    ASSERT_EQ(confirm.rows().size(), 2);
    EXPECT_EQ(confirm.rows()[0], (ConfirmRow{"/a", "1 KB", "/a"}));
    EXPECT_EQ(confirm.more(), "");
    EXPECT_EQ(told.count(), 1);
}

TEST_F(TheConfirmation, OfPurgingSpeaksOfTheTickedProjects)
{
    AppModel& m = ready();
    purged(m, {built("/p", 1000), built("/q", 5000)});
    m.lists().setPurge({"/p/build"}, true);
    const ConfirmModel confirm(m);
    EXPECT_FALSE(confirm.isOpen());
    m.raiseSheet("purge");
    EXPECT_EQ(confirm.title(), "Move 1 KB of build artifacts to the Trash?");
    ASSERT_EQ(confirm.rows().size(), 1);
    EXPECT_EQ(confirm.rows()[0], (ConfirmRow{"/p/build", "1 KB", "/p/build"}));
}

TEST_F(TheConfirmation, OfInstallersSpeaksOfTheTickedOnes)
{
    AppModel& m = ready();
    installed(m, {image("/i", 1000), image("/j", 5000)});
    m.lists().setInstallers({"/j"}, true);
    m.raiseSheet("installer");
    const ConfirmModel confirm(m);
    EXPECT_TRUE(confirm.isOpen());
    EXPECT_EQ(confirm.title(), "Move 1 installer to the Trash?");
    ASSERT_EQ(confirm.rows().size(), 1);
    EXPECT_EQ(confirm.rows()[0], (ConfirmRow{"/j", "5 KB", "/j"}));
}

TEST_F(TheConfirmation, OfUninstallingSpeaksOfTheCheckedApps)
{
    AppModel& m = ready();
    m.live().storeApps({app("One"), app("Two")});
    m.live().setApps({app("Two").id()}, true);
    m.raiseSheet("uninstall");
    const ConfirmModel confirm(m);
    EXPECT_EQ(confirm.title(), "Uninstall this app?");
    ASSERT_EQ(confirm.rows().size(), 1);
    EXPECT_EQ(confirm.rows()[0],
              (ConfirmRow{"/Applications/Two.app", "", "/Applications/Two.app"}));
}

TEST_F(TheConfirmation, OfUninstallingNothingSpeaksOfZeroApps)
{
    AppModel& m = ready();
    m.setSheet("uninstall");
    const ConfirmModel confirm(m);
    EXPECT_EQ(confirm.title(), "Uninstall 0 apps?");
    EXPECT_EQ(confirm.button(), "Uninstall 0");
    EXPECT_TRUE(confirm.rows().isEmpty());
}

TEST_F(TheConfirmation, OfEmptyingTheTrashSpeaksOfWhatLiesInIt)
{
    AppModel& m = ready();
    const ConfirmModel confirm(m);
    trashed(m, 1, 5'000'000);
    m.askEmptyTrash();
    EXPECT_EQ(confirm.title(), "Empty the Trash?");
    EXPECT_EQ(confirm.body(),
              "1 item (5.0 MB) will be permanently deleted. This cannot be undone.");
    EXPECT_TRUE(confirm.rows().isEmpty());
}

TEST_F(TheConfirmation, OfSomethingUnknownIsEmptyAndStillCloses)
{
    AppModel& m = ready();
    ConfirmModel confirm(m);
    m.setSheet("nothing");
    EXPECT_TRUE(confirm.isOpen());
    EXPECT_EQ(confirm.title() + confirm.body() + confirm.button() + confirm.more(), "");
    EXPECT_EQ(confirm.symbol(), "sparkles");
    EXPECT_TRUE(confirm.rows().isEmpty());
    confirm.confirm();
    EXPECT_FALSE(confirm.isOpen());
}

TEST_F(TheConfirmation, FollowsTheSelectionAndTheSettingsWhileItIsOpen)
{
    AppModel& m = ticked();
    ConfirmModel confirm(m);
    m.raiseSheet("erase");
    const Told told(&confirm, &ConfirmModel::changed);
    exclude(m, "/b");
    EXPECT_EQ(confirm.title(), "Move 1 KB to the Trash?");
    EXPECT_EQ(confirm.rows().size(), 1);
    m.settings().setKeepInTrash(false);
    EXPECT_EQ(confirm.title(), "Delete 1 KB permanently?");
    EXPECT_EQ(told.count(), 2);
}

TEST_F(TheConfirmation, TellsNothingWhereTheWordsStay)
{
    AppModel& m = ticked();
    ConfirmModel confirm(m);
    m.raiseSheet("erase");
    const Told told(&confirm, &ConfirmModel::changed);
    m.lists().setClean({"a"}, true);
    installed(m, {});
    EXPECT_EQ(told.count(), 0);
}

TEST_F(TheConfirmation, KeepsItsWordsWhileItGoesAway)
{
    AppModel& m = ticked();
    ConfirmModel confirm(m);
    m.raiseSheet("erase");
    const Told told(&confirm, &ConfirmModel::changed);
    confirm.cancel();
    m.lists().setClean({"a"}, false);
    EXPECT_FALSE(confirm.isOpen());
    EXPECT_EQ(confirm.body(), eraseBody);
    EXPECT_EQ(told.count(), 0);
}

TEST_F(TheConfirmation, CancelRemovesNothing)
{
    AppModel& m = ticked();
    ConfirmModel confirm(m);
    m.raiseSheet("erase");
    confirm.cancel();
    pumpOnce();
    EXPECT_EQ(m.sheet(), std::nullopt);
    EXPECT_FALSE(m.removal().runs().bulk());
    EXPECT_TRUE(disk->changes().empty());
}

TEST_F(TheConfirmation, ConfirmClosesItAndStartsTheRun)
{
    AppModel& m = ticked();
    ConfirmModel confirm(m);
    m.raiseSheet("erase");
    confirm.confirm();
    EXPECT_FALSE(confirm.isOpen());
    EXPECT_TRUE(m.removal().runs().bulk());
    pumpUntil([&m] { return !m.removal().runs().bulk(); });
    EXPECT_EQ(disk->changes(), (Texts{"trash /a", "trash /b"}));
    pumpOnce();
}

TEST_F(TheConfirmation, IsOpenWithItsOwnWordsFromTheFirstMoment)
{
    AppModel& m = ticked();
    ConfirmModel confirm(m);
    m.setSheet("uninstall");
    m.setSheet(std::nullopt);
    std::string seen;
    QObject::connect(&confirm, &ConfirmModel::isOpenChanged, &confirm,
                     [&] { seen = confirm.button().toStdString(); });
    m.raiseSheet("erase");
    EXPECT_EQ(seen, "Clean");
}

} // namespace

} // namespace zolva::test
