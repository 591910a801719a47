import QtQuick
import QtTest
import Zolva.Kit
import Zolva.Model
import Zolva.Screens.Clean

ScreenCase {
    id: tests

    name: "Clean"

    Component {
        id: screens

        CleanScreen {
        }
    }

    function open(): Item {
        return show(screens, {model: fixture.model});
    }

    function rows(): var {
        return allTyped("CleanRow").sort((a, b) => a.index - b.index);
    }

    function names(): var {
        return rows().map(row => row.name);
    }

    function test_beforeAnyScanThePageOffersOne() {
        open();
        verify(written("Clean"));
        verify(written(fixture.model.clean.subtitle));
        verify(written("Scan for cleanable files"));
        verify(written("Zolva looks through your caches, logs and build artifacts, the things macOS rebuilds on its own."));
        compare(typed("ScanWelcome").icon, "wand.and.sparkles");
        click(spoken("Scan"));
        compare(fixture.calls, ["clean scan"]);
    }

    function test_whileScanningNothingCanBeStartedAgain() {
        open();
        spoken("Scan").forceActiveFocus(Qt.TabFocusReason);
        press(Qt.Key_Return);
        verify(written("Scanning…"));
        compare(spoken("Scan"), null);
        press(Qt.Key_Return);
        press(Qt.Key_Space);
        compare(fixture.calls, ["clean scan"]);
        compare(typed("ListPage"), null);
    }

    function test_theEndOfTheScanBringsTheList() {
        fixture.beginCleanScan();
        open();
        compare(typed("ListPage"), null);
        fixture.finishCleanScan();
        settle();
        verify(typed("ListPage"));
    }

    function test_theKeyboardComesAlongToTheList() {
        open();
        spoken("Scan").forceActiveFocus(Qt.TabFocusReason);
        press(Qt.Key_Return);
        fixture.finishCleanScan();
        settle();
        verify(typed("ListPage").activeFocus);
    }

    function test_theSubtitleTellsWhereThingsGo() {
        fixture.categories(1, 1);
        open();
        verify(written("Caches and build artifacts your Mac rebuilds on its own. These go to the Trash, so you can put them back."));
        fixture.setKeepInTrash(false);
        settle();
        verify(written("Caches and build artifacts your Mac rebuilds on its own. Cleaning deletes them for good, so the space comes back straight away."));
    }

    function test_theSummaryCountsWhatIsTicked() {
        fixture.categories(3, 1);
        open();
        verify(written("0 of 3 categories selected"));
        verify(written("0 bytes", typed("CleanSummary")));
        fixture.model.clean.pick("Category 1", false);
        settle();
        verify(written("1 of 3 categories selected"));
        verify(written("3.0 MB", typed("CleanSummary")));
        compare(written("1 of 3 categories selected").size, 13);
    }

    function test_oneCategoryIsWrittenInTheSingular() {
        fixture.categories(1, 1);
        open();
        verify(written("0 of 1 category selected"));
    }

    function test_withoutACategoryACardStandsInThePlaceOfTheRows() {
        fixture.setCategories([]);
        open();
        const words = written("Nothing to clean right now. Your caches are already at their floor.");
        verify(words);
        compare([words.size, words.padding], [13, 18]);
        compare(place(words.parent).x, 40);
        compare(words.parent.width, tests.width - 80);
        verify(spoken("Select all"));
        verify(!spoken("Clean 0 bytes").enabled);
        compare(rows().length, 0);
        verify(!typed("RowsCard").visible);
    }

    function test_thePageOpensAtItsTopHoweverManyRowsItHas() {
        showWindow("home");
        for (let count = 1; count <= 14; ++count) {
            fixture.categories(count, 1);
            fixture.model.go("clean");
            settle();
            compare(typed("CollapsingPage").offset, 0, count + " rows");
            fixture.model.go("home");
            settle();
        }
    }

    function test_withACategoryThatCardIsGone() {
        fixture.categories(1, 1);
        open();
        compare(written("Nothing to clean right now. Your caches are already at their floor."), null);
        verify(typed("RowsCard").visible);
    }

    function test_theRowsStandOnOneCard() {
        fixture.categories(4, 1);
        open();
        const card = place(typed("RowsCard"));
        compare([card.x, card.width], [40, tests.width - 80]);
        compare(card.y, place(rows()[0]).y);
        compare(endY(card), endY(place(rows()[3])));
        fixture.model.clean.toggleOpen("Category 2");
        settle();
        compare(endY(place(typed("RowsCard"))), endY(place(rows()[3])));
    }

    function test_theSortMenuOffersTwoOrders() {
        fixture.setCategories([{name: "A", paths: [{p: "~/a", b: 1000}]}, {name: "B", paths: [{p: "~/b", b: 2000}]}]);
        open();
        const menu = spoken("Largest first");
        compare(menu.entries.slice(), ["Largest first", "Name"]);
        compare(names(), ["B", "A"]);
        menu.chosen(1);
        settle();
        compare(names(), ["A", "B"]);
        verify(spoken("Name"));
    }

    function test_theOrderIsKeptOnTheNextVisit() {
        fixture.setCategories([{name: "A", paths: [{p: "~/a", b: 1000}]}, {name: "B", paths: [{p: "~/b", b: 2000}]}]);
        showWindow("clean");
        fixture.model.clean.sort.choose(1);
        fixture.model.clean.toggleOpen("B");
        fixture.model.clean.pick("A", false);
        fixture.model.go("home");
        settle();
        fixture.model.go("clean");
        settle();
        compare(names(), ["A", "B"]);
        verify(rows()[1].open);
        verify(rows()[0].ticked);
    }

    function test_rescanScansAgainAndShowsTheWelcomePageMeanwhile() {
        fixture.categories(2, 1);
        open();
        click(typed("RescanButton"));
        compare(fixture.calls.filter(call => call === "clean scan").length, 2);
        verify(written("Scanning…"));
        fixture.finishCleanScan();
        settle();
        compare(names(), ["Category 1", "Category 2"]);
    }

    function test_theNoteTellsWhereThingsGo() {
        fixture.categories(1, 1);
        open();
        const note = written("Everything selected goes to the Trash. Your Mac rebuilds these on its own.");
        compare(note.size, 13);
        compare(note.color.toString(), Theme.palette.label3.toString());
        verify(note.width <= 420);
        compare(place(note).x, 40);
        fixture.setKeepInTrash(false);
        settle();
        verify(written("Everything selected is deleted for good. Your Mac rebuilds these on its own."));
    }

    function test_theNoteTellsWhatIsLeftOut() {
        fixture.setCategories([{name: "A", paths: [{p: "~/a", b: 1000}, {p: "~/b", b: 1000}, {p: "~/c", b: 5, prot: true}]}]);
        open();
        fixture.pickAll("clean");
        settle();
        verify(written("1 path protected and skipped."));
        fixture.exclude("~/b");
        settle();
        verify(written("2 paths protected and skipped."));
    }

    function test_theLinkTicksAllAndThenNone() {
        fixture.categories(3, 1);
        open();
        click(spoken("Select all"));
        compare(rows().map(row => row.ticked), [true, true, true]);
        compare(spoken("Select all"), null);
        fixture.model.clean.pick("Category 2", false);
        settle();
        verify(spoken("Select all"));
        click(spoken("Select all"));
        click(spoken("Deselect all"));
        compare(rows().map(row => row.ticked), [false, false, false]);
    }

    function test_theButtonIsFaintAndDeadWhileNothingIsTicked() {
        fixture.categories(2, 1);
        open();
        const button = spoken("Clean 0 bytes");
        verify(!button.enabled);
        compare(button.opacity, 0.45);
        fixture.model.clean.pick("Category 1", false);
        settle();
        compare(button.title, "Clean 2.0 MB");
        verify(button.enabled);
        compare(button.opacity, 1);
        compare([button.height, button.radius, button.role], [38, 9, PillButton.Accent]);
        click(button);
        verify(fixture.model.confirm.isOpen);
        compare(fixture.model.confirm.title, "Move 2.0 MB to the Trash?");
    }

    function test_theBarKeepsItsMeasures() {
        fixture.categories(2, 1);
        open();
        const bar = typed("ListBar");
        const button = spoken("Clean 0 bytes");
        compare(place(button, bar).y, 17);
        compare(bar.height - endY(place(button, bar)), 22);
        compare(endX(place(button)), tests.width - 40);
        compare(endY(place(bar)), tests.height);
        compare(endY(place(typed("CollapsingPage"))), place(bar).y);
    }

    function test_nothingFadesUnderASheet() {
        fixture.categories(2, 1);
        fixture.pickAll("clean");
        showWindow("clean");
        fixture.openSheet("erase");
        settle();
        compare(spoken("Clean 3.0 MB").opacity, 1);
        compare(typed("CollapsingPage").opacity, 1);
        compare(allTyped("CheckBox").map(box => box.opacity), [1, 1]);
    }

    function test_aRunTakesThePlaceOfTheBarAndHoldsThePage() {
        fixture.categories(3, 2);
        open();
        fixture.pickAll("clean");
        const row = rows()[0];
        fixture.setBulk("Cleaning", 4, 1, "~/Library/Caches/a");
        settle();
        const page = typed("CollapsingPage");
        compare(page.opacity, 0.5);
        mouseClick(row, 80, 30);
        mouseClick(row, row.width - 60, 30);
        settle();
        verify(row.ticked);
        verify(!row.open);
        compare(spoken("Deselect all"), null);
        compare(spoken("Clean 6.0 MB"), null);
        verify(spoken("Stop removing"));
        fixture.clearBulk();
        settle();
        compare(page.opacity, 1);
        verify(spoken("Deselect all"));
        verify(page.enabled);
    }

    function test_whileARunIsGoingTheTabKeyFindsOnlyStop() {
        fixture.categories(3, 2);
        open();
        fixture.setBulk("Cleaning", 4, 1, "~/a");
        settle();
        for (let i = 0; i < 3; ++i) {
            press(Qt.Key_Tab);
            compare(focusedName(), "Stop removing");
        }
    }

    function test_stopAsksTheRunToEnd() {
        fixture.categories(2, 1);
        fixture.pickAll("clean");
        showWindow("clean");
        fixture.holdDisk();
        fixture.model.clean.remove();
        fixture.model.confirm.confirm();
        verify(fixture.model.bulk.present);
        settle();
        click(spoken("Stop removing"));
        fixture.letDiskGo();
        tryVerify(() => !fixture.model.bulk.present);
        // The one that had begun, and not the other one.
        compare(fixture.calls.filter(call => call.startsWith("trash ")).length, 1);
    }

    function test_aRunThatWasAskedToEndSaysSo() {
        fixture.categories(2, 1);
        open();
        fixture.setBulk("Cleaning", 4, 1, "~/a");
        settle();
        click(spoken("Stop removing"));
        verify(written("Stopping…"));
        verify(written("1 of 4"));
    }

    function test_theKeyboardIsOnStopAfterItConfirmed() {
        fixture.categories(2, 1);
        fixture.pickAll("clean");
        showWindow("clean");
        spoken("Clean 3.0 MB").forceActiveFocus(Qt.TabFocusReason);
        press(Qt.Key_Return);
        tryCompare(fixture.model.confirm, "isOpen", true);
        fixture.openSheet("");
        fixture.setBulk("Cleaning", 4, 1, "~/a");
        settle();
        compare(focusedName(), "Stop removing");
    }

    function test_allOfThePageIsReachedByTheTabKey() {
        fixture.categories(3, 1);
        fixture.pickAll("clean");
        open();
        let reached = [];
        for (let i = 0; i < 6; ++i) {
            press(Qt.Key_Tab);
            reached.push(focusedName());
            verify(focused().visualFocus, reached[i]);
        }
        compare(reached, ["Rescan", "Largest first", "Category 1", "Category 1", "Deselect all", "Clean 6.0 MB"]);
    }

    function test_tenThousandRowsAreMadeOnlyWhereTheyAreSeen() {
        fixture.categories(10000, 1);
        open();
        verify(all(typed("CollapsingPage"), item => item.toString().startsWith("CleanRow_")).length < 60);
        const list = typed("CollapsingPage").listView;
        compare(list.count, 10000);
        list.positionViewAtEnd();
        settle();
        verify(rows().some(row => row.index === 9999));
        verify(all(typed("CollapsingPage"), item => item.toString().startsWith("CleanRow_")).length < 60);
        compare(endY(place(typed("RowsCard"))), endY(place(rows()[rows().length - 1])));
        fixture.pickAll("clean");
        settle();
        list.positionViewAtBeginning();
        settle();
        verify(written("10000 of 10000 categories selected"));
    }
}
