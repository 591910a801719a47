pragma ComponentBehavior: Bound
import QtQuick
import QtTest
import Zolva.Kit

Rectangle {
    id: ground

    color: Theme.palette.win
    height: 300
    width: 400

    PointerButton {
        id: bare

        height: 30
        spokenHint: "Shows the list of paths"
        spokenName: "Caches"
        spokenValue: "1 GB"
        width: 80
    }

    PillButton {
        id: pill

        title: "Clean"
        y: 50
    }

    PillButton {
        id: neutral

        hpad: 18
        role: PillButton.Neutral
        title: "Review Clean"
        y: 100
    }

    PillButton {
        id: destructive

        role: PillButton.Destructive
        title: "Delete"
        y: 150
    }

    LinkButton {
        id: link

        title: "Select all"
        y: 200
    }

    LinkButton {
        id: hoveredLink

        color: Theme.palette.label2
        hoverColor: Theme.palette.red
        title: "Stop"
        y: 230
    }

    SignalSpy {
        id: bareClicks

        signalName: "clicked"
        target: bare
    }

    SignalSpy {
        id: pillClicks

        signalName: "clicked"
        target: pill
    }

    TestCase {
        name: "KitButtons"
        when: windowShown

        function init() {
            mouseMove(ground, 390, 290);
            ground.forceActiveFocus();
            bareClicks.clear();
            pillClicks.clear();
            bare.enabled = true;
            pill.enabled = true;
            Theme.light = true;
        }

        function test_aClickPresses() {
            mouseClick(pill);
            compare(pillClicks.count, 1);
        }

        function test_noOtherButtonOfThePointerPresses() {
            for (const button of [Qt.RightButton, Qt.MiddleButton, Qt.BackButton])
                mouseClick(pill, 5, 5, button);
            compare(pillClicks.count, 0);
        }

        function test_aDisabledButtonIsPressedByNothing() {
            pill.forceActiveFocus(Qt.TabFocusReason);
            pill.enabled = false;
            mouseClick(pill);
            keyClick(Qt.Key_Space);
            keyClick(Qt.Key_Return);
            compare(pillClicks.count, 0);
        }

        function test_spaceReturnAndEnterPressTheFocusedButtonOnceEach() {
            bare.forceActiveFocus(Qt.TabFocusReason);
            for (const key of [Qt.Key_Space, Qt.Key_Return, Qt.Key_Enter])
                keyClick(key);
            compare(bareClicks.count, 3);
            compare(pillClicks.count, 0);
        }

        function test_otherKeysPressNothing() {
            bare.forceActiveFocus(Qt.TabFocusReason);
            keyClick(Qt.Key_A);
            keyClick(Qt.Key_Escape);
            compare(bareClicks.count, 0);
        }

        function test_tabGoesFromButtonToButton() {
            bare.forceActiveFocus(Qt.TabFocusReason);
            keyClick(Qt.Key_Tab);
            verify(pill.activeFocus);
            keyClick(Qt.Key_Backtab, Qt.ShiftModifier);
            verify(bare.activeFocus);
        }

        function test_theRingShowsForTheKeyboardAndNotForThePointer() {
            mouseClick(pill);
            verify(!pill.visualFocus);
            pill.forceActiveFocus(Qt.TabFocusReason);
            verify(pill.visualFocus);
            let ring = grabImage(ground);
            compare(ring.pixel(40, 48), Theme.palette.accent);
        }

        function test_aDisabledButtonIsNotHovered() {
            mouseMove(pill, 5, 5);
            tryVerify(() => pill.hovering);
            pill.enabled = false;
            verify(!pill.hovering);
        }

        function test_leavingEndsTheHover() {
            mouseMove(pill, 5, 5);
            tryVerify(() => pill.hovering);
            mouseMove(ground, 390, 290);
            tryVerify(() => !pill.hovering);
        }

        function test_shiftIsKnownAtAClick_data() {
            return [
                {
                    tag: "with",
                    modifiers: Qt.ShiftModifier,
                    held: true
                },
                {
                    tag: "without",
                    modifiers: Qt.NoModifier,
                    held: false
                },
                {
                    tag: "another key",
                    modifiers: Qt.ControlModifier,
                    held: false
                }
            ];
        }

        function test_shiftIsKnownAtAClick(row) {
            mouseClick(bare, 5, 5, Qt.LeftButton, Qt.ShiftModifier);
            mouseClick(bare, 5, 5, Qt.LeftButton, row.modifiers);
            compare(bareClicks.count, 2);
            compare(bare.shiftHeld, row.held);
        }

        function test_shiftIsKnownAtAKeyPress() {
            bare.forceActiveFocus(Qt.TabFocusReason);
            keyClick(Qt.Key_Space, Qt.ShiftModifier);
            verify(bare.shiftHeld);
            keyClick(Qt.Key_Space);
            verify(!bare.shiftHeld);
            keyClick(Qt.Key_Return, Qt.ShiftModifier);
            verify(bare.shiftHeld);
            compare(bareClicks.count, 3);
        }

        function test_valueAndHintAreSpokenAsTwoSentences() {
            compare(bare.Accessible.name, "Caches");
            compare(bare.Accessible.role, Accessible.Button);
            compare(bare.Accessible.description, "1 GB. Shows the list of paths");
        }

        function test_aValueOrAHintAloneIsSpokenAsItStands() {
            bare.spokenHint = "";
            compare(bare.Accessible.description, "1 GB");
            bare.spokenHint = "Shows the list of paths";
            bare.spokenValue = "";
            compare(bare.Accessible.description, "Shows the list of paths");
            bare.spokenValue = "1 GB";
        }

        function test_pillAndLinkAreSpokenOfByTheirTitles() {
            compare(pill.Accessible.name, "Clean");
            compare(link.Accessible.name, "Select all");
        }

        function test_aPillIs38HighAndPadded22UnlessToldOtherwise() {
            compare(pill.height, 38);
            compare(pill.leftPadding, 22);
            compare(pill.rightPadding, 22);
            compare(pill.radius, 9);
            compare(neutral.leftPadding, 18);
            verify(pill.width > 44);
        }

        function test_aPillsFillIsThatOfItsRole_data() {
            return [
                {
                    tag: "accent",
                    button: pill,
                    fill: "accent",
                    hover: "accentHover"
                },
                {
                    tag: "neutral",
                    button: neutral,
                    fill: "btn",
                    hover: "btnHover"
                },
                {
                    tag: "destructive",
                    button: destructive,
                    fill: "red",
                    hover: "redHover"
                }
            ];
        }

        function test_aPillsFillIsThatOfItsRole(row) {
            for (const light of [true, false]) {
                Theme.light = light;
                mouseMove(ground, 390, 290);
                tryVerify(() => !row.button.hovering);
                compare(row.button.background.color, Theme.palette[row.fill]);
                mouseMove(row.button, 5, 5);
                tryVerify(() => row.button.hovering);
                compare(row.button.background.color, Theme.palette[row.hover]);
            }
        }

        function test_aPillsTextIsWhiteUnlessNeutral() {
            compare(pill.contentItem.color, Qt.color("white"));
            compare(destructive.contentItem.color, Qt.color("white"));
            compare(neutral.contentItem.color, Theme.palette.label);
        }

        function test_aLinkTakesItsHoverColourOnlyWhereItHasOne() {
            compare(link.contentItem.color, Theme.palette.accent);
            mouseMove(link, 5, 5);
            tryVerify(() => link.hovering);
            compare(link.contentItem.color, Theme.palette.accent);
            verify(Qt.colorEqual(hoveredLink.contentItem.color, String(Theme.palette.label2)));
            mouseMove(hoveredLink, 5, 5);
            tryVerify(() => hoveredLink.hovering);
            compare(hoveredLink.contentItem.color, Theme.palette.red);
        }
    }
}
