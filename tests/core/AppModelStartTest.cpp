#include "core/WholeModel.h"

#include "diagnostics/RunJournal.h"

#include "support/qt/EventLoop.h"

#include <algorithm>
#include <filesystem>

namespace zolva::test {

namespace {

class ModelStart : public WholeModel
{
protected:
    void leaveJournal(const std::string& content) { tree.text("logs/in-progress.txt", content); }
    [[nodiscard]] bool journalIsThere() const
    {
        return std::filesystem::exists(tree.path("logs/in-progress.txt"));
    }
    void seen() { store.values["zolva.seenAccessIntro"] = true; }
};

} // namespace

TEST_F(ModelStart, GoesThroughItsStepsInTheirOrder)
{
    const std::string journal = "2026-01-01T00:00:00Z\tclean\t3 paths\tpid 1";
    leaveJournal(journal + "\n");
    start();
    EXPECT_EQ(steps, (Steps{"crashes caught in " + tree.path("logs"), "appearance read",
                            "read zolva.themeMode", "read zolva.pollInterval",
                            "read zolva.diskThreshold", "read zolva.requireTouchID",
                            "read zolva.keepInTrash", "read zolva.whitelist", "appearance watched",
                            "space read", "logged previous run did not finish: " + journal,
                            "read zolva.seenAccessIntro", "access probed"}));
}

TEST_F(ModelStart, EveryFieldBeginsWithItsDefault)
{
    AppModel& m = start();
    EXPECT_EQ(m.screen(), "home");
    EXPECT_EQ(m.sheet(), std::nullopt);
    EXPECT_TRUE(m.done().empty());
    EXPECT_EQ(m.lastCleanFreed(), 0);
    EXPECT_EQ(m.lastPurgeFreed(), 0);
    EXPECT_TRUE(m.sort().empty());
    EXPECT_TRUE(m.query().empty());
    EXPECT_TRUE(m.blockedLocations().empty());
    EXPECT_FALSE(m.showAccessIntro());
    EXPECT_TRUE(m.toasts().toasts().empty());
    EXPECT_EQ(m.settings().themeMode(), ThemeMode::System);
    EXPECT_EQ(m.settings().poll(), 1);
    EXPECT_EQ(m.settings().threshold(), 80);
    EXPECT_TRUE(m.settings().touchid());
    EXPECT_TRUE(m.settings().keepInTrash());
    EXPECT_TRUE(m.settings().prefsLoaded());
    EXPECT_TRUE(m.exclusions().whitelist().empty());
    EXPECT_EQ(m.exclusions().wlDraft(), "");
}

TEST_F(ModelStart, EveryListBeginsEmptyWithNothingPickedAndNothingOpen)
{
    const AppLists& lists = start().lists();
    EXPECT_EQ(lists.liveCats(), std::nullopt);
    EXPECT_EQ(lists.liveProjects(), std::nullopt);
    EXPECT_TRUE(lists.installerList().empty());
    EXPECT_TRUE(lists.installerState().isIdle());
    EXPECT_EQ(lists.installerGen(), 0);
    EXPECT_TRUE(lists.sel().empty());
    EXPECT_TRUE(lists.projPicked().empty());
    EXPECT_TRUE(lists.instPicked().empty());
    EXPECT_TRUE(lists.pickAnchor().empty());
    EXPECT_EQ(lists.openCat(), std::nullopt);
    EXPECT_EQ(lists.resOpen(), std::nullopt);
}

TEST_F(ModelStart, StartsNoChildNoStreamAndNoScan)
{
    AppModel& m = start();
    pumpOnce();
    EXPECT_TRUE(script.intervals.empty());
    EXPECT_EQ(script.lists.count(), 0U);
    EXPECT_EQ(held.clean.count(), 0U);
    EXPECT_EQ(held.purge.count(), 0U);
    EXPECT_EQ(held.analyze.count(), 0U);
    EXPECT_EQ(held.enrich.count(), 0U);
    EXPECT_EQ(held.residue.count(), 0U);
    EXPECT_EQ(installers.count(), 0U);
    EXPECT_EQ(probes.count(), 1U);
    EXPECT_TRUE(m.live().clean().isIdle());
    EXPECT_FALSE(m.live().isStreaming());
}

TEST_F(ModelStart, AFirstStartWritesNothing)
{
    start();
    probes.answer(0, blocked({"Downloads"}));
    EXPECT_TRUE(store.writes.empty());
}

TEST_F(ModelStart, WithoutTheStepsOfTheWindowTheJournalStaysAndNothingIsProbed)
{
    leaveJournal("2026-01-01T00:00:00Z\tclean\t3 paths\tpid 1\n");
    AppModel& m = start({.journalCheck = false, .accessProbe = false});
    EXPECT_TRUE(journalIsThere());
    EXPECT_TRUE(m.toasts().toasts().empty());
    EXPECT_EQ(probes.count(), 0U);
    EXPECT_TRUE(log.messages().empty());
    EXPECT_TRUE(m.settings().prefsLoaded());
}

TEST_F(ModelStart, SettingsThatWereDamagedAreToldOnceAsAWarning)
{
    store.told.damaged = tree.path(".config/zolva/preferences.json.damaged");
    const std::vector<Toast> toasts = start().toasts().toasts();
    ASSERT_EQ(toasts.size(), 1U);
    EXPECT_EQ(toasts[0].kind, BannerKind::Warning);
    EXPECT_EQ(toasts[0].text,
              "Your settings were damaged, so nothing is listed under \"Never touch these\". "
              "The old file is ~/.config/zolva/preferences.json.damaged.");
    EXPECT_FALSE(toasts[0].actionTitle);
}

TEST_F(ModelStart, SettingsThatCannotBeReadAreToldOnceAsAWarning)
{
    store.told.unread = "Permission denied";
    const std::vector<Toast> toasts = start().toasts().toasts();
    ASSERT_EQ(toasts.size(), 1U);
    EXPECT_EQ(toasts[0].kind, BannerKind::Warning);
    EXPECT_EQ(toasts[0].text, "Zolva can't read your settings: Permission denied. Nothing is "
                              "cleaned, moved or uninstalled until it knows what never to touch.");
}

TEST_F(ModelStart, WithoutTheStepsOfTheWindowNothingIsToldOfTheSettings)
{
    store.told = {"Permission denied", "/h/preferences.json.damaged"};
    EXPECT_TRUE(start({.prefsCheck = false}).toasts().toasts().empty());
}

TEST_F(ModelStart, ARunThatDidNotFinishIsToldOnceAsAWarning)
{
    leaveJournal("2026-01-01T00:00:00Z\tclean\t3 paths\tpid 1\n");
    const std::vector<Toast> toasts = start().toasts().toasts();
    ASSERT_EQ(toasts.size(), 1U);
    EXPECT_EQ(toasts[0].kind, BannerKind::Warning);
    EXPECT_EQ(toasts[0].text,
              "A previous clean run didn't finish. Some items may have been removed "
              "and others not.");
    EXPECT_EQ(toasts[0].actionTitle, "Show log");
    EXPECT_FALSE(journalIsThere());
    EXPECT_EQ(log.records().at(0).level, LogLevel::Fault);

    EXPECT_TRUE(start().toasts().toasts().empty());
}

TEST_F(ModelStart, AJournalOfOneFieldIsToldAsARemoval)
{
    leaveJournal("something\n");
    const std::vector<Toast> toasts = start().toasts().toasts();
    ASSERT_EQ(toasts.size(), 1U);
    EXPECT_EQ(toasts[0].text, "A previous A removal run didn't finish. Some items may have been "
                              "removed and others not.");
}

TEST_F(ModelStart, AJournalOfWhiteSpaceCountsAsNoneAndStays)
{
    leaveJournal(" \n\t\n");
    EXPECT_TRUE(start().toasts().toasts().empty());
    EXPECT_TRUE(journalIsThere());
}

TEST_F(ModelStart, TheButtonOfThatToastShowsTheFolderOfTheLogs)
{
    leaveJournal("2026-01-01T00:00:00Z\tclean\t3 paths\tpid 1\n");
    AppModel& m = start();
    m.toasts().runAction(m.toasts().toasts().at(0).id);
    EXPECT_EQ(steps.back(), "log folder opened");
}

TEST_F(ModelStart, TheToastGoesAfterItsTime)
{
    leaveJournal("2026-01-01T00:00:00Z\tclean\t3 paths\tpid 1\n");
    AppModel& m = start();
    clock.advance(std::chrono::milliseconds(9'999));
    EXPECT_EQ(m.toasts().toasts().size(), 1U);
    clock.advance(std::chrono::milliseconds(1));
    EXPECT_TRUE(m.toasts().toasts().empty());
}

TEST_F(ModelStart, TheAccessIntroShowsWhenAPlaceIsBlockedAndItWasNeverDismissed)
{
    AppModel& m = start();
    EXPECT_FALSE(m.showAccessIntro());
    const Told shown(&m, &AppModel::showAccessIntroChanged);
    probes.answer(0, blocked({"Downloads", "Trash"}));
    EXPECT_TRUE(m.showAccessIntro());
    EXPECT_EQ(shown.count(), 1);
    EXPECT_EQ(m.blockedLocations(), blocked({"Downloads", "Trash"}));
    EXPECT_EQ(log.messages(), (Steps{"blocked by privacy settings: Downloads, Trash"}));
}

TEST_F(ModelStart, WithNothingBlockedNoIntroShowsAndNothingIsLogged)
{
    AppModel& m = start();
    probes.answer(0, {});
    EXPECT_FALSE(m.showAccessIntro());
    EXPECT_TRUE(m.blockedLocations().empty());
    EXPECT_TRUE(log.messages().empty());
}

TEST_F(ModelStart, AnIntroThatWasSeenIsNotProbedFor)
{
    seen();
    start();
    EXPECT_EQ(probes.count(), 0U);
}

TEST_F(ModelStart, ABlockedPlaceFoundByALaterScanRaisesNoIntro)
{
    seen();
    AppModel& m = start();
    m.scanInstallers();
    probes.answer(0, blocked({"Desktop"}));
    EXPECT_EQ(m.blockedLocations(), blocked({"Desktop"}));
    EXPECT_FALSE(m.showAccessIntro());
}

TEST_F(ModelStart, DismissingTheIntroIsRememberedAndLoggedAndOpensNothingUnasked)
{
    AppModel& m = start();
    probes.answer(0, blocked({"Desktop"}));
    m.dismissAccessIntro(false);
    EXPECT_FALSE(m.showAccessIntro());
    EXPECT_EQ(m.blockedLocations(), blocked({"Desktop"}));
    ASSERT_EQ(store.writes.size(), 1U);
    EXPECT_EQ(store.writes[0],
              (RecordingStore::Written{{"zolva.seenAccessIntro", PrefValue(true)}}));
    EXPECT_EQ(log.messages().back(), "access intro shown, opened settings: false");
    start();
    EXPECT_EQ(probes.count(), 1U);
}

TEST_F(ModelStart, AnItemIsRevealedByTheDesktopUnderThePathThatItIsCalled)
{
    AppModel& m = start();
    steps.clear();
    m.reveal("~/a\xFF/b.dmg");
    EXPECT_EQ(steps, Steps{"revealed ~/a\xFF/b.dmg"});
}

TEST_F(ModelStart, WithoutADesktopNothingIsRevealed)
{
    AppDependencies all = dependencies();
    all.doors = {};
    AppModel m(std::move(all));
    steps.clear();
    m.reveal("~/b.dmg");
    EXPECT_TRUE(steps.empty());
}

TEST_F(ModelStart, DismissingTheIntroOpensTheSettingsBeforeItIsLogged)
{
    AppModel& m = start();
    probes.answer(0, blocked({"Desktop"}));
    steps.clear();
    m.dismissAccessIntro(true);
    EXPECT_EQ(steps, (Steps{"access settings opened",
                            "logged access intro shown, opened settings: true"}));
}

TEST_F(ModelStart, TheDesktopsColoursAreReadAtTheStart)
{
    appearance.dark = true;
    EXPECT_TRUE(start().systemIsDark());
    appearance.dark = false;
    EXPECT_FALSE(start().systemIsDark());
    appearance.dark = std::nullopt;
    EXPECT_FALSE(start().systemIsDark());
}

TEST_F(ModelStart, WithoutADesktopItIsLight)
{
    AppDependencies bare = dependencies();
    bare.appearance = nullptr;
    AppModel m(std::move(bare));
    EXPECT_FALSE(m.systemIsDark());
    EXPECT_TRUE(m.isLightTheme());
}

TEST_F(ModelStart, AChangeOfTheDesktopsColoursIsReadOneTurnLater)
{
    AppModel& m = start();
    const Told told(&m, &AppModel::isLightThemeChanged);
    appearance.dark = true;
    Q_EMIT appearance.changed();
    EXPECT_FALSE(m.systemIsDark());
    pumpOnce();
    EXPECT_TRUE(m.systemIsDark());
    EXPECT_FALSE(m.isLightTheme());
    EXPECT_EQ(told.count(), 1);
}

TEST_F(ModelStart, ADesktopThatOutlivesTheModelFindsNobodyToTell)
{
    start();
    Q_EMIT appearance.changed();
    model.reset();
    pumpOnce();
    Q_EMIT appearance.changed();
    pumpOnce();
    EXPECT_EQ(std::count(steps.begin(), steps.end(), "appearance read"), 1);
}

TEST_F(ModelStart, WhatStillRunsWhenTheModelEndsIsDropped)
{
    leaveJournal("2026-01-01T00:00:00Z\tclean\t3 paths\tpid 1\n");
    AppModel& m = start();
    m.live().retainStatus();
    m.scanAll();
    m.scanForMenu();
    model.reset();
    held.clean.answer(0, {category("Caches")});
    held.purge.answer(1, {project("~/a")});
    installers.answer(0, {installer("~/a.dmg")});
    probes.answer(0, blocked({"Desktop"}));
    probes.answer(1, blocked({"Desktop"}));
    script.lists.answer(0, std::vector<UninstallApp>{});
    clock.advance(std::chrono::seconds(20));
    pumpOnce();
    EXPECT_EQ(script.stopped, 1);
    EXPECT_TRUE(store.writes.empty());
}

} // namespace zolva::test
