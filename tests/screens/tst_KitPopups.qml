pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import QtTest
import Zolva.Kit

Rectangle {
    id: ground

    color: Theme.palette.win
    height: 300
    width: 400

    PopupMenu {
        id: menu

        property list<string> chosen

        x: 40
        y: 20

        PopupItem {
            current: true
            text: "Largest first"

            onTriggered: menu.chosen.push(text)
        }

        PopupItem {
            text: "Name, and a much longer entry than the others"

            onTriggered: menu.chosen.push(text)
        }

        PopupItem {
            enabled: false
            text: "Never"

            onTriggered: menu.chosen.push(text)
        }
    }

    PointerButton {
        id: button

        height: 26
        width: 26
        x: 200
        y: 200

        HintTip {
            id: tip

            delay: 0
            text: "Rescan"
            visible: button.hovering
        }
    }

    Flickable {
        id: flick

        T.ScrollBar.vertical: PageScrollBar {
            id: bar
        }
        contentHeight: 600
        height: 100
        width: 100
        y: 190
    }

    TestCase {
        name: "KitPopups"
        when: windowShown

        function init() {
            mouseMove(ground, 390, 10);
            menu.chosen = [];
            menu.open();
            tryVerify(() => menu.opened);
        }

        function cleanup() {
            menu.close();
            tryVerify(() => !menu.visible);
        }

        function test_arrowsAndReturnChooseAnEntry() {
            keyClick(Qt.Key_Down);
            keyClick(Qt.Key_Down);
            compare(menu.currentIndex, 1);
            keyClick(Qt.Key_Return);
            compare(menu.chosen, ["Name, and a much longer entry than the others"]);
            tryVerify(() => !menu.visible);
        }

        function test_escapeChoosesNothing() {
            keyClick(Qt.Key_Down);
            keyClick(Qt.Key_Escape);
            tryVerify(() => !menu.visible);
            compare(menu.chosen, []);
        }

        function test_aClickChoosesAnEntry() {
            mouseClick(menu.itemAt(0));
            compare(menu.chosen, ["Largest first"]);
        }

        function test_noOtherButtonOfThePointerChoosesAnEntry() {
            for (const button of [Qt.RightButton, Qt.MiddleButton, Qt.BackButton])
                mouseClick(menu.itemAt(0), 5, 5, button);
            compare(menu.chosen, []);
        }

        function test_aDisabledEntryCannotBeChosen() {
            mouseClick(menu.itemAt(2));
            compare(menu.chosen, []);
        }

        function test_theMenuIsAsWideAsItsWidestEntry() {
            verify(menu.width >= menu.itemAt(1).implicitWidth);
            compare(menu.itemAt(0).width, menu.itemAt(1).width);
        }

        function test_theEntryUnderThePointerIsTinted() {
            mouseMove(menu.itemAt(1), 10, 10);
            tryCompare(menu.itemAt(1).background, "color", Theme.palette.accentTint);
            verify(!Qt.colorEqual(menu.itemAt(0).background.color, Theme.palette.accentTint.toString()));
        }

        function test_theCurrentEntryIsSpokenOfAsChecked() {
            verify(menu.itemAt(0).Accessible.checked);
            verify(!menu.itemAt(1).Accessible.checked);
        }

        function test_theTipShowsWhileHovered() {
            menu.close();
            tryVerify(() => !menu.visible);
            mouseMove(button, 5, 5);
            tryVerify(() => tip.opened);
            mouseMove(ground, 390, 10);
            tryVerify(() => !tip.visible);
        }

        function test_theScrollBarIsThereOnlyForWhatDoesNotFit() {
            verify(bar.visible);
            flick.contentHeight = 50;
            verify(!bar.visible);
            flick.contentHeight = 600;
        }
    }
}
