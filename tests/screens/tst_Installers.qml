import QtQuick
import QtTest
import Zolva.Kit
import Zolva.Model
import Zolva.Screens.Installer

ScreenCase {
    id: tests

    readonly property var mixed: [
        {name: "Lumen.dmg", src: "Downloads", p: "~/Downloads/Lumen.dmg", b: 3000000, age: 64},
        {name: "Driver.pkg", src: "Desktop", p: "~/Desktop/Driver.pkg", b: 2000000, age: 1},
        {name: "Tern.dmg", src: "Downloads", p: "~/Downloads/Tern.dmg", b: 1000000, age: 300}
    ]

    name: "Installers"

    Component {
        id: screens

        InstallerScreen {
        }
    }

    function open(files): Item {
        if (files)
            fixture.setInstallers(files);
        return show(screens, {model: fixture.model});
    }

    function openMany(count: int): Item {
        fixture.installers(count);
        return show(screens, {model: fixture.model});
    }

    function rows(): var {
        return allTyped("InstallerRow").sort((a, b) => a.index - b.index);
    }

    function row(name: string): Item {
        return rows().find(row => row.name === name) ?? null;
    }

    function names(): var {
        return rows().map(row => row.name);
    }

    function ticked(): var {
        return rows().filter(row => row.ticked).map(row => row.name);
    }

    function revealer(name: string): Item {
        return typed("RevealButton", row(name));
    }

    function menu(): QtObject {
        return view.menu;
    }

    function entries(): var {
        return [menu().itemAt(0), menu().itemAt(1)];
    }

    function rightClick(item: Item) {
        mouseClick(item, 200, 30, Qt.RightButton);
        tryVerify(() => menu().opened);
    }

    function test_beforeAnyScanThePageOffersOne() {
        open();
        verify(written("Installers"));
        verify(written("Disk images and packages you already installed from. You can download them again if you ever need to."));
        verify(written("Scan for installers"));
        verify(written("Zolva finds the disk images and packages left in your Downloads and other folders after you installed from them."));
        compare(typed("ScanWelcome").icon, "opticaldisc.fill");
        click(spoken("Scan"));
        compare(fixture.calls, ["installer scan"]);
        verify(written("Scanning…"));
        fixture.finishInstallerScan();
        settle();
        verify(typed("ListPage"));
    }

    function test_withoutAFileACardStandsInThePlaceOfTheRows() {
        open([]);
        verify(written("No installers found in your Downloads and other folders."));
        verify(spoken("Select all"));
        verify(!spoken("Remove 0 bytes").enabled);
        verify(!typed("RowsCard").visible);
    }

    function test_aRowShowsNamePlaceAgeAndSize() {
        open(mixed);
        const lumen = row("Lumen.dmg");
        const title = written("Lumen.dmg", lumen);
        compare([title.size, title.weight, title.elide], [13.5, Font.Medium, Text.ElideMiddle]);
        const words = written("Downloads · 64 days old", lumen);
        compare(words.size, 12.5);
        compare(words.color.toString(), Theme.palette.label3.toString());
        const size = written("3.0 MB", lumen);
        verify(endX(place(size)) < place(revealer("Lumen.dmg")).x);
        verify(written("Desktop · 1 days old"));
    }

    function test_aRowIsOneButtonThatSaysItsState() {
        open(mixed);
        const head = spoken("Lumen.dmg");
        compare(head.Accessible.role, Accessible.Button);
        compare(head.Accessible.description, "Not selected. Include this installer in the next removal");
        head.Accessible.pressAction();
        settle();
        compare(head.Accessible.description, "Selected, 3.0 MB will be deleted. Include this installer in the next removal");
        verify(head.Accessible.checked);
        compare(allSpoken("Lumen.dmg").length, 1);
    }

    function test_theSortMenuOffersThreeOrders() {
        open(mixed);
        const sort = spoken("Largest first");
        compare(sort.entries.slice(), ["Largest first", "Oldest first", "Name"]);
        compare(names(), ["Lumen.dmg", "Driver.pkg", "Tern.dmg"]);
        sort.chosen(1);
        settle();
        compare(names(), ["Tern.dmg", "Lumen.dmg", "Driver.pkg"]);
        sort.chosen(2);
        settle();
        compare(names(), ["Driver.pkg", "Lumen.dmg", "Tern.dmg"]);
    }

    function test_rescanForgetsWhatWasTicked() {
        open(mixed);
        click(row("Lumen.dmg").head);
        compare(ticked(), ["Lumen.dmg"]);
        click(typed("RescanButton"));
        verify(written("Scanning…"));
        fixture.finishInstallerScan();
        settle();
        compare(ticked(), []);
    }

    function test_withNothingTickedTheBarSaysSoAndTheButtonIsDead() {
        open(mixed);
        compare(written("0 files selected · 0 bytes").size, 12.5);
        const button = spoken("Remove 0 bytes");
        compare([button.enabled, button.opacity], [false, 0.45]);
        compare(place(written("0 files selected · 0 bytes")).x, 40);
    }

    function test_theBarCountsWhatIsTicked() {
        open(mixed);
        click(row("Driver.pkg").head);
        verify(written("1 file selected · 2.0 MB"));
        click(row("Tern.dmg").head);
        verify(written("2 files selected · 3.0 MB"));
        const button = spoken("Remove 3.0 MB");
        compare([button.enabled, button.opacity, button.radius], [true, 1, 9]);
        click(button);
        verify(fixture.model.confirm.isOpen);
    }

    function test_theLinkTicksAllAndThenNone() {
        open(mixed);
        click(spoken("Select all"));
        compare(ticked().length, 3);
        click(spoken("Deselect all"));
        compare(ticked(), []);
    }

    function test_shiftWithoutAnAnchorFlipsOneRow() {
        openMany(5);
        click(rows()[2].head, Qt.ShiftModifier);
        compare(ticked(), ["installer3.dmg"]);
    }

    function test_shiftTicksAllBetweenTwoRowsAndUnticksNothing() {
        openMany(5);
        click(rows()[0].head);
        click(rows()[1].head);
        click(rows()[3].head, Qt.ShiftModifier);
        compare(rows().map(row => row.ticked), [true, true, true, true, false]);
        rows()[2].takeFocus();
        press(Qt.Key_Space, Qt.ShiftModifier);
        compare(rows().map(row => row.ticked), [true, true, true, true, false]);
    }

    function test_theFolderShowsTheFileAndTicksNothing() {
        open(mixed);
        compare(revealer("Driver.pkg").Accessible.name, "Show in Finder");
        click(revealer("Driver.pkg"));
        compare(fixture.calls.filter(call => call.startsWith("revealed")), ["revealed ~/Desktop/Driver.pkg"]);
        compare(ticked(), []);
    }

    function test_theFoldersTipIsMadeWhenThePointerComes() {
        open(mixed);
        const button = revealer("Lumen.dmg");
        compare(all(button, item => item.toString().startsWith("QQuickLoader"))[0].item, null);
        mouseMove(button, 10, 10);
        tryVerify(() => all(button, item => item.toString().startsWith("QQuickLoader"))[0].item !== null);
        mouseMove(view, 1, 1);
        tryVerify(() => all(button, item => item.toString().startsWith("QQuickLoader"))[0].item === null);
    }

    function test_theRowIsLitAlsoUnderItsFolder() {
        open(mixed);
        const fill = typed("HoverFill", row("Lumen.dmg").head);
        mouseMove(revealer("Lumen.dmg"), 10, 10);
        tryVerify(() => fill.color.toString() === Theme.palette.cardHover.toString());
        mouseMove(view, 1, 1);
        tryVerify(() => fill.color.toString() !== Theme.palette.cardHover.toString());
    }

    function test_theMenuOfARowOffersTwoDeeds() {
        open(mixed);
        rightClick(row("Driver.pkg"));
        compare(menu().count, 2);
        compare(entries().map(entry => entry.text), ["Show in Finder", "Remove"]);
        compare(entries().map(entry => entry.symbol), ["folder", "trash"]);
        compare(entries().map(entry => entry.isDestructive), [false, true]);
        compare(entries()[1].contentItem.color.toString(), Theme.palette.red.toString());
        verify(entries().every(entry => !entry.Accessible.checkable));
        compare(ticked(), []);
        entries()[0].triggered();
        compare(fixture.calls.filter(call => call.startsWith("revealed")), ["revealed ~/Desktop/Driver.pkg"]);
    }

    function test_theMenusRemoveRaisesNoSheetAndTakesThatRowAlone() {
        open(mixed);
        click(row("Lumen.dmg").head);
        rightClick(row("Driver.pkg"));
        entries()[1].Accessible.pressAction();
        tryVerify(() => !menu().visible);
        verify(!fixture.model.confirm.isOpen);
        settle();
        compare(names(), ["Lumen.dmg", "Tern.dmg"]);
        compare(ticked(), ["Lumen.dmg"]);
        tryVerify(() => !fixture.model.bulk.present);
        const moved = fixture.calls.filter(call => call.startsWith("trash "));
        compare(moved.length, 1);
        verify(moved[0].endsWith("Driver.pkg"));
    }

    function test_theMenuKeyOpensTheMenuOfTheFocusedRow_data() {
        return [{tag: "menu", key: Qt.Key_Menu, modifiers: Qt.NoModifier}, {tag: "shift F10", key: Qt.Key_F10, modifiers: Qt.ShiftModifier}];
    }
    function test_theMenuKeyOpensTheMenuOfTheFocusedRow(keys) {
        open(mixed);
        rows()[0].takeFocus();
        press(Qt.Key_Down);
        press(keys.key, keys.modifiers);
        tryVerify(() => menu().opened);
        press(Qt.Key_Escape);
        tryVerify(() => !menu().visible);
        compare(focusedName(), "Driver.pkg");
        verify(focused().visualFocus);
        press(keys.key, keys.modifiers);
        tryVerify(() => menu().opened);
        press(Qt.Key_Down);
        press(Qt.Key_Return);
        compare(fixture.calls.filter(call => call.startsWith("revealed")), ["revealed ~/Desktop/Driver.pkg"]);
        tryVerify(() => !menu().visible);
        compare(focusedName(), "Driver.pkg");
    }

    function test_theMenuGoesWithItsPage() {
        fixture.setInstallers(mixed);
        showWindow("installer");
        const menu = typed("InstallerScreen").menu;
        let top = view;
        while (top.parent)
            top = top.parent;
        mouseClick(rows()[0], 200, 30, Qt.RightButton);
        tryVerify(() => menu.opened);
        verify(spoken("Remove", top));
        const before = place(rows()[0], top);
        const shown = place(menu.contentItem.parent, top);
        compare([shown.x, shown.y], [before.x + 200, before.y + 30]);
        fixture.model.go("clean");
        settle();
        tryVerify(() => spoken("Remove", top) === null);
    }

    function test_theMenuGoesWithItsRow() {
        open(mixed);
        rightClick(row("Driver.pkg"));
        verify(menu().visible);
        fixture.model.installer.removeOne("~/Desktop/Driver.pkg");
        tryVerify(() => !menu().visible);
        tryVerify(() => !fixture.model.bulk.present);
    }

    function test_aRemovalByTheKeysLeavesTheKeyboardOnThePage() {
        fixture.setInstallers(mixed);
        showWindow("installer");
        const screen = typed("InstallerScreen");
        rows()[1].takeFocus();
        press(Qt.Key_Menu);
        tryVerify(() => screen.menu.opened);
        press(Qt.Key_Down);
        press(Qt.Key_Down);
        press(Qt.Key_Return);
        tryVerify(() => !fixture.model.bulk.present && !screen.menu.visible);
        settle();
        compare(names(), ["Lumen.dmg", "Tern.dmg"]);
        verify(typed("ListPage").activeFocus, focusedName());
    }

    function test_whatIsBesideTheRowsHasNoMenu() {
        open(mixed);
        mouseClick(view, 200, 60, Qt.RightButton);
        mouseClick(view, 200, view.height - 30, Qt.RightButton);
        wait(50);
        verify(!menu().visible);
    }

    function test_theCompactBarCoversTheMenusOfTheRowsBelowIt() {
        openMany(200);
        typed("CollapsingPage").listView.contentY += 600;
        settle();
        mouseClick(view, 200, 20, Qt.RightButton);
        wait(50);
        verify(!menu().visible);
    }

    function test_aToastCoversTheMenusOfTheRowsBelowIt() {
        fixture.installers(40);
        showWindow("installer");
        for (const text of ["First", "Second", "Third"])
            fixture.addToast("info", text);
        tryVerify(() => allTyped("ToastView").length === 3);
        settle();
        const toast = place(spoken("First"));
        const x = toast.x + toast.width / 2;
        const y = toast.y + toast.height / 2;
        const list = typed("CollapsingPage").listView;
        const menu = typed("InstallerScreen").menu;
        verify(rows().some(row => place(row).y < y && endY(place(row)) > y), "a row lies below");
        mouseClick(view, x, y, Qt.RightButton);
        mouseWheel(view, x, y, 0, -1200);
        wait(50);
        verify(!menu.visible);
        compare(list.contentY, list.originY);
        fixture.advance(10100);
        tryVerify(() => allTyped("ToastView").length === 0);
        mouseClick(view, x, y, Qt.RightButton);
        tryVerify(() => menu.opened);
    }

    function test_aRunHoldsThePageAndItsMenus() {
        open(mixed);
        fixture.setBulk("Removing installers", 3, 1, "~/Downloads/Lumen.dmg");
        settle();
        compare(typed("CollapsingPage").opacity, 0.5);
        mouseClick(rows()[0], 200, 30, Qt.RightButton);
        mouseClick(rows()[0], 200, 30);
        settle();
        verify(!menu().visible);
        compare(ticked(), []);
        verify(spoken("Stop removing"));
        compare(spoken("Select all"), null);
    }

    function test_whatIsConfirmedLeavesTheListAtOnceAndTheRestStays() {
        fixture.setInstallers(mixed);
        showWindow("installer");
        click(row("Lumen.dmg").head);
        click(row("Tern.dmg").head);
        fixture.holdDisk();
        fixture.model.installer.remove();
        fixture.model.confirm.confirm();
        settle();
        compare(names(), ["Driver.pkg"]);
        verify(fixture.model.bulk.present);
        fixture.letDiskGo();
        tryVerify(() => !fixture.model.bulk.present);
        compare(fixture.calls.filter(call => call.startsWith("trash ")).length, 2);
        compare(fixture.calls.filter(call => call === "installer scan").length, 1);
    }

    function test_aRowThatLeavesMovesNothingThatIsAboveIt() {
        openMany(200);
        const list = typed("CollapsingPage").listView;
        list.contentY += 3000;
        settle();
        const seen = rows().find(row => place(row).y > 100);
        const y = place(seen).y;
        fixture.model.installer.removeOne("~/Downloads/installer199.dmg");
        settle();
        compare(place(row(seen.name)).y, y);
        tryVerify(() => !fixture.model.bulk.present);
    }

    function test_allOfThePageIsReachedByTheTabKey() {
        open(mixed);
        click(spoken("Select all"));
        typed("RescanButton").forceActiveFocus(Qt.TabFocusReason);
        let reached = [focusedName()];
        for (let i = 0; i < 5; ++i) {
            press(Qt.Key_Tab);
            reached.push(focusedName());
            verify(focused().visualFocus, reached[i]);
        }
        compare(reached, ["Rescan", "Largest first", "Lumen.dmg", "Show in Finder", "Deselect all", "Remove 6.0 MB"]);
    }

    function test_tenThousandRowsAreMadeOnlyWhereTheyAreSeen() {
        openMany(10000);
        verify(all(typed("CollapsingPage"), item => item.toString().startsWith("InstallerRow_")).length < 60);
        click(spoken("Select all"));
        verify(written("10000 files selected · 50005.00 GB"));
    }
}
