import QtQuick
import QtTest
import Zolva.Frame
import Zolva.Kit

FindingCase {
    id: test

    function spyOn(target, signalName) {
        return createTemporaryObject(spies, test, {
            "target": target,
            "signalName": signalName
        });
    }
    function test_theTitleIsTwentyEightBoldAndTheSubtitleThirteenAndAHalf() {
        const made = createTemporaryObject(headers, test);
        const title = written("Clean", made);
        compare(title.size, 28);
        compare(title.weight, Font.Bold);
        compare(title.tracking, -0.6);
        const subtitle = written("Rebuilt when needed", made);
        compare(subtitle.size, 13.5);
        compare(subtitle.color.toString(), Theme.palette.label2.toString());
    }
    function test_aHeadWithoutASubtitleKeepsNoRoomForIt() {
        const made = createTemporaryObject(headers, test);
        const tall = made.implicitHeight;
        made.subtitle = "";
        tryVerify(() => made.implicitHeight < tall - 10);
    }
    function test_theRescanButtonSaysWhatItDoes() {
        const made = createTemporaryObject(rescans, test);
        compare(made.width, 26);
        compare(made.height, 26);
        compare(made.Accessible.name, "Rescan");
        compare(made.Accessible.description, "Runs the scan again and refreshes the list");
    }
    function test_aWelcomeThatDoesNotScanOffersToScan() {
        const made = createTemporaryObject(welcomes, test);
        const spy = spyOn(made, "scan");
        const button = typed("PillButton", made);
        verify(button.visible);
        compare(button.title, "Scan");
        compare(button.role, PillButton.Accent);
        compare(button.radius, 10);
        compare(button.font.weight, Font.DemiBold);
        mouseClick(button);
        compare(spy.count, 1);
        compare(written("Scanning…", made), null);
    }
    function test_aWelcomeThatScansSaysSoAndOffersNothing() {
        const made = createTemporaryObject(welcomes, test, {
            "scanning": true
        });
        compare(typed("PillButton", made).visible, false);
        compare(written("Scanning…", made).size, 13.5);
        verify(typed("Spinner", made).visible);
    }
    function test_theMessageOfAWelcomeIsAtMostFourHundredWide() {
        const made = createTemporaryObject(welcomes, test);
        waitForRendering(made);
        verify(written(made.message, made).width <= 400);
    }
    function test_theHeaderMenuIsThirtyHighAndTellsWhichEntryWasChosen() {
        const made = createTemporaryObject(menus, test);
        compare(made.height, 30);
        compare(made.symbol, "arrow.up.arrow.down");
        compare(made.Accessible.name, "Size");
        const spy = spyOn(made, "chosen");
        made.forceActiveFocus(Qt.TabFocusReason);
        keyClick(Qt.Key_Space);
        tryVerify(() => made.menu.opened);
        compare(made.menu.count, 2);
        verify(made.menu.itemAt(0).current);
        compare(made.menu.itemAt(1).current, false);
        keyClick(Qt.Key_Down);
        tryVerify(() => made.menu.currentIndex >= 0);
        while (made.menu.currentIndex < 1)
            keyClick(Qt.Key_Down);
        keyClick(Qt.Key_Return);
        compare(spy.count, 1);
        compare(spy.signalArguments[0][0], 1);
        tryVerify(() => !made.menu.opened);
        tryVerify(() => made.activeFocus);
    }
    function test_escClosesTheHeaderMenuAndChoosesNothing() {
        const made = createTemporaryObject(menus, test);
        const spy = spyOn(made, "chosen");
        mouseClick(made);
        tryVerify(() => made.menu.opened);
        keyClick(Qt.Key_Escape);
        tryVerify(() => !made.menu.visible);
        compare(spy.count, 0);
    }
    function test_theHeadKeepsItsMeasures() {
        const made = createTemporaryObject(headers, test, {
            "canRescan": true,
            "trailing": menus
        });
        waitForRendering(made, 50);
        const title = written("Clean", made);
        const subtitle = written("Rebuilt when needed", made);
        const at = item => item.mapToItem(made, 0, 0);
        compare([at(title).x, at(title).y], [40, 40]);
        compare(at(subtitle).y - at(title).y - title.height, 2);
        const rescan = typed("RescanButton", made);
        const menu = typed("HeaderMenu", made);
        compare(at(menu.parent).x - at(rescan).x - rescan.width, 10);
        compare(at(menu.parent).x + menu.parent.width, 700 - 40);
    }
    function test_theRescanSymbolIsThirteenAndLitUnderThePointer() {
        const made = createTemporaryObject(rescans, test, {
            "x": 100,
            "y": 100
        });
        const symbol = made.contentItem.children[0];
        compare([symbol.name, symbol.size, symbol.weight], ["arrow.clockwise", 13, Font.DemiBold]);
        compare(symbol.color.toString(), Theme.palette.label2.toString());
        mouseMove(made, 13, 13);
        tryVerify(() => symbol.color.toString() === Theme.palette.label.toString());
        compare(made.background.color.toString(), Theme.palette.btnHover.toString());
        mouseMove(test, 1, 1);
        tryVerify(() => symbol.color.toString() === Theme.palette.label2.toString());
    }
    function test_theHeaderMenuKeepsItsMeasures() {
        const made = createTemporaryObject(menus, test);
        waitForRendering(made, 50);
        const words = written("Size", made);
        compare([words.size, words.weight], [12.5, Font.Medium]);
        const symbol = words.parent.children[0];
        compare([symbol.size, symbol.weight], [11, Font.DemiBold]);
        compare(words.x - symbol.x - symbol.width, 6);
        fuzzyCompare(symbol.mapToItem(made, 0, 0).x, 12, 0.6);
        fuzzyCompare(made.width - words.mapToItem(made, words.width, 0).x, 12, 0.6);
    }
    function test_theWelcomeKeepsItsMeasures() {
        const made = createTemporaryObject(welcomes, test);
        waitForRendering(made, 50);
        const title = written("Scan for cleanable files", made);
        compare([title.size, title.weight], [19, Font.DemiBold]);
        const message = written(made.message, made);
        compare(message.size, 13.5);
        compare(message.color.toString(), Theme.palette.label2.toString());
        const symbol = title.parent.children[0];
        compare([symbol.name, symbol.size], ["wand.and.sparkles", 44]);
        compare(symbol.color.toString(), Theme.palette.accent.toString());
        compare(typed("PillButton", made).font.pixelSize, 15);
    }
    function test_aSecondClickClosesTheHeaderMenu() {
        const made = createTemporaryObject(menus, test);
        mouseClick(made);
        tryVerify(() => made.menu.opened);
        mouseClick(made);
        tryVerify(() => !made.menu.visible);
        wait(50);
        verify(!made.menu.visible);
        mouseClick(made);
        tryVerify(() => made.menu.opened);
        mouseClick(test, 20, 450);
        tryVerify(() => !made.menu.visible);
    }
    function test_theActionBarIsAsHighAsItsContentAndItsPadding() {
        const made = createTemporaryObject(bars, test);
        compare(made.implicitHeight, 1 + 16 + 38 + 22);
        const content = findChild(made, "content");
        compare(content.mapToItem(made, 0, 0).x, 40);
        compare(content.mapToItem(made, 0, 0).y, 17);
        compare(content.width, 620);
    }

    height: 500
    name: "PageParts"
    visible: true
    when: windowShown
    width: 700

    Component {
        id: headers

        PageHeader {
            subtitle: "Rebuilt when needed"
            title: "Clean"
            width: 700
        }
    }

    Component {
        id: rescans

        RescanButton {
        }
    }

    Component {
        id: welcomes

        ScanWelcome {
            height: 500
            icon: "wand.and.sparkles"
            message: "Zolva looks through your caches, logs and build artifacts, the things that the system rebuilds on its own."
            title: "Scan for cleanable files"
            width: 700
        }
    }

    Component {
        id: menus

        HeaderMenu {
            current: 0
            entries: ["Size", "Name"]
            label: "Size"
            x: 300
        }
    }

    Component {
        id: bars

        ActionBar {
            width: 700

            Item {
                height: 38
                objectName: "content"
                width: parent.width
            }
        }
    }

    Component {
        id: spies

        SignalSpy {
        }
    }
}
