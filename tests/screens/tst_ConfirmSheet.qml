import QtQuick
import QtTest
import Zolva.Kit
import Zolva.Sheets

ScreenCase {
    id: tests

    name: "ConfirmSheet"

    Component {
        id: sheets

        ConfirmSheet {
        }
    }

    function open(id: string): Item {
        fixture.openSheet(id);
        return show(sheets, {model: fixture.model});
    }

    function card(): Item {
        return sheet().card;
    }

    function sheet(): Item {
        return typed("ConfirmSheet");
    }

    function lines(): var {
        return allTyped("ConfirmLine").map(line => line.Accessible.name);
    }

    function confirmButton(): Item {
        return spoken("Confirm: " + fixture.model.confirm.button);
    }

    function symbol(): string {
        return typed("Mascot").symbol;
    }

    function test_cleaningIsAskedForWithItsPaths() {
        fixture.setCategories([{name: "A", paths: [{p: "~/a/1", b: 3000000}, {p: "~/a/2", b: 2000000}, {p: "~/a/3", b: 9, prot: true}]}, {name: "B",
                    paths: [{p: "~/b", b: 1000000}]}]);
        fixture.pickAll("clean");
        open("erase");
        verify(written("Move 6.0 MB to the Trash?"));
        verify(written("Removing 3 paths across 2 categories. They go to the Trash, so you can put them back. Your Mac rebuilds these caches on its own. Anything already in your Trash is left alone."));
        compare(symbol(), "sparkles");
        compare(confirmButton().title, "Clean");
        compare(lines(), ["~/a/1, 3.0 MB", "~/a/2, 2.0 MB", "~/b, 1.0 MB"]);
    }

    function test_onePathInOneCategoryIsWrittenInTheSingular() {
        fixture.setCategories([{name: "A", paths: [{p: "~/a/1", b: 3000000}]}]);
        fixture.pickAll("clean");
        fixture.setKeepInTrash(false);
        open("erase");
        verify(written("Delete 3.0 MB permanently?"));
        verify(written("Removing 1 path across 1 category. This cannot be undone. Your Mac rebuilds these caches on its own. Anything already in your Trash is left alone."));
    }

    function test_purgingIsAskedForWithItsFolders() {
        fixture.setProjects([{p: "~/code/one", artifact: "build", b: 4000000}]);
        fixture.pickAll("purge");
        open("purge");
        verify(written("Move 4.0 MB of build artifacts to the Trash?"));
        verify(written("Removing 1 build folder. They go to the Trash, so you can put them back. Your next build recreates them. Anything already in your Trash is left alone."));
        compare(symbol(), "folder.badge.minus");
        compare(confirmButton().title, "Purge");
        compare(lines(), ["~/code/one/build, 4.0 MB"]);
    }

    function test_oneInstallerIsWrittenInTheSingular() {
        fixture.setInstallers([{name: "a.dmg", p: "~/Downloads/a.dmg", b: 1000000}]);
        fixture.pickAll("installer");
        open("installer");
        verify(written("Move 1 installer to the Trash?"));
        verify(written("They go to the Trash, so you can put them back. The space comes back when you empty it. You can download them again from their source."));
        compare(symbol(), "shippingbox.fill");
        compare(confirmButton().title, "Move to Trash");
        compare(lines(), ["~/Downloads/a.dmg, 1.0 MB"]);
        fixture.setKeepInTrash(false);
        settle();
        verify(written("Delete 1 installer permanently?"));
        compare(confirmButton().title, "Delete");
    }

    function test_uninstallingIsAskedForWithThePathsAlone() {
        fixture.apps(2);
        fixture.pickAll("uninstall");
        open("uninstall");
        verify(written("Uninstall 2 apps?"));
        compare(symbol(), "trash.fill");
        compare(confirmButton().title, "Uninstall 2");
        compare(lines().slice().sort(), ["/Applications/App 1.app", "/Applications/App 2.app"]);
    }

    function test_noCheckedAppIsAskedForAsZero() {
        fixture.apps(2);
        open("uninstall");
        verify(written("Uninstall 0 apps?"));
        compare(confirmButton().title, "Uninstall 0");
        verify(!typed("ConfirmRows").visible);
    }

    function test_emptyingTheTrashHasNoRows() {
        fixture.setTrash(1, 2000000);
        open("emptytrash");
        verify(written("Empty the Trash?"));
        verify(written("1 item (2.0 MB) will be permanently deleted. This cannot be undone."));
        compare(symbol(), "trash.fill");
        compare(confirmButton().title, "Empty Trash");
        verify(!typed("ConfirmRows").visible);
    }

    function test_anUnknownSheetIsEmptyAndStillCloses() {
        open("nobody");
        compare(symbol(), "sparkles");
        compare(fixture.model.confirm.title, "");
        verify(card().width === 432);
        click(spoken("Cancel"));
        verify(!fixture.model.confirm.isOpen);
    }

    function test_fourteenRowsAreAllShown() {
        fixture.installers(14);
        fixture.pickAll("installer");
        open("installer");
        compare(lines().length, 14);
        compare(all(view, item => item instanceof Text && item.text.startsWith("and ")).length, 0);
    }

    function test_ofFifteenRowsOneIsCounted() {
        fixture.installers(15);
        fixture.pickAll("installer");
        open("installer");
        compare(lines().length, 14);
        const more = written("and 1 more");
        compare(more.size, 11.5);
        compare(more.color.toString(), Theme.palette.label3.toString());
    }

    function test_aLongPathIsShortened() {
        const path = "~/Library/Caches/com.example/" + "0123456789012345678901234567" + "/z";
        fixture.setInstallers([{name: "a", p: path, b: 1}, {name: "b", p: path.slice(0, 58), b: 1}]);
        fixture.pickAll("installer");
        open("installer");
        verify(written(path.slice(0, 24) + "…" + path.slice(-31)));
        verify(written(path.slice(0, 58)));
        verify(!written(path));
    }

    function test_aShortenedPathIsToldWhole() {
        const path = "~/Downloads/" + "long".repeat(20) + ".dmg";
        fixture.setInstallers([{name: "a", p: path, b: 1000000}, {name: "b", p: "~/b.dmg", b: 1}]);
        fixture.pickAll("installer");
        open("installer");
        compare(lines()[0], path + ", 1.0 MB");
        const tips = allTyped("ConfirmLine").map(line => Array.from(line.data).find(each => each instanceof HintTip));
        mouseMove(allTyped("ConfirmLine")[0], 30, 10);
        tryVerify(() => tips[0].opened);
        compare(tips[0].text, path);
        mouseMove(allTyped("ConfirmLine")[1], 30, 10);
        tryVerify(() => !tips[0].visible);
        verify(!tips[1].visible);
    }

    function test_theListIsAtMostOneHundredAndThirtyTwoHighAndScrolls() {
        fixture.installers(15);
        fixture.pickAll("installer");
        open("installer");
        const rows = typed("ConfirmRows");
        compare(rows.height, 132);
        compare(rows.color.toString(), Theme.palette.well.toString());
        verify(typed("PageScrollBar", rows).visible);
        const first = allTyped("ConfirmLine")[0];
        compare(place(first, rows), Qt.rect(12, 9, rows.width - 24, first.height));
        const list = spoken("What will be removed");
        list.forceActiveFocus(Qt.TabFocusReason);
        for (let i = 0; i < 30; ++i)
            keyClick(Qt.Key_Down);
        verify(list.contentY > 0);
        compare(list.contentY, list.contentHeight - list.height);
        for (let i = 0; i < 30; ++i)
            keyClick(Qt.Key_Up);
        compare(list.contentY, 0);
    }

    function test_theListIsShownFromItsBeginningEachTime() {
        fixture.installers(15);
        fixture.pickAll("installer");
        fixture.projects(15);
        fixture.pickAll("purge");
        open("installer");
        const list = spoken("What will be removed");
        list.forceActiveFocus(Qt.TabFocusReason);
        press(Qt.Key_Down);
        verify(list.contentY > 0);
        press(Qt.Key_Escape);
        verify(!fixture.model.confirm.isOpen);
        fixture.openSheet("installer");
        settle();
        compare(list.contentY, 0);
        list.forceActiveFocus(Qt.TabFocusReason);
        press(Qt.Key_Down);
        verify(list.contentY > 0);
        fixture.openSheet("purge");
        settle();
        compare(list.contentY, 0);
    }

    function test_aShortListIsOnlyAsHighAsItsRows() {
        fixture.installers(2);
        fixture.pickAll("installer");
        open("installer");
        const rows = typed("ConfirmRows");
        const line = allTyped("ConfirmLine")[0];
        compare(rows.height, 18 + 2 * line.height);
        verify(!typed("PageScrollBar", rows).visible);
    }

    function test_theCardKeepsItsMeasures() {
        fixture.installers(2);
        fixture.pickAll("installer");
        open("installer");
        compare(card().width, 432);
        compare(card().x, (view.width - 432) / 2);
        verify(Math.abs(card().y - (view.height - card().height) / 2) <= 0.5);
        const mascot = place(typed("Mascot"), card());
        compare(mascot, Qt.rect(172, 24, 88, 88));
        const title = written("Move 2 installers to the Trash?");
        compare([title.size, title.weight, title.horizontalAlignment], [15, Font.Bold, Text.AlignHCenter]);
        compare(place(title, card()).x, 26);
        compare(place(title, card()).y - endY(mascot), 14);
        const body = typed("Paragraph");
        compare([body.size, body.horizontalAlignment], [12.5, Text.AlignHCenter]);
        compare(body.color.toString(), Theme.palette.label2.toString());
        compare(place(body, card()).y - endY(place(title, card())), 14);
        const rows = place(typed("ConfirmRows"), card());
        compare(rows.y - endY(place(body, card())), 16);
        const cancel = place(spoken("Cancel"), card());
        const confirm = place(confirmButton(), card());
        compare(cancel.y - endY(rows), 20);
        compare(confirm.x - endX(cancel), 10);
        compare([cancel.x, endX(confirm), cancel.width], [26, 432 - 26, confirm.width]);
        compare(card().height - endY(confirm), 20);
    }

    function test_aRowKeepsItsMeasures() {
        fixture.installers(1);
        fixture.pickAll("installer");
        open("installer");
        const line = allTyped("ConfirmLine")[0];
        const label = written("~/Downloads/installer1.dmg", line);
        const size = written("1.0 MB", line);
        compare([label.size, label.mono, size.size, size.mono], [11.5, true, 11.5, false]);
        compare([label.color, size.color].map(String), [Theme.palette.label2, Theme.palette.label2].map(String));
        compare([place(label, line).y, line.height - endY(place(label, line))], [3.5, 3.5]);
        compare(place(size, line).x - endX(place(label, line)), 10);
        compare(endX(place(size, line)), line.width);
    }

    function test_theCardIsInTheColourOfASheetInBothThemes_data() {
        return [{tag: "light"}, {tag: "dark"}];
    }
    function test_theCardIsInTheColourOfASheetInBothThemes(row) {
        Theme.light = row.tag === "light";
        open("emptytrash");
        const ground = Array.from(card().children).find(item => item.radius === 14 && item.color !== undefined && item.strength === undefined);
        compare(ground.color.toString(), Theme.palette.sheet.toString());
        compare(place(ground, card()), Qt.rect(0, 0, card().width, card().height));
    }

    function test_aSheetWhoseListWasEmptiedConfirmsNothing() {
        fixture.categories(2, 1);
        fixture.pickAll("clean");
        open("erase");
        fixture.pickAll("clean", false);
        settle();
        verify(written("Move 0 bytes to the Trash?"));
        verify(written("Removing 0 paths across 0 categories. They go to the Trash, so you can put them back. Your Mac rebuilds these caches on its own. Anything already in your Trash is left alone."));
        verify(!typed("ConfirmRows").visible);
        const before = fixture.calls.length;
        click(confirmButton());
        verify(!fixture.model.confirm.isOpen);
        verify(!fixture.model.bulk.present);
        compare(fixture.calls.length, before);
    }

    function test_withoutRowsTheButtonsFollowTheBody() {
        fixture.setTrash(2, 1000);
        open("emptytrash");
        compare(place(spoken("Cancel"), card()).y - endY(place(typed("Paragraph"), card())), 20);
    }

    function test_theButtonsSayWhatTheyDo() {
        fixture.setTrash(2, 1000);
        open("emptytrash");
        compare(sheet().card.Accessible.role, Accessible.Dialog);
        compare(sheet().card.Accessible.name, "Empty the Trash?");
        compare(sheet().card.Accessible.description, "2 items (1 KB) will be permanently deleted. This cannot be undone.");
        const cancel = spoken("Cancel");
        compare(cancel.Accessible.description, "Closes this without removing anything");
        compare([cancel.role, cancel.font.pixelSize, cancel.font.weight], [PillButton.Neutral, 13, Font.Medium]);
        const confirm = spoken("Confirm: Empty Trash");
        compare(confirm.Accessible.description, "This cannot be undone");
        compare([confirm.role, confirm.font.weight], [PillButton.Destructive, Font.DemiBold]);
    }

    function test_theHintIsTheSameWhereThingsGoToTheTrash() {
        fixture.categories(1, 1);
        fixture.pickAll("clean");
        open("erase");
        compare(confirmButton().Accessible.description, "This cannot be undone");
    }

    function test_theWindowIsCoveredInTheColourOfTheScrim() {
        open("emptytrash");
        const scrim = sheet().children[0];
        compare(scrim.color.toString(), Theme.palette.scrim.toString());
        compare([scrim.width, scrim.height], [view.width, view.height]);
        const shadow = typed("zolva::Shadow") ?? walk(card(), item => item.strength === 0.5);
        compare([shadow.blur, shadow.strength], [20, 0.5]);
    }

    function test_cancelClosesAndDoesNothingElse() {
        fixture.categories(2, 1);
        fixture.pickAll("clean");
        open("erase");
        const before = fixture.calls.length;
        click(spoken("Cancel"));
        verify(!fixture.model.confirm.isOpen);
        verify(!fixture.model.bulk.present);
        compare(fixture.calls.length, before);
    }

    function test_aClickOnTheScrimClosesAndDoesNothingElse() {
        fixture.categories(2, 1);
        fixture.pickAll("clean");
        open("erase");
        const before = fixture.calls.length;
        mouseClick(view, 20, 20);
        verify(!fixture.model.confirm.isOpen);
        compare(fixture.calls.length, before);
    }

    function test_aClickOnTheCardClosesNothing() {
        open("emptytrash");
        mouseClick(card(), 200, 10);
        verify(fixture.model.confirm.isOpen);
    }

    function test_escapeCloses() {
        open("emptytrash");
        press(Qt.Key_Escape);
        verify(!fixture.model.confirm.isOpen);
    }

    function test_confirmingClosesFirstAndStartsTheRun() {
        fixture.categories(2, 1);
        fixture.pickAll("clean");
        open("erase");
        click(confirmButton());
        verify(!fixture.model.confirm.isOpen);
        tryVerify(() => fixture.calls.filter(call => call.startsWith("trash ")).length === 2);
        tryVerify(() => !fixture.model.bulk.present);
    }

    function test_returnPressesOnlyTheButtonOfTheKeyboard() {
        fixture.categories(1, 1);
        fixture.pickAll("clean");
        open("erase");
        tryVerify(() => focusedName() === "Cancel");
        press(Qt.Key_Return);
        verify(!fixture.model.confirm.isOpen);
        verify(!fixture.model.bulk.present);
        fixture.openSheet("erase");
        settle();
        tryVerify(() => focusedName() === "Cancel");
        press(Qt.Key_Right);
        compare(focusedName(), "Confirm: Clean");
        press(Qt.Key_Return);
        verify(!fixture.model.confirm.isOpen);
        tryVerify(() => fixture.calls.some(call => call.startsWith("trash ")));
        tryVerify(() => !fixture.model.bulk.present);
    }

    function test_anOpenSheetFollowsTheSelection() {
        fixture.categories(2, 1);
        fixture.pickAll("clean");
        open("erase");
        verify(written("Move 3.0 MB to the Trash?"));
        fixture.model.clean.pick("Category 2", false);
        settle();
        verify(written("Move 2.0 MB to the Trash?"));
        compare(lines().length, 1);
    }

    function test_goingToAnotherScreenClosesTheSheetAndRunsNothing() {
        fixture.categories(1, 1);
        fixture.pickAll("clean");
        open("erase");
        fixture.model.go("home");
        verify(!fixture.model.confirm.isOpen);
        verify(!fixture.model.bulk.present);
    }

    function test_theCardComesAndGoesByScaleAndOpacity() {
        Motion.reduced = false;
        open("");
        fixture.openSheet("");
        compare([sheet().arrival, sheet().visible, card().scale], [0, false, 0.94]);
        fixture.openSheet("emptytrash");
        compare(Motion.sheet, 180);
        // It has only begun.
        verify(sheet().arrival < 1);
        compare([card().scale, sheet().opacity], [0.94 + 0.06 * sheet().arrival, sheet().arrival]);
        tryCompare(sheet(), "arrival", 1);
        compare([card().scale, sheet().opacity], [1, 1]);
        fixture.openSheet("");
        // What it says stays until it has gone.
        verify(written("Empty the Trash?"));
        tryCompare(sheet(), "visible", false);
    }

    function test_withLessMotionTheCardIsThereAtOnce() {
        open("");
        fixture.openSheet("emptytrash");
        compare([sheet().arrival, card().scale], [1, 1]);
    }

    function test_theKeyboardCannotLeaveTheSheet() {
        fixture.categories(2, 16);
        fixture.pickAll("clean");
        showWindow("clean");
        fixture.openSheet("erase");
        tryVerify(() => focusedName() === "Cancel");
        let names = [];
        for (let i = 0; i < 6; ++i) {
            press(Qt.Key_Tab);
            names.push(focusedName());
        }
        compare(names, ["Confirm: Clean", "What will be removed", "Cancel", "Confirm: Clean", "What will be removed", "Cancel"]);
        press(Qt.Key_Backtab);
        compare(focusedName(), "What will be removed");
    }

    function test_thePointerReachesNothingBehindTheSheet() {
        fixture.categories(40, 1);
        fixture.pickAll("clean");
        showWindow("clean");
        fixture.openSheet("erase");
        settle();
        const row = allTyped("CleanRow")[0];
        const list = typed("CollapsingPage").listView;
        mouseClick(view, 30, 118);
        settle();
        compare(fixture.model.screen, "clean");
        fixture.openSheet("erase");
        settle();
        mouseWheel(row, 60, 30, 0, -1200);
        settle();
        compare(list.contentY, list.originY);
        mouseClick(row, 60, 30);
        settle();
        verify(row.ticked);
        compare(list.contentY, list.originY);
    }

    function test_theSecondPressOfADoubleClickReachesNothingBehindTheSheet() {
        Motion.reduced = false;
        fixture.categories(12, 1);
        fixture.pickAll("clean");
        showWindow("clean");
        fixture.openSheet("erase");
        tryCompare(sheet(), "arrival", 1);
        const cancel = place(spoken("Cancel"));
        const x = cancel.x + cancel.width / 2;
        const y = cancel.y + cancel.height / 2;
        mouseClick(view, x, y);
        verify(!fixture.model.confirm.isOpen);
        verify(sheet().visible);
        verify(!spoken("Cancel").enabled);
        mouseClick(view, x, y);
        compare(allTyped("CleanRow").filter(row => !row.ticked).length, 0);
        tryCompare(sheet(), "visible", false);
        mouseClick(view, x, y);
        compare(allTyped("CleanRow").filter(row => !row.ticked).length, 1);
    }

    function test_theKeyboardComesBackToWhereItWas() {
        fixture.categories(2, 1);
        fixture.pickAll("clean");
        showWindow("clean");
        const button = spoken("Clean 3.0 MB");
        button.forceActiveFocus(Qt.TabFocusReason);
        press(Qt.Key_Return);
        tryVerify(() => focusedName() === "Cancel");
        press(Qt.Key_Escape);
        tryVerify(() => focused() === button);
    }

    function test_theCardFitsTheSmallestWindow() {
        fixture.categories(3, 16);
        fixture.pickAll("clean");
        open("erase");
        view.width = 980;
        view.height = 660;
        settle();
        verify(card().y >= 20 && card().y + card().height <= 640);
    }
}
