pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Kit
import Zolva.Lists
import Zolva.Model

// One application: a press shows what it would take along, its box ticks it. With the keys it is
// shown where they stay, and ticked by Space. A screen reader finds one thing, and its press does
// both.
ListRow {
    id: row

    required property UninstallModel uninstall
    required property string rowId
    required property string name
    required property string trailing
    required property bool ticked
    required property bool inFocus
    required property string spokenValue
    readonly property alias head: head

    /// By the keys, on the way to another one or to stay.
    signal arrived

    function pick(shift: bool) {
        ListView.view.currentIndex = index;
        uninstall.pick(rowId, shift);
    }

    implicitHeight: 44
    inset: 12
    lineInset: 33
    target: head

    onActiveFocusChanged: {
        if (activeFocus)
            arrived();
    }

    PointerButton {
        id: head

        Accessible.checkable: true
        Accessible.checked: row.ticked
        activeFocusOnTab: row.isCurrent
        anchors.fill: parent
        focus: true
        ringInset: 2
        ringRadius: 9
        spokenHint: "Include this app in the next uninstall"
        spokenName: row.name
        spokenValue: row.spokenValue

        background: Rectangle {
            anchors.fill: parent
            anchors.margins: 2
            color: row.inFocus ? Theme.palette.accentTint : "transparent"
            radius: 9
        }

        // The press itself shows it.
        Accessible.onPressAction: row.pick(false)
        Keys.onReleased: event => event.accepted = event.key === Qt.Key_Space
        Keys.onSpacePressed: event => {
            if (!event.isAutoRepeat)
                row.pick((event.modifiers & Qt.ShiftModifier) !== 0);
        }
        onClicked: {
            row.ListView.view.currentIndex = row.index;
            row.uninstall.show(row.rowId);
        }

        CheckBox {
            id: box

            anchors.verticalCenter: parent.verticalCenter
            on: row.ticked
            x: 12
        }

        MouseArea {
            height: parent.height
            width: box.x + box.width + 12

            onClicked: mouse => row.pick((mouse.modifiers & Qt.ShiftModifier) !== 0)
        }

        Label {
            id: title

            Accessible.ignored: true
            anchors.left: box.right
            anchors.leftMargin: 14
            anchors.right: amount.left
            anchors.rightMargin: 12
            anchors.verticalCenter: parent.verticalCenter
            elide: Text.ElideRight
            maximumLineCount: 1
            size: 13.5
            text: row.name
            weight: Font.Medium
        }

        Label {
            id: amount

            Accessible.ignored: true
            anchors.baseline: title.baseline
            anchors.right: parent.right
            anchors.rightMargin: 12
            color: Theme.palette.label2
            size: 12.5
            text: row.trailing
        }

        HintTip {
            text: row.name
            visible: head.hovering && title.truncated
        }
    }
}
