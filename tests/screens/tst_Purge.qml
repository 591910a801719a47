import QtQuick
import QtTest
import Zolva.Kit
import Zolva.Model
import Zolva.Screens.Purge

ScreenCase {
    id: tests

    readonly property var mixed: [
        {p: "~/code/lantern", artifact: "node_modules", b: 3000000, age: 40},
        {p: "~/code/harbour", artifact: "target", b: 2000000, age: 6},
        {p: "~/code/meadow", artifact: "dist", b: 1000000, age: 1}
    ]

    name: "Purge"

    Component {
        id: screens

        PurgeScreen {
        }
    }

    function open(projects): Item {
        if (projects)
            fixture.setProjects(projects);
        return show(screens, {model: fixture.model});
    }

    function openMany(count: int): Item {
        fixture.projects(count);
        return show(screens, {model: fixture.model});
    }

    function rows(): var {
        return allTyped("PurgeRow").sort((a, b) => a.index - b.index);
    }

    function row(name: string): Item {
        return rows().find(row => row.name === name) ?? null;
    }

    function names(): var {
        return rows().map(row => row.name.slice(row.name.lastIndexOf("/") + 1));
    }

    function ticked(): var {
        return rows().filter(row => row.ticked).map(row => row.name.slice(row.name.lastIndexOf("/") + 1));
    }

    function test_beforeAnyScanThePageOffersOne() {
        open();
        verify(written("Purge"));
        verify(written("Build artifacts in your project folders. Anything touched in the last week is found but left unselected."));
        verify(written("Scan for build artifacts"));
        verify(written("Zolva looks through your project folders for node_modules, build output and other rebuildable artifacts."));
        compare(typed("ScanWelcome").icon, "hammer.fill");
        click(spoken("Scan"));
        compare(fixture.calls, ["purge scan"]);
        verify(written("Scanning…"));
        compare(spoken("Scan"), null);
    }

    function test_theEndOfTheScanBringsTheListAndTheKeyboardAlong() {
        open();
        spoken("Scan").forceActiveFocus(Qt.TabFocusReason);
        press(Qt.Key_Return);
        fixture.finishPurgeScan();
        settle();
        verify(typed("ListPage").activeFocus);
    }

    function test_withoutAFolderACardStandsInThePlaceOfTheRows() {
        open([]);
        const words = written("No build artifacts found in your project folders.");
        compare([words.size, words.padding], [13, 18]);
        compare(place(words.parent).x, 40);
        compare(words.parent.width, tests.width - 80);
        verify(spoken("Select all"));
        verify(!spoken("Purge 0 bytes").enabled);
        verify(!typed("RowsCard").visible);
    }

    function test_aRowShowsTheProjectItsFolderAndItsSize() {
        open(mixed);
        const lantern = row("~/code/lantern");
        const title = written("~/code/lantern", lantern);
        compare([title.size, title.weight, title.elide], [13.5, Font.Medium, Text.ElideMiddle]);
        const words = written("node_modules · 40 days old", lantern);
        compare(words.size, 12.5);
        compare(words.color.toString(), Theme.palette.label3.toString());
        const box = place(typed("CheckBox", lantern));
        compare(place(title).x - endX(box), 14);
        compare(written("3.0 MB", lantern).size, 14);
    }

    function test_sixDaysAreRecentAndSevenAreNot() {
        open([{p: "~/a", artifact: "dist", b: 2, age: 6}, {p: "~/b", artifact: "dist", b: 1, age: 7}]);
        const recent = written("dist · modified 6 days ago");
        compare(recent.color.toString(), Theme.palette.amber.toString());
        compare(recent.size, 12.5);
        const old = written("dist · 7 days old");
        compare(old.color.toString(), Theme.palette.label3.toString());
    }

    function test_oneDayKeepsThePlural() {
        open(mixed);
        verify(written("dist · modified 1 days ago"));
    }

    function test_aLongPathIsCutInItsMiddleAndLeavesTheSizeInSight() {
        const path = "~/code/" + "very-long-name/".repeat(30) + "end";
        open([{p: path, artifact: "dist", b: 3000000, age: 9}]);
        const title = written(path);
        verify(title.truncated);
        verify(endX(place(title)) < place(written("3.0 MB", row(path))).x);
        compare(row(path).height, 62);
    }

    function test_theWholeOfAPathThatIsCutIsTheTipUnderThePointer() {
        const path = "~/code/" + "very-long-name/".repeat(30) + "end";
        open([{p: path, artifact: "dist", b: 3000000, age: 9}, {p: "~/short", artifact: "dist", b: 2000000, age: 9}]);
        const tipOf = name => all(row(name).head, item => item.toString().startsWith("QQuickLoader"))[0].item;
        compare(tipOf(path), null);
        mouseMove(row(path).head, 300, 20);
        tryVerify(() => tipOf(path) !== null);
        compare(Array.from(tipOf(path).data).find(each => each instanceof HintTip).text, path);
        mouseMove(row("~/short").head, 300, 20);
        tryVerify(() => tipOf(path) === null);
        compare(tipOf("~/short"), null);
    }

    function test_aRowIsOneButtonThatSaysItsState() {
        open(mixed);
        const head = spoken("node_modules in ~/code/lantern");
        compare(head.Accessible.role, Accessible.Button);
        compare(head.Accessible.description, "Not selected. Include this build folder in the next purge");
        head.Accessible.pressAction();
        settle();
        compare(head.Accessible.description, "Selected, 3.0 MB will be deleted. Include this build folder in the next purge");
        verify(head.Accessible.checked);
        compare(allSpoken("node_modules in ~/code/lantern").length, 1);
    }

    function test_anExcludedRowSaysSoAndCannotBeTicked() {
        fixture.exclude("~/code/harbour");
        open(mixed);
        const harbour = row("~/code/harbour");
        compare(written("Protected", harbour).size, 12);
        verify(typed("CheckBox", harbour).dimmed);
        mouseClick(harbour, 200, 30);
        settle();
        compare(ticked(), []);
        click(spoken("Select all"));
        compare(ticked(), ["lantern", "meadow"]);
        verify(spoken("Deselect all"));
        verify(spoken("Purge 4.0 MB"));
        verify(written("2 projects selected"));
    }

    function test_theKeyboardComesToAnExcludedRowAndHearsWhy() {
        fixture.exclude("~/code/harbour");
        open(mixed);
        rows()[0].takeFocus();
        press(Qt.Key_Down);
        compare(focusedName(), "target in ~/code/harbour");
        compare(focused().Accessible.description, "Protected, cannot be selected. Include this build folder in the next purge");
        compare(allSpoken("target in ~/code/harbour").length, 1);
        verify(typed("FocusRing", focused()).visible);
        press(Qt.Key_Space);
        press(Qt.Key_Return);
        compare(ticked(), []);
        press(Qt.Key_Down);
        compare(focusedName(), "dist in ~/code/meadow");
        press(Qt.Key_Up);
        press(Qt.Key_Up);
        compare(focusedName(), "node_modules in ~/code/lantern");
    }

    function test_excludingATickedRowLeavesTheButtonsSize() {
        open(mixed);
        click(spoken("Select all"));
        verify(spoken("Purge 6.0 MB"));
        fixture.exclude("~/code/lantern/node_modules");
        settle();
        verify(spoken("Purge 3.0 MB"));
        verify(written("Protected", row("~/code/lantern")));
        fixture.unexclude("~/code/lantern/node_modules");
        settle();
        verify(spoken("Purge 6.0 MB"));
        verify(written("3.0 MB", row("~/code/lantern")));
    }

    function test_nothingIsTickedByAScanHoweverOld() {
        open(mixed);
        compare(ticked(), []);
        compare(written("0 projects selected"), null);
    }

    function test_theSortMenuOffersThreeOrders() {
        open(mixed);
        const menu = spoken("Largest first");
        compare(menu.entries.slice(), ["Largest first", "Oldest first", "Name"]);
        compare(names(), ["lantern", "harbour", "meadow"]);
        menu.chosen(2);
        settle();
        compare(names(), ["harbour", "lantern", "meadow"]);
        menu.chosen(1);
        settle();
        compare(names(), ["lantern", "harbour", "meadow"]);
        verify(spoken("Oldest first"));
    }

    function test_rescanScansAgain() {
        open(mixed);
        click(typed("RescanButton"));
        compare(fixture.calls.filter(call => call === "purge scan").length, 2);
        verify(written("Scanning…"));
    }

    function test_theBarCountsWhatIsTicked() {
        open(mixed);
        const note = written("Moved to the Trash, your next build will recreate them.");
        compare(note.size, 13);
        click(row("~/code/lantern").head);
        compare(written("1 project selected").size, 12.5);
        click(row("~/code/meadow").head);
        verify(written("2 projects selected"));
        const order = [note, written("2 projects selected"), spoken("Select all"), spoken("Purge 4.0 MB")];
        for (let i = 1; i < order.length; ++i)
            verify(endX(place(order[i - 1])) < place(order[i]).x);
        compare([spoken("Select all").font.pixelSize || spoken("Select all").font.pointSize, spoken("Select all").font.weight], [Face.text(13, Font.Medium).pixelSize || Face.text(13).pointSize, Font.Medium]);
        fixture.setKeepInTrash(false);
        settle();
        verify(written("Removed for good, your next build will recreate them."));
    }

    function test_theButtonIsFaintAndDeadWhileNothingIsTicked() {
        open(mixed);
        const button = spoken("Purge 0 bytes");
        verify(!button.enabled);
        compare(button.opacity, 0.45);
        click(row("~/code/harbour").head);
        compare(button.title, "Purge 2.0 MB");
        compare([button.enabled, button.opacity, button.radius, button.role], [true, 1, 9, PillButton.Accent]);
        click(button);
        verify(fixture.model.confirm.isOpen);
    }

    function test_shiftTicksAllBetweenTwoRowsAndUnticksNothing() {
        openMany(6);
        click(rows()[1].head);
        click(rows()[4].head, Qt.ShiftModifier);
        compare(rows().map(row => row.ticked), [false, true, true, true, true, false]);
        click(rows()[2].head, Qt.ShiftModifier);
        compare(rows().map(row => row.ticked), [false, true, true, true, true, false]);
    }

    function test_shiftInsideAnAllTickedRangeLeavesAllTicked() {
        openMany(4);
        click(spoken("Select all"));
        click(rows()[0].head);
        click(rows()[0].head);
        click(rows()[3].head, Qt.ShiftModifier);
        click(rows()[1].head, Qt.ShiftModifier);
        compare(rows().map(row => row.ticked), [true, true, true, true]);
    }

    function test_aRunHoldsThePageAndStopTakesTheKeyboard() {
        open(mixed);
        click(spoken("Select all"));
        spoken("Purge 6.0 MB").forceActiveFocus(Qt.TabFocusReason);
        fixture.setBulk("Removing build artifacts", 3, 1, "~/code/lantern/node_modules");
        settle();
        compare(typed("CollapsingPage").opacity, 0.5);
        mouseClick(rows()[0], 80, 30);
        settle();
        verify(rows()[0].ticked);
        compare(spoken("Deselect all"), null);
        compare(focusedName(), "Stop removing");
        click(spoken("Stop removing"));
        verify(written("Stopping…"));
        fixture.clearBulk();
        settle();
        compare(typed("CollapsingPage").opacity, 1);
    }

    function test_purgingRemovesWhatIsTickedAndScansAgain() {
        open(mixed);
        fixture.model.purge.pick("~/code/lantern/node_modules", false);
        fixture.model.purge.pick("~/code/meadow/dist", false);
        fixture.model.purge.remove();
        compare(fixture.model.confirm.title, "Move 4.0 MB of build artifacts to the Trash?");
        fixture.model.confirm.confirm();
        tryVerify(() => !fixture.model.bulk.present);
        compare(fixture.calls.filter(call => call.startsWith("trash ")).length, 2);
        verify(fixture.calls.filter(call => call.startsWith("trash ")).every(call => call.includes("node_modules") || call.includes("dist")));
        compare(fixture.calls.filter(call => call === "purge scan").length, 2);
        settle();
        verify(written("Scanning…"));
        fixture.setProjects([mixed[1]]);
        settle();
        compare(names(), ["harbour"]);
        verify(spoken("Purge 0 bytes"));
    }

    function test_allOfThePageIsReachedByTheTabKey() {
        open(mixed);
        click(spoken("Select all"));
        view.forceActiveFocus();
        typed("RescanButton").forceActiveFocus(Qt.TabFocusReason);
        let reached = [focusedName()];
        for (let i = 0; i < 4; ++i) {
            press(Qt.Key_Tab);
            reached.push(focusedName());
            verify(focused().visualFocus, reached[i]);
        }
        compare(reached, ["Rescan", "Largest first", "node_modules in ~/code/lantern", "Deselect all", "Purge 6.0 MB"]);
    }

    function test_tenThousandRowsAreMadeOnlyWhereTheyAreSeen() {
        openMany(10000);
        verify(all(typed("CollapsingPage"), item => item.toString().startsWith("PurgeRow_")).length < 60);
        const list = typed("CollapsingPage").listView;
        compare(list.count, 10000);
        list.positionViewAtEnd();
        settle();
        verify(rows().some(row => row.index === 9999));
        click(spoken("Select all"));
        verify(written("10000 projects selected"));
    }
}
