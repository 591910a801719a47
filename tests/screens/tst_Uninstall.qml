import QtQuick
import QtTest
import Zolva.Kit
import Zolva.Model
import Zolva.Screens.Uninstall

ScreenCase {
    id: tests

    name: "Uninstall"

    Component {
        id: screens

        UninstallScreen {
        }
    }

    function open(): Item {
        return show(screens, {model: fixture.model});
    }

    /// "App 1" of 4 MB to "App 4" of 1 MB, the first one in focus.
    function openWithFour(): Item {
        fixture.apps(4);
        return open();
    }

    function rows(): var {
        return allTyped("AppRow").sort((a, b) => a.index - b.index);
    }

    function names(): var {
        return rows().map(row => row.name);
    }

    function ticks(): var {
        return rows().map(row => row.ticked);
    }

    function row(name: string): Item {
        return rows().find(row => row.name === name);
    }

    function clickBox(name: string, modifiers) {
        const box = walk(row(name), item => item.toString().startsWith("CheckBox_"));
        mouseClick(box, box.width / 2, box.height / 2, Qt.LeftButton, modifiers ?? Qt.NoModifier);
        settle();
    }

    function shared(place: string, owner): var {
        const made = {loc: place, p: "~/Library/" + place + "/org.example.app1", n: 12, b: 3500000, shared: true};
        return owner ? Object.assign(made, {sharedWith: owner}) : made;
    }

    function unshared(place: string): var {
        return {loc: place, p: "~/Library/" + place + "/App 1", n: 3, b: 2000000};
    }

    function test_beforeAnyReadingThePageOffersOne() {
        open();
        verify(written("Uninstall"));
        verify(written("Scan installed apps"));
        verify(written("Zolva lists the apps you've installed and the leftover files each one leaves behind."));
        compare(typed("ScanWelcome").icon, "square.grid.2x2.fill");
        compare(spoken("Rescan"), null);
        compare(typed("UninstallPanes"), null);
        click(spoken("Scan"));
        compare(fixture.calls, ["apps read"]);
    }

    function test_whileReadingNothingCanBeStartedAgain() {
        open();
        spoken("Scan").forceActiveFocus(Qt.TabFocusReason);
        press(Qt.Key_Return);
        verify(written("Scanning…"));
        compare(spoken("Scan"), null);
        compare(spoken("Rescan"), null);
        press(Qt.Key_Return);
        compare(fixture.calls, ["apps read"]);
    }

    function test_aFailureIsToldOnACardAndNothingElseIsOffered() {
        fixture.beginAppsScan();
        fixture.failAppsScan();
        open();
        const words = written("The list could not be read.");
        verify(words);
        const card = typed("ReadFailure");
        compare([place(card).x, card.width], [40, tests.width - 80]);
        const dot = all(card, item => item instanceof Rectangle && item.width === 8)[0];
        compare([dot.height, dot.radius], [8, 4]);
        compare(spoken("Scan"), null);
        compare(spoken("Rescan"), null);
        compare(typed("UninstallPanes"), null);
    }

    function test_theEndOfTheReadingBringsThePanesAndTheKeyboard() {
        open();
        spoken("Scan").forceActiveFocus(Qt.TabFocusReason);
        press(Qt.Key_Return);
        fixture.apps(3);
        settle();
        verify(typed("UninstallPanes").activeFocus);
        verify(spoken("Rescan"));
        compare(names(), ["App 1", "App 2", "App 3"]);
    }

    function test_rescanReadsTheListAfresh() {
        openWithFour();
        click(typed("RescanButton"));
        compare(fixture.calls.filter(call => call === "apps read").length, 2);
        verify(written("Scanning…"));
        compare(spoken("Rescan"), null);
        fixture.finishAppsScan();
        settle();
        compare(names().length, 4);
    }

    function test_theKeysRescanToo() {
        openWithFour();
        keyClick(Qt.Key_R, Qt.ControlModifier);
        settle();
        compare(fixture.calls.filter(call => call === "apps read").length, 2);
    }

    function test_theHeadHoldsSearchAndOrders() {
        openWithFour();
        const field = spoken("Search");
        compare([field.width, field.height], [180, 30]);
        compare(field.font.pixelSize, Face.text(12.5).pixelSize);
        const menu = spoken("Largest first");
        compare(menu.entries.slice(), ["Largest first", "Name"]);
        verify(endX(place(field)) < place(menu).x);
        compare(endX(place(menu)), tests.width - 40);
    }

    function test_theOrdersTakeTurns() {
        fixture.setApps([{name: "Apple", path: "/Applications/A.app", bundleBytes: 1000}, {name: "Berry", path: "/Applications/B.app", bundleBytes: 2000}]);
        open();
        compare(names(), ["Berry", "Apple"]);
        spoken("Largest first").chosen(1);
        settle();
        compare(names(), ["Apple", "Berry"]);
    }

    function test_theSearchIsTypedAndKeepsTheRowsThatHoldIt() {
        fixture.setApps([{name: "Lumen Editor", path: "/Applications/L.app", bundleBytes: 1000}, {name: "Tern", path: "/Applications/T.app", bundleBytes: 2000}]);
        open();
        keyClick(Qt.Key_F, Qt.ControlModifier);
        verify(spoken("Search").activeFocus);
        for (const key of [Qt.Key_E, Qt.Key_D, Qt.Key_I])
            keyClick(key);
        settle();
        compare(fixture.model.uninstall.query, "edi");
        compare(names(), ["Lumen Editor"]);
        verify(written("1 application"));
        press(Qt.Key_Escape);
        compare(spoken("Search").text, "");
        compare(names().length, 2);
        verify(written("2 applications"));
    }

    function test_aSearchThatMatchesNothingLeavesAnEmptyListAndSelectAllStays() {
        openWithFour();
        fixture.pickAll("uninstall");
        settle();
        verify(spoken("Deselect all"));
        fixture.model.uninstall.query = "nothing like it";
        settle();
        compare(names(), []);
        verify(written("0 applications"));
        verify(written("4 selected"));
        verify(spoken("Select all"));
        compare(written("App 1").size, 26);
    }

    function test_fromTheSearchTheKeyboardGoesDownToTheRows() {
        openWithFour();
        fixture.model.uninstall.query = "App";
        spoken("Search").forceActiveFocus(Qt.TabFocusReason);
        press(Qt.Key_Down);
        compare(focusedName(), "App 1");
    }

    function test_searchTicksAndFocusAreKeptForTheNextVisit() {
        fixture.apps(4);
        showWindow("uninstall");
        fixture.model.uninstall.query = "app";
        clickBox("App 2");
        click(row("App 3"));
        fixture.model.go("home");
        settle();
        fixture.model.go("uninstall");
        settle();
        compare(spoken("Search").text, "app");
        compare(ticks(), [false, true, false, false]);
        verify(row("App 3").inFocus);
        compare(typed("AppPane").detail.name, "App 3");
    }

    function test_theApplicationInFocusIsInSightFromTheBeginning() {
        fixture.apps(40);
        fixture.model.uninstall.show("org.example.app30/Applications/App 30.app");
        open();
        const list = place(typed("AppList").listView);
        const shown = place(row("App 30"));
        verify(shown.y >= list.y && endY(shown) <= endY(list), shown);
    }

    function test_aSearchThatLeavesFewRowsLeavesOneToTheTabKey() {
        fixture.apps(150);
        fixture.model.uninstall.show("org.example.app100/Applications/App 100.app");
        open();
        tryCompare(typed("AppList").listView, "currentIndex", 99);
        spoken("Search").forceActiveFocus(Qt.TabFocusReason);
        for (const letter of "app 14")
            keyClick(letter);
        tryCompare(typed("AppList").listView, "count", 11);
        compare(rows().filter(each => each.isCurrent).map(each => each.name), ["App 14"]);
        press(Qt.Key_Down);
        verify(rows().some(each => each.activeFocus));
    }

    function test_inAnotherOrderTheKeyboardBeginsAtTheSameApplication() {
        fixture.apps(4);
        fixture.model.uninstall.show("org.example.app3/Applications/App 3.app");
        open();
        fixture.model.uninstall.sort.choose(1);
        settle();
        fixture.model.uninstall.sort.choose(0);
        settle();
        compare(rows().filter(each => each.isCurrent).map(each => each.name), ["App 3"]);
        fixture.apps(2);
        settle();
        compare(rows().filter(each => each.isCurrent).length, 1);
    }

    function test_aListThatShowsItStaysAtItsTop() {
        fixture.apps(40);
        fixture.model.uninstall.show("org.example.app3/Applications/App 3.app");
        open();
        compare(typed("AppList").listView.contentY, 0);
    }

    function test_theListHasItsPlaceAndItsHead() {
        openWithFour();
        const list = typed("AppList");
        compare(list.width, 300);
        compare(written("4 applications").size, 13);
        compare(place(written("4 applications")).x, 40);
        compare(written("0 selected"), null);
        clickBox("App 1");
        compare(written("1 selected").size, 12.5);
        const link = spoken("Select all");
        compare(endX(place(link)), endX(place(list)) - 12);
    }

    function test_aRowShowsNameAndSize() {
        openWithFour();
        compare(place(walk(row("App 1"), item => item.toString().startsWith("CheckBox_"))).x, 40);
        verify(written("App 1", row("App 1")));
        verify(written("4.0 MB", row("App 1")));
    }

    function test_aRowIsOneThingToAReader() {
        openWithFour();
        compare(allSpoken("App 2").length, 1);
        const spokenRow = spoken("App 2");
        compare(spokenRow.Accessible.role, Accessible.Button);
        compare(spokenRow.Accessible.description, "Not selected. Include this app in the next uninstall");
        verify(spokenRow.Accessible.checkable);
        verify(!spokenRow.Accessible.checked);
        clickBox("App 2");
        compare(spokenRow.Accessible.description, "Selected for removal. Include this app in the next uninstall");
        verify(spokenRow.Accessible.checked);
    }

    function test_aReadersPressTicksTheRowAndShowsIt() {
        openWithFour();
        spoken("App 2").Accessible.pressAction();
        settle();
        compare(ticks(), [false, true, false, false]);
        verify(row("App 2").inFocus);
    }

    function test_aClickOnARowShowsItAndTicksNothing() {
        openWithFour();
        verify(row("App 1").inFocus);
        click(row("App 3"));
        compare(rows().map(row => row.inFocus), [false, false, true, false]);
        compare(ticks(), [false, false, false, false]);
        verify(written("App 3", typed("AppPane")));
        const fills = rows().map(row => row.head.background.color.a);
        verify(fills[2] > 0);
        compare([fills[0], fills[1], fills[3]], [0, 0, 0]);
    }

    function test_aClickOnABoxTicksAndShowsNothing() {
        openWithFour();
        clickBox("App 3");
        compare(ticks(), [false, false, true, false]);
        verify(row("App 1").inFocus);
        clickBox("App 3");
        compare(ticks(), [false, false, false, false]);
    }

    function test_shiftTicksTheRowsBetweenAndUnticksNone() {
        openWithFour();
        clickBox("App 4");
        clickBox("App 2", Qt.ShiftModifier);
        compare(ticks(), [false, true, true, true]);
        clickBox("App 3", Qt.ShiftModifier);
        compare(ticks(), [false, true, true, true]);
    }

    function test_spaceTicksAndWithShiftAllBetween() {
        openWithFour();
        row("App 1").takeFocus();
        press(Qt.Key_Space);
        compare(ticks(), [true, false, false, false]);
        press(Qt.Key_Down);
        press(Qt.Key_Down);
        press(Qt.Key_Space, Qt.ShiftModifier);
        compare(ticks(), [true, true, true, false]);
        press(Qt.Key_Space);
        compare(ticks(), [true, true, false, false]);
    }

    function test_theArrowsMoveAndWhereTheyRestTheApplicationIsShown() {
        openWithFour();
        row("App 1").takeFocus();
        press(Qt.Key_Down);
        keyClick(Qt.Key_Down);
        compare(focusedName(), "App 3");
        tryVerify(() => row("App 3").inFocus);
        press(Qt.Key_End);
        compare(focusedName(), "App 4");
        press(Qt.Key_Home);
        compare(focusedName(), "App 1");
        verify(focused().visualFocus);
    }

    function test_returnShowsAtOnce() {
        openWithFour();
        row("App 1").takeFocus();
        keyClick(Qt.Key_Down);
        keyClick(Qt.Key_Return);
        verify(row("App 2").inFocus);
        compare(ticks(), [false, false, false, false]);
    }

    function test_theTabKeyComesToTheApplicationInFocus() {
        fixture.apps(4);
        fixture.model.uninstall.show("org.example.app3/Applications/App 3.app");
        open();
        let reached = [];
        for (let i = 0; i < 5; ++i) {
            press(Qt.Key_Tab);
            reached.push(focusedName());
        }
        compare(reached, ["Rescan", "Search", "Largest first", "Select all", "App 3"]);
    }

    function test_theLinkTicksAllThatIsShownAndThenNoneOfIt() {
        openWithFour();
        fixture.model.uninstall.query = "App 2";
        settle();
        click(spoken("Select all"));
        verify(written("1 selected"));
        click(spoken("Deselect all"));
        compare(written("1 selected"), null);
        fixture.model.uninstall.query = "";
        settle();
        click(spoken("Select all"));
        compare(ticks(), [true, true, true, true]);
    }

    function test_withNoApplicationInFocusThePaneAsksForOne() {
        fixture.setApps([]);
        open();
        verify(written("0 applications"));
        const words = written("Select an application");
        verify(words);
        const pane = place(typed("AppPane"));
        fuzzyCompare(place(words).x + words.width / 2, pane.x + pane.width / 2, 1);
        compare(walk(typed("AppPane"), item => item instanceof Symbol && item.visible).name, "magnifyingglass");
    }

    function test_theApplicationInFocusIsDescribed() {
        fixture.setApps([{name: "Lumen Editor", path: "/Applications/L.app", bundleBytes: 1000000, version: "4.2.1", installed: "2026-11-21"}]);
        open();
        compare(written("Lumen Editor", typed("AppPane")).size, 26);
        compare(written("Lumen Editor", typed("AppPane")).weight, Font.DemiBold);
        const meta = typed("AppPane").detail.meta;
        verify(/^Version 4.2.1 · Installed .*2026$/.test(meta), meta);
        compare(written(meta).size, 13);
        compare(written("Scanning this app’s files…").size, 14);
        compare(written("No leftover files found for this app."), null);
    }

    function test_leftoversAreListedWithTheirPathsFilesAndSizes() {
        openWithFour();
        fixture.finishLeftovers([{loc: "Application bundle", p: "/Applications/App 1.app", n: 40, b: 4000000}, unshared("Logs")]);
        settle();
        verify(written("43 files in 2 locations · 6.0 MB including leftovers"));
        const found = allTyped("LeftoverRow");
        compare(found.map(row => row.modelData.place), ["Application bundle", "Logs"]);
        compare(written("Logs").size, 13);
        compare(written("~/Library/Logs/App 1").size, 12.5);
        compare(written("3 files").size, 12.5);
        compare(written("2.0 MB", found[1]).size, 13);
        compare(found[1].Accessible.name, "Logs");
        compare(found[1].Accessible.description, "3 files, 2.0 MB. ~/Library/Logs/App 1");
        compare(endX(place(typed("AppPane"))), tests.width);
        compare(endX(place(found[0])), tests.width - 40);
    }

    function test_anApplicationWithNoLeftoversSaysSo() {
        openWithFour();
        fixture.finishLeftovers([]);
        settle();
        verify(written("0 files in 0 locations · 4.0 MB including leftovers"));
        compare(written("No leftover files found for this app.").size, 13);
        compare(allTyped("LeftoverRow").length, 0);
    }

    function test_aSharedLeftoverNamesItsOtherOwner() {
        openWithFour();
        fixture.finishLeftovers([shared("Caches", "Lumen Editor Beta")]);
        settle();
        const tag = written("shared with Lumen Editor Beta");
        compare(tag.size, 11.5);
        compare(tag.color.toString(), Theme.palette.amber.toString());
        compare(written("Kept: Lumen Editor Beta uses this same path.").size, 11.5);
    }

    function test_aSharedLeftoverWithNoKnownOwnerIsAnotherApps() {
        openWithFour();
        fixture.finishLeftovers([shared("Caches")]);
        settle();
        verify(written("shared with another app"));
        verify(written("Kept: another installed app uses this same path."));
    }

    function test_inANarrowWindowNothingOverlaps() {
        fixture.apps(4);
        show(screens, {model: fixture.model, width: 716, height: 660});
        fixture.finishLeftovers(["Caches", "Containers", "Saved application state"].map(name => shared(name, "Something With A Long Name")));
        settle();
        for (const found of allTyped("LeftoverRow")) {
            const labels = all(found, item => item instanceof Text && item.visible && item.text !== "").map(item => place(item));
            for (let i = 0; i < labels.length; ++i) {
                verify(endX(labels[i]) <= 676, i);
                for (let j = 0; j < i; ++j)
                    verify(endX(labels[i]) <= labels[j].x || endX(labels[j]) <= labels[i].x || endY(labels[i]) <= labels[j].y || endY(labels[j]) <= labels[i].y, j + " " + i);
            }
        }
    }

    function test_whatDoesNotFitIsScrolledToByTheKeys() {
        fixture.apps(4);
        show(screens, {model: fixture.model, width: 716, height: 660});
        fixture.finishLeftovers(["Caches", "Containers", "Group Containers", "Preferences", "WebKit storage", "HTTP storage", "Cookies"].map(name => shared(name, "Another")));
        settle();
        const scroll = walk(typed("AppPane"), item => item instanceof Flickable);
        scroll.forceActiveFocus(Qt.TabFocusReason);
        press(Qt.Key_Down);
        compare(scroll.contentY, 40);
        click(row("App 2"));
        compare(scroll.contentY, 0);
    }

    function test_thePaneIsComeToByTheTabKeyOnlyWhereThereIsMoreThanFits() {
        openWithFour();
        const scroll = walk(typed("AppPane"), item => item instanceof Flickable);
        verify(!scroll.activeFocusOnTab);
        fixture.finishLeftovers(Array.from({length: 11}, (_, i) => shared("Place " + i, "Another")));
        settle();
        verify(scroll.activeFocusOnTab);
        compare(scroll.Accessible.name, "App 1");
    }

    function test_theBarTellsWhereThingsGo() {
        openWithFour();
        const note = written("Checked apps go to the Trash, along with their leftover files.");
        compare(note.size, 13);
        compare(place(note).x, 40);
        fixture.setKeepInTrash(false);
        settle();
        verify(written("Checked apps are removed for good, along with their leftover files."));
        compare(endY(place(typed("UninstallBar"))), tests.height);
    }

    function test_theButtonCountsTheTicksAndAsksFirst() {
        openWithFour();
        const button = spoken("Uninstall 0 apps");
        verify(!button.enabled);
        compare(button.opacity, 0.45);
        clickBox("App 1");
        compare(button.title, "Uninstall");
        compare(button.opacity, 1);
        compare([button.radius, button.role], [9, PillButton.Accent]);
        clickBox("App 3");
        compare(button.title, "Uninstall 2 apps");
        click(button);
        verify(fixture.model.confirm.isOpen);
        compare(fixture.model.confirm.title, "Uninstall 2 apps?");
    }

    function test_aRunTakesThePlaceOfTheBarAndTheListStaysLive() {
        openWithFour();
        fixture.setBulk("Emptying the Trash", 4, 1, "~/a");
        settle();
        compare(written("Checked apps go to the Trash, along with their leftover files."), null);
        verify(spoken("Stop removing"));
        clickBox("App 2");
        compare(ticks(), [false, true, false, false]);
        fixture.clearBulk();
        settle();
        verify(spoken("Uninstall"));
    }

    function test_whatIsUninstalledLeavesTheListAndTheNextIsShown() {
        fixture.apps(4);
        showWindow("uninstall");
        clickBox("App 1");
        fixture.model.uninstall.uninstall();
        fixture.model.confirm.confirm();
        settle();
        compare(names(), ["App 2", "App 3", "App 4"]);
        verify(row("App 2").inFocus);
        tryVerify(() => written("Uninstalled 1 app") !== null);
        compare(fixture.calls.filter(call => /^(trash|purge) /.test(call)), ["trash /Applications/App 1.app", "purge /trash/App 1.app"]);
    }

    function test_aBundleThatIsStuckComesBackAndIsOfferedToAuthenticate() {
        fixture.apps(2);
        fixture.hold("/Applications/App 1.app", true);
        showWindow("uninstall");
        clickBox("App 1");
        fixture.model.uninstall.uninstall();
        fixture.model.confirm.confirm();
        tryVerify(() => written("Couldn't uninstall 1 app. It may need an administrator password.") !== null);
        settle();
        compare(names(), ["App 1", "App 2"]);
        compare(ticks(), [false, false]);
        click(spoken("Authenticate…"));
        tryVerify(() => written("Uninstalled 1 app") !== null);
        compare(fixture.calls.filter(call => call.startsWith("admin ")), ["admin /Applications/App 1.app"]);
    }

    function test_aPasswordThatIsNotGivenLeavesTheBundle() {
        fixture.apps(2);
        fixture.hold("/Applications/App 1.app", false);
        showWindow("uninstall");
        clickBox("App 1");
        fixture.model.uninstall.uninstall();
        fixture.model.confirm.confirm();
        tryVerify(() => spoken("Authenticate…") !== null);
        settle();
        click(spoken("Authenticate…"));
        tryVerify(() => written("Still couldn't uninstall 1 app. The authentication may have been canceled.") !== null);
        settle();
        compare(names().length, 2);
    }

    function test_tenThousandRowsAreMadeOnlyWhereTheyAreSeen() {
        fixture.apps(10000);
        open();
        verify(all(view, item => item.toString().startsWith("AppRow_")).length < 60);
        const list = typed("AppList").listView;
        list.positionViewAtEnd();
        settle();
        verify(rows().some(row => row.index === 9999));
        click(spoken("Select all"));
        verify(written("10000 selected"));
    }
}
