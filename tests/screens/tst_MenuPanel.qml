import QtQuick
import QtTest
import Zolva.Kit
import Zolva.Screens.Menu

ScreenCase {
    id: tests

    name: "MenuPanel"

    Component {
        id: panels

        MenuBarView {
        }
    }

    Component {
        id: windows

        MenuWindow {
        }
    }

    SignalSpy {
        id: mains

        signalName: "mainWanted"
    }

    SignalSpy {
        id: ends

        signalName: "quitWanted"
    }

    SignalSpy {
        id: dismissals

        signalName: "dismissed"
    }

    function open(): Item {
        show(panels, {
            model: fixture.model,
            width: 320,
            height: 600
        });
        for (const spy of [mains, ends])
            spy.target = fixture.model.menu;
        dismissals.target = view;
        for (const spy of [mains, ends, dismissals])
            spy.clear();
        return view;
    }

    function openScanned(): Item {
        fixture.categories(2, 1);
        fixture.projects(1);
        fixture.installers(2);
        fixture.setTrash(3, 16000000);
        return open();
    }

    function reclaimRow(label: string): Item {
        return allTyped("ReclaimRowView").find(row => row.label === label) ?? null;
    }

    function command(title: string): Item {
        return allTyped("MenuRow").find(row => row.title === title) ?? null;
    }

    // The sum is not written while nothing is known of the categories.
    function test_beforeAnyScanItSaysThatItIsScanning() {
        open();
        verify(written("RECLAIMABLE"));
        verify(written("Scanning…"));
        compare(written("0 bytes", typed("ReclaimBlock").children[2]), null);
        compare(allTyped("ReclaimRowView").length, 4);
    }

    function test_theSumAndAllFourRowsStandInTheirOrder() {
        openScanned();
        compare(written("Scanning…"), null);
        const total = written(fixture.model.menu.totalText);
        compare(total.size, 26);
        compare(allTyped("ReclaimRowView").map(row => [row.symbol, row.label, row.count]), [["sparkles", "Caches",
                    "2 categorys"], ["folder.badge.minus", "Build artifacts", "1 project"], ["shippingbox.fill", "Installers",
                    "2 files"], ["trash.fill", "Trash", "3 items"]]);
        verify(written("16.0 MB", reclaimRow("Trash")));
    }

    function test_rowsOfNothingAreShownToo() {
        fixture.setCategories([]);
        open();
        compare(allTyped("ReclaimRowView").map(row => row.size), ["0 bytes", "0 bytes", "0 bytes", "0 bytes"]);
    }

    function test_withoutProtectedBytesThereIsNoLineOfThem() {
        fixture.setCategories([{name: "A", paths: [{p: "~/a", b: 4000000}]}]);
        open();
        compare(walk(view, item => item.visible && item instanceof Text && item.text.includes("protected")), null);
    }

    function test_protectedBytesHaveALineOfTheirOwn() {
        fixture.setCategories([{name: "A", paths: [{p: "~/a", b: 4000000}, {p: "~/b", b: 2000000, prot: true}]}]);
        open();
        compare(written("2.0 MB protected, not included").size, 11.5);
    }

    function test_aVolumeOfNoSizeIsNotFull() {
        open();
        verify(written("0% full"));
    }

    function test_theHeadIsOneThingToAScreenReader() {
        open();
        const head = typed("DiskHead");
        compare(head.Accessible.role, Accessible.StaticText);
        compare(head.Accessible.name, "Quiet Disk, 0 bytes free of 0 bytes");
        for (const label of all(head, item => item instanceof Text))
            verify(label.Accessible.ignored, label.text);
        compare(written("Quiet Disk").size, 14);
        compare(written("0% full").size, 11.5);
        compare(written("0% full").color.toString(), Theme.palette.label3.toString());
        compare(written("0 bytes", head).size, 17);
        compare(written("free of 0 bytes").size, 11.5);
    }

    function test_aTrashThatCannotBeReadNeedsAccess() {
        fixture.setTrash(0, 0, true);
        open();
        const row = reclaimRow("Trash");
        verify(written("access needed", row));
        compare(row.size, "");
        compare(row.Accessible.name, "Trash, access needed. macOS is blocking access.");
        compare(row.Accessible.description, "Empties the Trash, after confirming");
    }

    function test_aRowSaysWhatItHoldsAndWhereItLeads() {
        openScanned();
        const row = reclaimRow("Caches");
        compare(row.Accessible.role, Accessible.Button);
        compare(row.Accessible.name, "Caches, 2 categorys, " + row.size);
        compare(row.Accessible.description, "Opens Caches in Zolva");
    }

    function test_aRowLeadsToItsScreen_data() {
        return [{tag: "Caches", to: "clean"}, {tag: "Build artifacts", to: "purge"}, {tag: "Installers", to: "installer"}];
    }
    function test_aRowLeadsToItsScreen(row) {
        openScanned();
        click(reclaimRow(row.tag));
        compare(fixture.model.screen, row.to);
        compare([mains.count, dismissals.count], [1, 1]);
    }

    function test_theTrashRowBringsTheWindowAndItsSheet() {
        openScanned();
        click(reclaimRow("Trash"));
        compare(mains.count, 1);
        verify(fixture.model.confirm.isOpen);
    }

    function test_theRowOfAnEmptyTrashBringsTheWindowAndNoSheet() {
        fixture.setTrash(0, 0);
        open();
        click(reclaimRow("Trash"));
        compare(mains.count, 1);
        verify(!fixture.model.confirm.isOpen);
    }

    function test_rescanScansEverythingAnew_data() {
        return [{tag: "button"}, {tag: "keys"}];
    }
    function test_rescanScansEverythingAnew(row) {
        openScanned();
        const before = fixture.calls.length;
        if (row.tag === "keys")
            press(Qt.Key_R, Qt.ControlModifier);
        else
            click(spoken("Rescan"));
        compare(fixture.calls.slice(before).sort(), ["apps read", "clean scan", "installer scan", "purge scan"]);
        verify(written("Scanning…"));
        compare(dismissals.count, 0);
    }

    function test_theCommandsStandInTheirOrderWithTheirKeys() {
        open();
        compare(allTyped("MenuRow").map(row => [row.symbol, row.title, row.keys]), [["macwindow", "Open Zolva", "Ctrl+O"], [
                    "waveform.path.ecg", "Status", ""], ["gearshape", "Settings", "Ctrl+,"], ["power", "Quit Zolva",
                    "Ctrl+Q"]]);
        for (const row of allTyped("MenuRow")) {
            compare(row.height, 30);
            compare(row.Accessible.name, row.title);
            compare(row.Accessible.description, row.shortcut);
        }
        const keys = written(command("Quit Zolva").shortcut);
        compare([keys.size, keys.color.toString()], [13, Theme.palette.label3.toString()]);
        compare(endX(place(keys)), 320 - 16);
        const symbol = walk(command("Status"), item => item.name === "waveform.path.ecg" && item.size > 0);
        compare([symbol.parent.width, place(symbol.parent).x], [20, 16]);
    }

    function test_aCommandIsRunByClickAndByKeys_data() {
        return [{tag: "Open Zolva", key: Qt.Key_O, to: "home"}, {tag: "Settings", key: Qt.Key_Comma, to: "settings"}];
    }
    function test_aCommandIsRunByClickAndByKeys(row) {
        open();
        click(command(row.tag));
        compare([mains.count, fixture.model.screen], [1, row.to]);
        fixture.model.go("home");
        press(row.key, Qt.ControlModifier);
        compare([mains.count, dismissals.count, fixture.model.screen], [2, 2, row.to]);
    }

    function test_statusLeadsToItsScreen() {
        open();
        click(command("Status"));
        compare([mains.count, fixture.model.screen], [1, "status"]);
    }

    function test_quitIsAskedOfTheProgram_data() {
        return [{tag: "click"}, {tag: "keys"}];
    }
    function test_quitIsAskedOfTheProgram(row) {
        open();
        if (row.tag === "keys")
            press(Qt.Key_Q, Qt.ControlModifier);
        else
            click(command("Quit Zolva"));
        compare([ends.count, mains.count, dismissals.count], [1, 0, 1]);
    }

    function test_escapeSendsItAway() {
        open();
        press(Qt.Key_Escape);
        compare([dismissals.count, mains.count], [1, 0]);
    }

    function test_theTabKeyGoesThroughItFromTheTop_data() {
        return [{tag: "Tab", key: Qt.Key_Tab}, {tag: "Down", key: Qt.Key_Down}];
    }
    function test_theTabKeyGoesThroughItFromTheTop(row) {
        openScanned();
        const names = [];
        for (let i = 0; i < 10; ++i) {
            press(row.key);
            names.push(focusedName());
            verify(focused().visualFocus, names[i]);
        }
        compare(names, ["Rescan", reclaimRow("Caches").spoken, reclaimRow("Build artifacts").spoken, reclaimRow("Installers").spoken,
                reclaimRow("Trash").spoken, "Open Zolva", "Status", "Settings", "Quit Zolva", "Rescan"]);
        press(Qt.Key_Up);
        compare(focusedName(), "Quit Zolva");
    }

    function test_aRowIsPressedByTheKeyboard_data() {
        return [{tag: "Space", key: Qt.Key_Space}, {tag: "Return", key: Qt.Key_Return}];
    }
    function test_aRowIsPressedByTheKeyboard(row) {
        openScanned();
        reclaimRow("Installers").forceActiveFocus(Qt.TabFocusReason);
        press(row.key);
        compare(fixture.model.screen, "installer");
    }

    function test_aRowIsLitWhileThePointerIsOverIt_data() {
        return [{tag: "Installers", of: () => reclaimRow("Installers")}, {tag: "Settings", of: () => command("Settings")}];
    }
    function test_aRowIsLitWhileThePointerIsOverIt(row) {
        openScanned();
        const fill = typed("HoverFill", row.of());
        compare(fill.color.a, 0);
        mouseMove(row.of(), 60, 10);
        tryVerify(() => fill.color.toString() === Theme.palette.cardHover.toString());
        mouseMove(view, 1, 1);
        tryVerify(() => fill.color.a === 0);
    }

    function test_itKeepsItsMeasures() {
        openScanned();
        compare(view.implicitWidth, 320);
        const rows = allTyped("ReclaimRowView").map(row => place(row));
        for (let i = 1; i < 4; ++i) {
            compare(rows[i].y - endY(rows[i - 1]), 2);
            compare([rows[i].x, rows[i].width], [0, 320]);
        }
        compare(written("RECLAIMABLE").size, 9.5);
        compare(written("Caches").size, 13);
        compare(written(reclaimRow("Caches").size, reclaimRow("Caches")).horizontalAlignment, Text.AlignLeft);
        compare(endX(place(written(reclaimRow("Caches").size, reclaimRow("Caches")))), 320 - 16);
    }

    function test_nothingRunsOutOfItWithLongNames() {
        fixture.setVolumeName("A volume whose name is very much longer than there is room for in a panel");
        openScanned();
        fixture.model.menu.opened();
        settle();
        for (const label of all(view, item => item instanceof Text && item.visible))
            verify(endX(place(label)) <= 320 - 12, label.text);
    }

    function test_itsWindowIsAsLargeAsItAndHasNoFrame() {
        const window = windows.createObject(tests, {
            model: fixture.model
        });
        verify(window);
        compare([window.visible, window.width], [false, 320]);
        verify(window.flags & Qt.FramelessWindowHint);
        window.show();
        tryVerify(() => window.height > 400);
        window.dismiss();
        window.destroy();
        wait(0);
        // The next test's keys go to the window that is active.
        tests.Window.window.requestActivate();
        tryVerify(() => tests.Window.active);
    }
}
