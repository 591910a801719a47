pragma ComponentBehavior: Bound
import QtQuick
import QtTest
import Zolva.Frame
import Zolva.Kit
import Zolva.Test

FindingCase {
    id: test

    property Fixture fixture
    property Sidebar sidebar

    function init() {
        fixture = createTemporaryObject(fixtures, test);
        sidebar = createTemporaryObject(sidebars, test, {
            "model": fixture.model
        });
        view = sidebar;
        waitForRendering(sidebar);
    }
    function cleanup() {
        view = null;
        sidebar.destroy();
        wait(0);
    }
    function entry(place: int): SidebarEntry {
        return sidebar.listView.itemAtIndex(place) as SidebarEntry;
    }
    function activeRows() {
        let active = [];
        for (let i = 0; i < 8; ++i) {
            if (entry(i).row.active)
                active.push(entry(i).itemId);
        }
        return active;
    }
    function test_theRowsStandInTheirOrderWithTheirWords() {
        const ids = ["home", "clean", "purge", "installer", "uninstall", "analyze", "status", "settings"];
        const labels = ["Home", "Clean", "Purge", "Installers", "Uninstall", "Analyze", "Status", "Settings"];
        compare(sidebar.listView.count, 8);
        for (let i = 0; i < 8; ++i) {
            compare(entry(i).itemId, ids[i]);
            compare(entry(i).row.spokenName, labels[i]);
            verify(written(labels[i], entry(i).row));
        }
    }
    function test_theHeadsStandInUpperCaseAboveTheFirstOfEachGroup() {
        const heads = ["RECLAIM", "", "", "", "INSPECT", "", "SYSTEM", ""];
        for (let i = 0; i < 8; ++i) {
            compare(entry(i).head, heads[i]);
            if (heads[i] !== "") {
                const head = written(heads[i], entry(i));
                compare(head.size, 11.5);
                compare(head.weight, Font.DemiBold);
                compare(head.tracking, 0.6);
            } else {
                compare(entry(i).height, 46);
            }
        }
    }
    function test_itIsTwoHundredAndSixtyFourWideAndKeepsAStripOfFiftyFourClear() {
        compare(sidebar.implicitWidth, 264);
        compare(sidebar.listView.y, 54);
        compare(entry(0).row.height, 46);
    }
    function test_theRowsStandOneBelowTheOtherWhicheverIsActiveFromTheBeginning_data() {
        return ["home", "clean", "uninstall", "settings"].map(id => ({
                    "tag": id
                }));
    }
    function test_theRowsStandOneBelowTheOtherWhicheverIsActiveFromTheBeginning(data) {
        // Active before its row was made: a list without a height makes only the first one.
        const made = createTemporaryObject(sidebars, test, {
            "height": 0,
            "model": fixture.model
        });
        made.height = 660;
        fixture.model.go(data.tag);
        tryVerify(() => made.listView.itemAtIndex(7) !== null);
        made.height = 812;
        waitForRendering(made, 50);
        for (let i = 0, y = 0; i < 8; ++i) {
            const each = made.listView.itemAtIndex(i);
            compare(each.y, y);
            y += each.height;
        }
        made.destroy();
    }
    function test_onlyTheRowOfTheScreenIsActive() {
        compare(activeRows(), ["home"]);
        fixture.model.go("analyze");
        compare(activeRows(), ["analyze"]);
        compare(written("Analyze", entry(5).row).weight, Font.DemiBold);
        compare(written("Home", entry(0).row).weight, Font.Normal);
    }
    function test_anUnknownScreenLeavesNoRowActive() {
        fixture.model.go("elsewhere");
        compare(activeRows(), []);
    }
    function test_aClickOnARowGoesThere() {
        mouseClick(entry(2).row);
        compare(fixture.model.screen, "purge");
    }
    function test_theArrowsMoveTheFocusAndReturnGoesThere() {
        entry(0).row.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Down);
        keyClick(Qt.Key_Down);
        verify(entry(2).row.visualFocus);
        compare(fixture.model.screen, "home");
        keyClick(Qt.Key_Up);
        verify(entry(1).row.visualFocus);
        keyClick(Qt.Key_Return);
        compare(fixture.model.screen, "clean");
    }
    function test_theArrowsStopAtTheFirstAndTheLastRow() {
        entry(0).row.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Up);
        verify(entry(0).row.activeFocus);
        for (let i = 0; i < 12; ++i)
            keyClick(Qt.Key_Down);
        verify(entry(7).row.activeFocus);
    }
    function test_theTabKeyComesToTheRowOfTheScreenOnly() {
        fixture.setTrash(3, 1000);
        fixture.model.go("status");
        entry(6).row.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Tab);
        const button = spoken("Empty Trash");
        verify(button.activeFocus);
        keyClick(Qt.Key_Backtab);
        verify(entry(6).row.activeFocus);
    }
    function test_noChipIsShownBeforeAnythingWasScanned() {
        for (let i = 0; i < 8; ++i)
            compare(entry(i).row.chip, "");
        compare(written("95.59 GB", sidebar), null);
    }
    function test_aCleanChipOfZeroBytesIsShownAsTheSizeTextOfZero() {
        fixture.setCategories([]);
        fixture.beginCleanScan();
        fixture.finishCleanScan();
        compare(entry(1).row.chip, "0 bytes");
        verify(written("0 bytes", entry(1).row));
        compare(entry(1).row.spokenValue, "0 bytes");
    }
    function test_anInstallerChipOfZeroBytesIsHidden() {
        fixture.setInstallers([
                {
                    "name": "empty.dmg",
                    "src": "Downloads",
                    "p": "~/Downloads/empty.dmg",
                    "b": 0,
                    "age": 3
                }
            ]);
        fixture.beginInstallerScan();
        fixture.finishInstallerScan();
        compare(entry(3).row.chip, "");
        fixture.installers(2);
        fixture.beginInstallerScan();
        fixture.finishInstallerScan();
        verify(entry(3).row.chip !== "");
        verify(written(entry(3).row.chip, entry(3).row));
    }
    function test_withoutAnythingInTheTrashThereIsNoRowToEmptyItWhateverItsBytes() {
        fixture.setTrash(0, 5e9);
        compare(spoken("Empty Trash"), null);
    }
    function test_theTrashIsOfferedWithItsSizeAndAsksFirst() {
        fixture.setTrash(1, 5e9);
        const button = spoken("Empty Trash");
        tryCompare(button, "height", 34);
        compare(button.spokenValue, "5.00 GB");
        verify(written("5.00 GB", button));
        mouseClick(button);
        compare(fixture.model.confirm.isOpen, true);
        compare(fixture.model.confirm.title, "Empty the Trash?");
    }
    function test_aClickAfterTheTrashWasEmptiedAsksNothing() {
        fixture.setTrash(1, 5e9);
        const button = spoken("Empty Trash");
        fixture.setTrash(0, 0);
        button.clicked();
        compare(fixture.model.confirm.isOpen, false);
    }
    function test_theFooterTellsTheVersionsOnTwoLines() {
        const said = fixture.model.sidebar.versionLine + "\n" + fixture.model.sidebar.toolLine;
        verify(fixture.model.sidebar.versionLine.startsWith("Zolva "));
        verify(fixture.model.sidebar.toolLine.startsWith("mo "));
        const label = written(said, sidebar);
        verify(label);
        compare(label.lineCount, 2);
        compare(label.size, 12);
        compare(label.truncated, false);
    }
    function test_aRowKeepsItsMeasures() {
        fixture.setCategories([]);
        const row = entry(1).row;
        waitForRendering(sidebar, 50);
        const symbol = walk(row, item => item instanceof Symbol);
        compare([symbol.size, symbol.weight, symbol.width, symbol.height], [16, Font.Medium, 24, 24]);
        compare(symbol.mapToItem(row, 0, 0).x, 12);
        const label = written("Clean", row);
        compare(label.size, 14);
        compare(label.mapToItem(row, 0, 0).x, 12 + 24 + 12);
        const chip = written("0 bytes", row);
        compare(chip.size, 12);
        compare(chip.mapToItem(row, chip.width, 0).x, row.width - 12);
    }
    function test_theColoursOfARowTellWhetherItIsTheScreens() {
        fixture.setCategories([]);
        const row = entry(1).row;
        const chip = written("0 bytes", row);
        const colours = () => [walk(row, item => item instanceof Symbol).color, written("Clean", row).color, chip.color].map(String);
        const palette = Theme.palette;
        compare(colours(), [palette.label2, palette.label, palette.label3].map(String));
        compare(chip.opacity, 1);
        fixture.model.go("clean");
        compare(colours(), ["#ffffff", "#ffffff", "#ffffff"]);
        fuzzyCompare(chip.opacity, 0.85, 0.001);
    }
    function test_aHeadKeepsItsMeasures() {
        const head = written("RECLAIM", entry(0));
        compare([head.topPadding, head.bottomPadding, head.leftPadding], [18, 8, 16]);
        compare(head.color.toString(), Theme.palette.label3.toString());
    }
    function test_theRingOfARowIsWholeWithinTheList_data() {
        return [
            {
                "tag": "of another screen",
                "screen": "status",
                "colour": Theme.palette.accent
            },
            {
                "tag": "of the screen",
                "screen": "purge",
                "colour": "#ffffff"
            }
        ];
    }
    function test_theRingOfARowIsWholeWithinTheList(data) {
        fixture.model.go(data.screen);
        const row = entry(2).row;
        row.forceActiveFocus(Qt.TabFocusReason);
        verify(row.visualFocus);
        tryCompare(row.background.children[1], "opacity", data.screen === "purge" ? 1 : 0);
        waitForRendering(sidebar, 50);
        const image = grabImage(sidebar);
        const at = row.mapToItem(sidebar, 0, 0);
        const ring = (x, y) => {
            let found = 0;
            for (let by = 0; by < 6; ++by)
                found += image.pixel(x(by), y(by)).toString() === data.colour.toString() ? 1 : 0;
            return found;
        };
        compare(ring(by => at.x - 1 + by, () => at.y + 23), 2);
        compare(ring(by => at.x + row.width - 4 + by, () => at.y + 23), 2);
        compare(ring(() => at.x + 120, by => at.y - 1 + by), 2);
        compare(ring(() => at.x + 120, by => at.y + row.height - 4 + by), 2);
    }
    function test_allRowsFitTheSmallestWindow() {
        fixture.setTrash(1, 5e9);
        waitForRendering(sidebar);
        verify(sidebar.listView.contentHeight <= sidebar.listView.height);
    }

    height: 660
    name: "Sidebar"
    visible: true
    when: windowShown
    width: 400

    Component {
        id: fixtures

        Fixture {
        }
    }

    Component {
        id: sidebars

        Sidebar {
            height: 660
            width: 264
        }
    }
}
