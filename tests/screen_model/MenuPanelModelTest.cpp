#include "ScreenBench.h"

#include "screens/model/MenuPanelModel.h"

#include <QKeySequence>

namespace zolva::test {

namespace {

using Role = MenuPanelModel::Role;

class ThePanel : public ScreenBench
{
protected:
    enum Place
    {
        Clean,
        Purge,
        Installer,
        Trash
    };

    /// What it asked of the program, in order.
    static void note(MenuPanelModel& panel, Texts& told)
    {
        QObject::connect(&panel, &MenuPanelModel::mainWanted, &panel,
                         [&told] { told.emplace_back("main"); });
        QObject::connect(&panel, &MenuPanelModel::quitWanted, &panel,
                         [&told] { told.emplace_back("quit"); });
    }
    std::size_t scans() const { return held.clean.count() + held.purge.count(); }
};

TEST_F(ThePanel, HasAllFourRowsBeforeAnyScan)
{
    const MenuPanelModel panel(ready());
    EXPECT_EQ(column(panel, Role::LabelRole),
              (Texts{"Caches", "Build artifacts", "Installers", "Trash"}));
    EXPECT_EQ(column(panel, Role::SymbolRole),
              (Texts{"sparkles", "folder.badge.minus", "shippingbox.fill", "trash.fill"}));
    EXPECT_EQ(column(panel, Role::CountRole),
              (Texts{"0 categorys", "0 projects", "0 files", "0 items"}));
    EXPECT_EQ(column(panel, Role::SizeRole), (Texts(4, "0 bytes")));
    EXPECT_EQ(column(panel, Role::HintRole),
              (Texts{"Opens Caches in Zolva", "Opens Build artifacts in Zolva",
                     "Opens Installers in Zolva", "Empties the Trash, after confirming"}));
}

TEST_F(ThePanel, IsScanningUntilTheCategoriesAreThere)
{
    AppModel& m = ready();
    const MenuPanelModel panel(m);
    EXPECT_TRUE(panel.scanning());
    unawaited(m.scanClean(true));
    EXPECT_TRUE(panel.scanning());
    held.clean.answer(0, {});
    EXPECT_FALSE(panel.scanning());
    EXPECT_EQ(panel.totalText(), "0 bytes");
}

TEST_F(ThePanel, CountsAndAddsUpWhatEachKindHolds)
{
    AppModel& m = ready();
    MenuPanelModel panel(m);
    ToldRows rows(&panel);
    scanned(m, {cache("a", {path("/c/a", 2'000'000)}), cache("b", {path("/c/b", 1'000'000)})});
    purged(m, {built("/p", 4'000'000)});
    installed(m, {image("/i", 8'000'000), image("/j", 0)});
    trashed(m, 1, 16'000'000);
    EXPECT_EQ(column(panel, Role::CountRole),
              (Texts{"2 categorys", "1 project", "2 files", "1 item"}));
    EXPECT_EQ(column(panel, Role::SizeRole), (Texts{"3.0 MB", "4.0 MB", "8.0 MB", "16.0 MB"}));
    EXPECT_EQ(column(panel, Role::SpokenRole),
              (Texts{"Caches, 2 categorys, 3.0 MB", "Build artifacts, 1 project, 4.0 MB",
                     "Installers, 2 files, 8.0 MB", "Trash, 1 item, 16.0 MB"}));
    EXPECT_EQ(panel.totalText(), "31.0 MB");
    EXPECT_EQ(panel.itemLabel(), "31.0 MB");
    EXPECT_EQ(panel.itemToolTip(), "31.0 MB reclaimable");
    EXPECT_EQ((Texts{rows.told.begin(), rows.told.begin() + 3}), (Texts{"0", "1", "2"}));
    EXPECT_EQ(rows.told.back(), "3");
}

TEST_F(ThePanel, ItemShowsThePictureAloneWhereNothingCanBeReclaimed)
{
    AppModel& m = ready();
    const MenuPanelModel panel(m);
    EXPECT_EQ(panel.itemLabel(), "");
    scanned(m, {cache("a", {path("/c/a", 0), path("/c/p", 5, true)})});
    EXPECT_EQ(panel.itemLabel(), "");
    EXPECT_EQ(panel.itemToolTip(), "");
}

TEST_F(ThePanel, HasNoLineOfProtectedBytesWhereThereAreNone)
{
    AppModel& m = ready();
    const MenuPanelModel panel(m);
    scanned(m, {cache("a", {path("/c/a", 10)})});
    purged(m, {built("/p", 10)});
    EXPECT_EQ(panel.keptText(), "");
}

TEST_F(ThePanel, TellsTheBytesThatProtectionAndExclusionsHoldBack)
{
    AppModel& m = ready();
    const MenuPanelModel panel(m);
    scanned(m, {cache("a", {path("/c/a", 1), path("/c/b", 2), path("/c/p", 4, true)})});
    purged(m, {built("/p/a", 10), built("/p/b", 20)});
    EXPECT_EQ(panel.keptText(), "4 bytes protected, not included");
    exclude(m, "/c/b");
    exclude(m, "/p/b");
    EXPECT_EQ(panel.keptText(), "26 bytes protected, not included");
    EXPECT_EQ(panel.totalText(), "11 bytes");
}

TEST_F(ThePanel, TrashThatCannotBeReadNeedsAccess)
{
    AppModel& m = ready();
    const MenuPanelModel panel(m);
    trashed(m, 2, 500);
    disk->setUnreadable(true);
    m.removal().trash().refreshTrashMeter();
    pumpUntil([&m] { return !m.removal().trash().isMeasuring(); });
    EXPECT_EQ(textAt(panel, Trash, Role::CountRole), "access needed");
    EXPECT_EQ(textAt(panel, Trash, Role::SizeRole), "");
    EXPECT_EQ(textAt(panel, Trash, Role::SpokenRole),
              "Trash, access needed. macOS is blocking access.");
    EXPECT_EQ(textAt(panel, Trash, Role::HintRole), "Empties the Trash, after confirming");
    EXPECT_EQ(panel.itemLabel(), "");
}

TEST_F(ThePanel, HeadTellsTheVolume)
{
    volumeName = "Backup";
    volumeSpace = {250'000'000'000, 1'000'000'000'000};
    AppModel& m = ready();
    const MenuPanelModel panel(m);
    EXPECT_EQ(panel.volumeName(), "Backup");
    EXPECT_EQ(panel.fullText(), "75% full");
    EXPECT_EQ(panel.freeText(), "250.00 GB");
    EXPECT_EQ(panel.ofTotalText(), "free of 1000.00 GB");
    EXPECT_EQ(panel.spokenDisk(), "Backup, 250.00 GB free of 1000.00 GB");
}

TEST_F(ThePanel, VolumeWithoutANameIsCalledAsMostAre)
{
    volumeName.clear();
    const MenuPanelModel panel(ready());
    EXPECT_EQ(panel.volumeName(), "Macintosh HD");
}

TEST_F(ThePanel, VolumeOfNoSizeIsNotFull)
{
    volumeSpace = {0, 0};
    const MenuPanelModel panel(ready());
    EXPECT_EQ(panel.fullText(), "0% full");
}

TEST_F(ThePanel, HeadFollowsTheDisk)
{
    AppModel& m = ready();
    MenuPanelModel panel(m);
    const Told changes(&panel, &MenuPanelModel::diskChanged);
    volumeSpace = {50, 200};
    m.removal().space().refreshFreeSpace();
    EXPECT_EQ(panel.fullText(), "75% full");
    EXPECT_EQ(changes.count(), 1);
    volumeName = "Renamed";
    panel.opened();
    EXPECT_EQ(panel.volumeName(), "Renamed");
    EXPECT_EQ(changes.count(), 2);
}

TEST_F(ThePanel, OpeningLooksOnlyAtWhatIsNotKnownYet)
{
    AppModel& m = ready();
    MenuPanelModel panel(m);
    scanned(m, {});
    panel.opened();
    EXPECT_EQ(held.clean.count(), 1U);
    EXPECT_EQ(held.purge.count(), 1U);
    EXPECT_EQ(installers.count(), 1U);
    EXPECT_EQ(script.lists.count(), 0U);
}

TEST_F(ThePanel, RescanStartsEveryScanAfresh)
{
    AppModel& m = ready();
    MenuPanelModel panel(m);
    scanned(m, {});
    purged(m, {});
    panel.rescan();
    EXPECT_EQ(held.clean.count(), 2U);
    EXPECT_EQ(held.purge.count(), 2U);
    EXPECT_EQ(installers.count(), 1U);
    EXPECT_EQ(script.lists.count(), 1U);
}

TEST_F(ThePanel, RowsLeadToTheirScreensInTheWindow)
{
    AppModel& m = ready();
    MenuPanelModel panel(m);
    Texts told;
    note(panel, told);
    for (const auto& [row, screen] : std::vector<std::pair<int, std::string>>{
             {Clean, "clean"}, {Purge, "purge"}, {Installer, "installer"}}) {
        panel.chooseRow(row);
        EXPECT_EQ(m.screen(), screen);
    }
    EXPECT_EQ(told, (Texts{"main", "main", "main"}));
}

TEST_F(ThePanel, TrashRowBringsTheWindowAndAsksToEmptyIt)
{
    AppModel& m = ready();
    MenuPanelModel panel(m);
    Texts told;
    note(panel, told);
    m.go("purge");
    trashed(m, 1, 5);
    panel.chooseRow(Trash);
    EXPECT_EQ(told, (Texts{"main"}));
    EXPECT_EQ(m.sheet(), "emptytrash");
    EXPECT_EQ(m.screen(), "purge");
}

TEST_F(ThePanel, TrashRowOfAnEmptyTrashBringsTheWindowAndRaisesNoSheet)
{
    AppModel& m = ready();
    MenuPanelModel panel(m);
    Texts told;
    note(panel, told);
    panel.chooseRow(Trash);
    EXPECT_EQ(told, (Texts{"main"}));
    EXPECT_FALSE(m.sheet());
}

TEST_F(ThePanel, HasFourCommandsWithTheirKeys)
{
    MenuPanelModel panel(ready());
    const MenuCommands& commands = *panel.commands();
    EXPECT_EQ(column(commands, MenuCommands::SymbolRole),
              (Texts{"macwindow", "waveform.path.ecg", "gearshape", "power"}));
    EXPECT_EQ(column(commands, MenuCommands::TitleRole),
              (Texts{"Open Zolva", "Status", "Settings", "Quit Zolva"}));
    EXPECT_EQ(column(commands, MenuCommands::KeysRole), (Texts{"Ctrl+O", "", "Ctrl+,", "Ctrl+Q"}));
    for (int row = 0; row < commands.rowCount(); ++row) {
        const QKeySequence keys(at(commands, row, MenuCommands::KeysRole).toString());
        EXPECT_EQ(QKeySequence(at(commands, row, MenuCommands::ShortcutRole).toString(),
                               QKeySequence::NativeText),
                  keys);
    }
}

TEST_F(ThePanel, CommandsLeadToTheWindowItsScreensAndTheEnd)
{
    AppModel& m = ready();
    MenuPanelModel panel(m);
    Texts told;
    note(panel, told);
    m.go("analyze");
    panel.runCommand(0);
    EXPECT_EQ(m.screen(), "analyze");
    panel.runCommand(1);
    EXPECT_EQ(m.screen(), "status");
    panel.runCommand(2);
    EXPECT_EQ(m.screen(), "settings");
    panel.runCommand(3);
    EXPECT_EQ(told, (Texts{"main", "main", "main", "quit"}));
    EXPECT_EQ(scans(), 0U);
}

} // namespace

} // namespace zolva::test
