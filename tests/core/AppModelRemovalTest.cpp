#include "core/WholeModel.h"

#include "removal/runs/RunMessages.h"

#include "support/qt/EventLoop.h"

#include <algorithm>

namespace zolva::test {

namespace {

using Names = std::vector<std::string>;

class ModelRemoval : public WholeModel
{
protected:
    /// A finished scan of two caches, of which the first is ticked.
    AppModel& cleaned()
    {
        disk->put("/c/a", 1000);
        disk->put("/c/b", 2000);
        AppModel& m = ready();
        m.scanForMenu();
        held.clean.answer(
            0, {cache("first", {path("/c/a", 1000)}), cache("second", {path("/c/b", 2000)})});
        held.purge.answer(0, {built("/p", 3000)});
        installers.answer(0, {image("/i", 4000), image("/j", 5000)});
        m.lists().setClean({"first"}, true);
        return m;
    }
    AppModel& withApps(const Names& names)
    {
        AppModel& m = ready();
        std::vector<UninstallApp> apps;
        for (const std::string& name : names) {
            apps.push_back(app(name));
            disk->put(app(name).path, 1000);
        }
        m.live().storeApps(apps);
        return m;
    }
    void untilIdle(AppModel& m)
    {
        pumpUntil([&m] { return !m.removal().runs().bulk(); });
        pumpOnce();
    }
    [[nodiscard]] Names toastTexts() const
    {
        Names texts;
        for (const Toast& toast : model->toasts().toasts()) {
            texts.push_back(toast.text.toStdString());
        }
        return texts;
    }
    [[nodiscard]] Names changes() const { return disk->changes(); }
    [[nodiscard]] Names shownInstallers() const
    {
        Names paths;
        for (const InstallerItem& item : model->lists().installerList()) {
            paths.push_back(item.p);
        }
        return paths;
    }
};

} // namespace

TEST_F(ModelRemoval, TheMetersAreReadAtTheStart)
{
    disk->putInTrash("old", 700);
    AppModel& m = ready();
    EXPECT_EQ(m.removal().trash().trashCount(), 1);
    EXPECT_EQ(m.removal().space().freeSpace(), 100);
    EXPECT_EQ(m.removal().space().volumeTotal(), 200);
    pumpUntil([&m] { return m.removal().trash().trashBytes() == 700; });
}

TEST_F(ModelRemoval, AStartWithoutMetersReadsNoneOfThem)
{
    disk->putInTrash("old", 700);
    AppModel& m = start({.meters = false, .journalCheck = false, .accessProbe = false});
    EXPECT_EQ(m.removal().trash().trashCount(), 0);
    EXPECT_EQ(disk->listings(), 0);
    EXPECT_EQ(std::count(steps.begin(), steps.end(), "space read"), 0);
}

TEST_F(ModelRemoval, ASheetThatHasNothingToConfirmDoesNotOpen)
{
    AppModel& m = ready();
    for (const char* const id : {"erase", "purge", "installer", "uninstall"}) {
        m.raiseSheet(id);
        EXPECT_EQ(m.sheet(), std::nullopt) << id;
    }
    m.askEmptyTrash();
    EXPECT_EQ(m.sheet(), std::nullopt);
}

TEST_F(ModelRemoval, ASheetOpensForWhatIsTicked)
{
    AppModel& m = cleaned();
    m.raiseSheet("erase");
    EXPECT_EQ(m.sheet(), "erase");
    m.raiseSheet("purge");
    EXPECT_EQ(m.sheet(), "erase");
    m.lists().setPurge({"/p/build"}, true);
    m.raiseSheet("purge");
    EXPECT_EQ(m.sheet(), "purge");
    m.lists().setInstallers({"/i"}, true);
    m.raiseSheet("installer");
    EXPECT_EQ(m.sheet(), "installer");
    m.live().storeApps({app("One")});
    m.live().setApps({app("One").id()}, true);
    m.raiseSheet("uninstall");
    EXPECT_EQ(m.sheet(), "uninstall");
}

TEST_F(ModelRemoval, ASelectionThatIsAllProtectedCannotBeConfirmed)
{
    AppModel& m = ready();
    m.scanForMenu();
    CatPath kept = path("/c/a", 1000);
    kept.prot = true;
    held.clean.answer(0, {cache("first", {kept})});
    m.lists().setClean({"first"}, true);
    m.raiseSheet("erase");
    EXPECT_EQ(m.sheet(), std::nullopt);
    EXPECT_EQ(m.removal().selectedCategoryCount(), 1);
}

TEST_F(ModelRemoval, AConfirmedCleanRunMovesWhatIsTickedAndScansAnew)
{
    AppModel& m = cleaned();
    m.raiseSheet("erase");
    m.runSheet();
    EXPECT_EQ(m.sheet(), std::nullopt);
    ASSERT_TRUE(m.removal().runs().bulk());
    EXPECT_EQ(m.removal().runs().bulk()->title, "Removing caches");
    untilIdle(m);
    EXPECT_EQ(changes(), (Names{"trash /c/a"}));
    EXPECT_EQ(m.lastCleanFreed(), 1000);
    EXPECT_TRUE(m.removal().trash().didJustTrash());
    EXPECT_EQ(m.lists().liveCats(), std::nullopt);
    ASSERT_EQ(held.clean.count(), 2U);
    held.clean.answer(1, {cache("second", {path("/c/b", 2000)})});
    EXPECT_TRUE(m.lists().sel().empty());
    EXPECT_EQ(m.lastCleanFreed(), 1000);
    EXPECT_TRUE(m.done().empty());
}

TEST_F(ModelRemoval, AnEmptyResultAfterARunLeavesNothingPickedAndNothingUnfolded)
{
    AppModel& m = cleaned();
    m.lists().setClean({"second"}, true);
    m.raiseSheet("erase");
    m.runSheet();
    untilIdle(m);
    m.lists().setOpenCat("first");
    EXPECT_EQ(m.lists().sel().size(), 2U);
    held.clean.answer(1, {});
    ASSERT_TRUE(m.lists().liveCats());
    EXPECT_TRUE(m.lists().liveCats()->empty());
    EXPECT_TRUE(m.lists().sel().empty());
    EXPECT_EQ(m.lists().openCat(), std::nullopt);
}

TEST_F(ModelRemoval, WhatAStoppedRunLeftBehindStaysSelected)
{
    AppModel& m = cleaned();
    m.lists().setClean({"second"}, true);
    m.raiseSheet("erase");
    m.runSheet();
    m.removal().runs().requestCancel();
    untilIdle(m);
    EXPECT_EQ(changes(), (Names{"trash /c/a"}));
    EXPECT_EQ(m.lastCleanFreed(), 1000);
    held.clean.answer(1, {cache("second", {path("/c/b", 2000)})});
    EXPECT_EQ(m.removal().selectedCleanBytes(), 2000);
}

TEST_F(ModelRemoval, ConfirmingTwiceFastRunsOnce)
{
    AppModel& m = cleaned();
    m.raiseSheet("erase");
    m.runSheet();
    m.runSheet();
    untilIdle(m);
    EXPECT_EQ(changes(), (Names{"trash /c/a"}));
}

TEST_F(ModelRemoval, WhatIsExcludedWhileTheSheetStandsOpenStays)
{
    AppModel& m = cleaned();
    m.raiseSheet("erase");
    m.exclusions().setWhitelist({"/c/a"});
    m.runSheet();
    untilIdle(m);
    EXPECT_TRUE(changes().empty());
    EXPECT_TRUE(toastTexts().empty());
}

TEST_F(ModelRemoval, WhatAnotherProcessExcludesMeanwhileStays)
{
    AppModel& m = cleaned();
    m.lists().setClean({"second"}, true);
    m.raiseSheet("erase");
    store.values["zolva.whitelist"] = Names{"/c/a"};
    m.runSheet();
    untilIdle(m);
    EXPECT_EQ(changes(), (Names{"trash /c/b"}));
    EXPECT_EQ(m.exclusions().whitelist(), (Names{"/c/a"}));
}

TEST_F(ModelRemoval, ASheetCountsWhatAnotherProcessExcludedBefore)
{
    AppModel& m = cleaned();
    store.values["zolva.whitelist"] = Names{"/c/a"};
    m.raiseSheet("erase");
    EXPECT_EQ(m.sheet(), std::nullopt);
    EXPECT_EQ(m.removal().selectedCleanBytes(), 0);
}

TEST_F(ModelRemoval, AnAnalysedFileThatAnotherProcessExcludedStays)
{
    disk->put("~/x/kept", 100);
    AppModel& m = ready();
    store.values["zolva.whitelist"] = Names{"~/x"};
    m.removal().analyzed().trashAnalyzeItem("kept", "~/x/kept", 100);
    EXPECT_TRUE(changes().empty());
}

TEST_F(ModelRemoval, NothingIsRemovedWhileWhatIsExcludedCannotBeRead)
{
    store.told.unread = "Permission denied";
    disk->put("/i", 4000);
    disk->put("~/x/kept", 100);
    AppModel& m = cleaned();
    m.lists().setInstallers({"/i"}, true);
    const std::size_t atTheStart = toastTexts().size();
    m.raiseSheet("erase");
    m.raiseSheet("installer");
    EXPECT_EQ(m.sheet(), std::nullopt);
    m.removeInstaller(image("/i", 4000));
    m.removal().trashAnalyzeItem("kept", "~/x/kept", 100);
    untilIdle(m);
    EXPECT_TRUE(changes().empty());
    ASSERT_EQ(toastTexts().size(), atTheStart + 4);
    EXPECT_EQ(toastTexts().back(),
              "Zolva can't read your settings: Permission denied. Nothing is "
              "cleaned, moved or uninstalled until it knows what never to touch.");

    store.told = {};
    store.values["zolva.whitelist"] = Names{"~/x"};
    m.removal().trashAnalyzeItem("kept", "~/x/kept", 100);
    EXPECT_TRUE(changes().empty());
    m.raiseSheet("erase");
    EXPECT_EQ(m.sheet(), "erase");
}

TEST_F(ModelRemoval, TheTrashIsEmptiedWhateverCannotBeRead)
{
    store.told.unread = "Permission denied";
    disk->putInTrash("old", 700);
    AppModel& m = ready();
    m.askEmptyTrash();
    EXPECT_EQ(m.sheet(), "emptytrash");
}

TEST_F(ModelRemoval, AConfirmedPurgeRunForgetsItsFigureAtTheScanThatFollows)
{
    disk->put("/p/build", 3000);
    AppModel& m = cleaned();
    m.lists().setPurge({"/p/build"}, true);
    std::vector<std::int64_t> freed;
    QObject::connect(&m, &AppModel::lastPurgeFreedChanged, &m,
                     [&] { freed.push_back(m.lastPurgeFreed()); });
    m.raiseSheet("purge");
    m.runSheet();
    untilIdle(m);
    EXPECT_EQ(changes(), (Names{"trash /p/build"}));
    EXPECT_EQ(freed, (std::vector<std::int64_t>{3000, 0}));
    EXPECT_EQ(m.lists().liveProjects(), std::nullopt);
    held.purge.answer(1, {});
    EXPECT_TRUE(m.lists().projPicked().empty());
    EXPECT_EQ(m.done(), (std::set<std::string>{"purge"}));
}

TEST_F(ModelRemoval, InstallersLeaveTheListAtOnce)
{
    disk->put("/i", 4000);
    AppModel& m = cleaned();
    m.lists().setInstallers({"/i"}, true);
    m.raiseSheet("installer");
    m.runSheet();
    ASSERT_EQ(m.lists().installerList().size(), 1U);
    EXPECT_EQ(m.lists().installerList().front().p, "/j");
    EXPECT_TRUE(m.lists().instPicked().empty());
    untilIdle(m);
    EXPECT_EQ(changes(), (Names{"trash /i"}));
    EXPECT_EQ(installers.count(), 1U);
}

TEST_F(ModelRemoval, OneInstallerGoesWithoutASheetUnlessARunIsGoing)
{
    disk->put("/i", 4000);
    disk->put("/j", 5000);
    AppModel& m = cleaned();
    m.removeInstaller(image("/i", 4000));
    m.removeInstaller(image("/j", 5000));
    EXPECT_EQ(m.lists().installerList().size(), 1U);
    untilIdle(m);
    EXPECT_EQ(changes(), (Names{"trash /i"}));
}

TEST_F(ModelRemoval, AScanBegunBeforeTheRemovalOfAnInstallerDoesNotBringItsRowBack)
{
    disk->put("/i", 4000);
    AppModel& m = cleaned();
    m.scanForMenu();
    m.removeInstaller(image("/i", 4000));
    installers.answer(1, {image("/i", 4000), image("/j", 5000)});
    EXPECT_EQ(shownInstallers(), (Names{"/j"}));
    untilIdle(m);
    EXPECT_EQ(shownInstallers(), (Names{"/j"}));
}

TEST_F(ModelRemoval, AScanThatFindsAnInstallerJustBeforeItGoesDoesNotBringItsRowBack)
{
    disk->put("/i", 4000);
    AppModel& m = cleaned();
    m.removeInstaller(image("/i", 4000));
    m.scanForMenu();
    untilIdle(m);
    installers.answer(1, {image("/i", 4000), image("/j", 5000)});
    EXPECT_EQ(shownInstallers(), (Names{"/j"}));
}

TEST_F(ModelRemoval, AnInstallerThatCouldNotBeRemovedIsFoundByAScanDuringAnotherRun)
{
    disk->put("/i", 4000);
    disk->fail("/i", "not permitted");
    AppModel& m = cleaned();
    m.removeInstaller(image("/i", 4000));
    untilIdle(m);
    m.removal().runs().setBulk(BulkProgress{});
    m.scanForMenu();
    installers.answer(1, {image("/i", 4000), image("/j", 5000)});
    EXPECT_EQ(shownInstallers(), (Names{"/i", "/j"}));
    m.removal().runs().setBulk(std::nullopt);
}

TEST_F(ModelRemoval, AnInstallerThatCouldNotBeRemovedIsFoundByTheNextScan)
{
    disk->put("/i", 4000);
    disk->fail("/i", "not permitted");
    AppModel& m = cleaned();
    m.removeInstaller(image("/i", 4000));
    untilIdle(m);
    EXPECT_EQ(shownInstallers(), (Names{"/j"}));
    m.scanForMenu();
    installers.answer(1, {image("/i", 4000), image("/j", 5000)});
    EXPECT_EQ(shownInstallers(), (Names{"/i", "/j"}));
}

TEST_F(ModelRemoval, AnUninstallTakesTheTickedRowsAwayAndPutsTheStuckOnesBack)
{
    AppModel& m = withApps({"One", "Two", "Three"});
    disk->fail(app("Two").path, "not permitted");
    m.live().setApps({app("One").id(), app("Two").id()}, true);
    m.raiseSheet("uninstall");
    m.runSheet();
    ASSERT_TRUE(m.live().apps().value());
    EXPECT_EQ(m.live().apps().value()->size(), 1U);
    EXPECT_TRUE(m.live().checkedApps().empty());
    EXPECT_EQ(m.live().selectedAppID(), app("Three").id());
    pumpUntil([&] { return m.toasts().toasts().size() == 2; });
    ASSERT_EQ(m.live().apps().value()->size(), 2U);
    EXPECT_EQ(m.live().apps().value()->back().name, "Two");
    EXPECT_EQ(toastTexts(),
              (Names{"Couldn't uninstall 1 app. It may need an administrator password.",
                     "Uninstalled 1 app"}));
    EXPECT_EQ(m.done(), (std::set<std::string>{"uninstall"}));
}

TEST_F(ModelRemoval, TheTrashIsEmptiedThroughItsSheet)
{
    disk->putInTrash("old", 700);
    AppModel& m = ready();
    m.askEmptyTrash();
    EXPECT_EQ(m.sheet(), "emptytrash");
    m.runSheet();
    untilIdle(m);
    EXPECT_EQ(changes(), (Names{"delete old"}));
    EXPECT_EQ(toastTexts(), (Names{"Trash emptied."}));
    EXPECT_EQ(m.removal().trash().trashCount(), 0);
    EXPECT_TRUE(m.done().empty());
}

TEST_F(ModelRemoval, TheToastAboutNewItemsLeadsToTheSheet)
{
    AppModel& m = ready();
    disk->putInTrash("new", 700);
    m.removal().trash().trashFolderChanged();
    ASSERT_EQ(m.toasts().toasts().size(), 1U);
    m.toasts().runAction(m.toasts().toasts().front().id);
    EXPECT_EQ(m.sheet(), "emptytrash");
}

TEST_F(ModelRemoval, AnUnknownSheetOpensAndStartsNothing)
{
    AppModel& m = cleaned();
    m.raiseSheet("other");
    EXPECT_EQ(m.sheet(), "other");
    m.runSheet();
    EXPECT_EQ(m.sheet(), std::nullopt);
    EXPECT_FALSE(m.removal().runs().bulk());
    EXPECT_TRUE(m.done().empty());
}

TEST_F(ModelRemoval, WithKeepInTrashOffWhatLandedIsDeleted)
{
    AppModel& m = cleaned();
    m.settings().setKeepInTrash(false);
    m.raiseSheet("erase");
    m.runSheet();
    untilIdle(m);
    EXPECT_EQ(changes(), (Names{"trash /c/a", "purge /trash/a"}));
}

TEST_F(ModelRemoval, TheToastOfARunOpensTheTrash)
{
    AppModel& m = cleaned();
    m.raiseSheet("erase");
    m.runSheet();
    untilIdle(m);
    ASSERT_EQ(m.toasts().toasts().size(), 1U);
    m.toasts().runAction(m.toasts().toasts().front().id);
    EXPECT_EQ(steps.back(), "Trash opened");
}

TEST_F(ModelRemoval, TheRescanTakesTheSheetAndTheLastFigureAway)
{
    AppModel& m = cleaned();
    m.raiseSheet("erase");
    m.setLastCleanFreed(5);
    m.rescanClean();
    EXPECT_EQ(m.sheet(), std::nullopt);
    EXPECT_EQ(m.lastCleanFreed(), 0);
    EXPECT_EQ(held.clean.count(), 2U);
}

TEST_F(ModelRemoval, TheSummaryAddsUpWhatIsHeldAndFollowsTheExclusions)
{
    disk->putInTrash("old", 700);
    AppModel& m = cleaned();
    pumpUntil([&m] { return m.removal().trash().trashBytes() == 700; });
    EXPECT_EQ(m.removal().cleanableBytes(), 3000);
    EXPECT_EQ(m.removal().reclaimTotal(), 3000 + 3000 + 9000 + 700);
    EXPECT_EQ(m.removal().scannedReclaimBytes(), 6000);
    EXPECT_EQ(m.removal().reclaimRows()[0].count, 2);
    m.exclusions().setWhitelist({"/c/b"});
    EXPECT_EQ(m.removal().cleanableBytes(), 1000);
    EXPECT_EQ(m.removal().reclaimRows()[0].count, 1);
}

TEST_F(ModelRemoval, WhoeverIsToldOfAChangeReadsTheNewSum)
{
    AppModel& m = cleaned();
    std::vector<std::int64_t> read{m.removal().cleanableBytes()};
    QObject reader;
    const auto readAnew = [&] { read.push_back(m.removal().cleanableBytes()); };
    QObject::connect(&m.live(), &LiveData::cleanChanged, &reader, readAnew);
    QObject::connect(&m.exclusions(), &Exclusions::whitelistChanged, &reader, readAnew);
    m.exclusions().setWhitelist({"/c/b"});
    m.exclusions().removeExclusion("/c/b");
    m.rescanClean();
    held.clean.answer(1, {cache("third", {path("/c/c", 50)})});
    EXPECT_EQ(read, (std::vector<std::int64_t>{3000, 1000, 3000, 0, 50}));
}

TEST_F(ModelRemoval, AnAnalysedFileGoesToTheTrashUnlessItIsExcluded)
{
    disk->put("~/x/big", 100);
    disk->put("~/x/kept", 100);
    AppModel& m = ready();
    m.exclusions().setWhitelist({"~/x/kept"});
    m.removal().analyzed().trashAnalyzeItem("kept", "~/x/kept", 100);
    m.removal().analyzed().trashAnalyzeItem("big", "~/x/big", 100);
    EXPECT_EQ(m.removal().analyzed().trashed(), (std::set<std::string>{"~/x/big"}));
}

TEST_F(ModelRemoval, AModelThatEndsDuringARunTouchesNothingMore)
{
    AppModel& m = cleaned();
    m.lists().setClean({"second"}, true);
    m.raiseSheet("erase");
    m.runSheet();
    model.reset();
    pumpUntil([this] { return !changes().empty(); });
    pumpOnce();
    EXPECT_EQ(changes(), (Names{"trash /c/a"}));
}

} // namespace zolva::test
