pragma ComponentBehavior: Bound
import QtQuick
import QtTest
import Zolva.Kit

Rectangle {
    id: ground

    color: "white"
    height: 300
    width: 400

    CheckBox {
        id: box
    }

    Chevron {
        id: chevron

        color: "red"
        size: 20
        x: 40
    }

    Mascot {
        id: mascot

        symbol: "trash.fill"
        x: 80
    }

    HoverFill {
        id: fill

        base: "red"
        height: 20
        hover: "blue"
        width: 20
        y: 100
    }

    Spinner {
        id: spinner

        y: 140
    }

    Label {
        id: label

        text: "<b>Caches</b>"
        y: 170
    }

    FieldLabel {
        id: field

        text: "Appearance"
        y: 200
    }

    Separator {
        id: line

        width: 100
        y: 230
    }

    MouseArea {
        id: below

        property int clicks: 0

        anchors.fill: parent
        hoverEnabled: true

        onClicked: clicks++
    }

    NoiseOverlay {
        id: grain

        anchors.fill: parent
        opacity: 0.04
    }

    TestCase {
        name: "KitParts"
        when: windowShown

        function init() {
            Theme.light = true;
            Motion.reduced = false;
            grain.visible = true;
            box.on = false;
            box.dimmed = false;
            mascot.tint = Qt.binding(() => Theme.palette.accent);
            spinner.visible = true;
        }

        function test_aCheckBoxIs19By19() {
            compare(box.width, 19);
            compare(box.height, 19);
            compare(box.radius, 5);
        }

        function test_aCheckBoxIsACardWithAStrokeUntilItIsOn() {
            compare(box.color, Theme.palette.card);
            grain.visible = false;
            let off = grabImage(ground);
            verify(off.red(9, 1) < off.red(9, 5) - 10, "a stroke at the edge");
            box.on = true;
            compare(box.color, Theme.palette.accent);
            let on = grabImage(ground);
            compare(on.pixel(9, 2), Theme.palette.accent);
            let white = 0;
            for (let y = 5; y < 14; ++y)
                for (let x = 5; x < 14; ++x)
                    white += on.red(x, y) > 100 ? 1 : 0;
            verify(white > 5, "a white mark, " + white);
        }

        function test_theSymbolsOfThePartsKeepTheirMeasures() {
            const stroke = box.children[0].border;
            compare([stroke.width, stroke.color.toString()], [1.4, Theme.palette.sep.toString()]);
            const mark = box.children[1];
            compare([mark.name, mark.size, mark.weight], ["checkmark", 9, Font.Bold]);
            compare([chevron.name, chevron.size, chevron.color.toString()], ["chevron.right", 20, "#ff0000"]);
            fuzzyCompare(mascot.children[0].size, 88 * 0.58, 0.001);
            compare(mascot.children[0].color.toString(), mascot.tint.toString());
        }

        function test_aDimmedCheckBoxIsPaler() {
            box.dimmed = true;
            verify(box.opacity < 0.5);
        }

        function test_anOpenChevronIsTurnedByAQuarter() {
            compare(chevron.rotation, 0);
            chevron.open = true;
            compare(chevron.rotation, 90);
            chevron.open = false;
        }

        function test_aMascotIsACircleInItsTintAtTheStrengthOfAccentTint() {
            compare(mascot.height, mascot.width);
            compare(mascot.radius, mascot.width / 2);
            compare(mascot.color, Theme.palette.accentTint);
            mascot.tint = "#ff0000";
            compare(mascot.color, Qt.rgba(1, 0, 0, Theme.palette.accentTint.a));
        }

        function test_aHoverFillChangesWhileHovered() {
            compare(fill.color, Qt.color("red"));
            fill.hovering = true;
            compare(fill.color, Qt.color("blue"));
            fill.hovering = false;
        }

        function test_theSpinnerTurns() {
            let step = spinner.step;
            tryVerify(() => spinner.step !== step);
        }

        function test_theSpinnerStandsStillWhereNobodySeesIt() {
            spinner.visible = false;
            verify(!spinner.running);
        }

        function test_theSpinnerStandsStillWhereLessMotionIsAskedFor() {
            Motion.reduced = true;
            verify(!spinner.running);
        }

        function test_withLessMotionThingsChangeAtOnce() {
            compare([Motion.sheet, Motion.selection, Motion.bar], [180, 200, 200]);
            compare(Motion.backdrop, 11000);
            Motion.reduced = true;
            compare([Motion.sheet, Motion.selection, Motion.bar], [0, 0, 0]);
        }

        function test_markupInATextIsShownAsWritten() {
            verify(label.implicitWidth > field.implicitWidth);
            compare(label.textFormat, Text.PlainText);
        }

        function test_aFieldLabelIsAHeadingInSemibold13() {
            compare(field.font, Face.text(13, Font.DemiBold));
            compare(field.Accessible.role, Accessible.Heading);
        }

        function test_aSeparatorIsOneHigh() {
            compare(line.height, 1);
            compare(line.color, Theme.palette.sep);
        }

        function test_theGrainLetsThePointerThrough() {
            mouseMove(ground, 300, 250);
            tryVerify(() => below.containsMouse);
            mouseClick(ground, 300, 250);
            compare(below.clicks, 1);
        }
    }
}
