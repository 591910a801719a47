pragma ComponentBehavior: Bound

import QtQuick
import Zolva.Kit
import Zolva.Model

// One category; its paths below it while it is open.
Item {
    id: row

    required property CleanModel clean
    required property int index
    required property string rowId
    required property string name
    required property string desc
    required property bool ticked
    required property bool tickable
    required property string trailing
    required property int trailingKind
    required property string detail
    required property bool open
    required property string spokenValue
    required property list<pathLine> lines
    required property string more
    readonly property bool isLast: index === ListView.view.count - 1

    height: head.height + (open ? paths.height : 0) + 1

    PointerButton {
        id: head

        activeFocusOnTab: row.ListView.isCurrentItem
        checkable: false
        enabled: row.tickable
        height: 62
        ringRadius: 10
        spokenHint: "Include this category in the next clean"
        spokenName: row.name
        spokenValue: row.spokenValue
        width: row.width - 80
        x: 40

        Accessible.checkable: row.tickable
        Accessible.checked: row.ticked && row.tickable

        onClicked: row.clean.pick(row.rowId, head.shiftHeld)

        HoverFill {
            anchors.fill: parent
            anchors.leftMargin: -10
            anchors.rightMargin: -10
            base: "transparent"
            hover: Theme.palette.well
            hovering: head.hovering
            radius: 10
        }

        CheckBox {
            id: box

            anchors.verticalCenter: parent.verticalCenter
            dimmed: !row.tickable
            on: row.ticked && row.tickable
        }

        Column {
            anchors.left: box.right
            anchors.leftMargin: 14
            anchors.right: amount.left
            anchors.rightMargin: 16
            anchors.verticalCenter: parent.verticalCenter
            spacing: 3

            Label {
                elide: Text.ElideRight
                size: 14
                text: row.name
                weight: Font.Medium
                width: parent.width
            }

            Label {
                color: Theme.palette.label2
                elide: Text.ElideRight
                size: 12.5
                text: row.desc
                width: parent.width
            }
        }

        Label {
            id: amount

            anchors.right: parent.right
            anchors.rightMargin: 40
            anchors.verticalCenter: parent.verticalCenter
            color: row.trailingKind === CleanRows.Size ? Theme.palette.label : Theme.palette.label3
            size: row.trailingKind === CleanRows.Size ? 14 : row.trailingKind
                  === CleanRows.NeedsPassword ? 12.5 : 12
            text: row.trailing
            weight: row.trailingKind === CleanRows.Size ? Font.DemiBold : Font.Normal
        }
    }

    // Beside the rest of the row, so that it opens also what cannot be ticked.
    PointerButton {
        id: opener

        activeFocusOnTab: row.ListView.isCurrentItem
        anchors.right: head.right
        height: head.height
        ringRadius: 8
        spokenHint: row.open ? "Hides the list of paths" : "Shows the list of paths"
        spokenName: row.name
        spokenValue: row.detail
        width: 34

        onClicked: row.clean.toggleOpen(row.rowId)

        Chevron {
            anchors.centerIn: parent
            color: Theme.palette.label3
            open: row.open
            size: 12
        }
    }

    CleanPaths {
        id: paths

        anchors.top: head.bottom
        detail: row.detail
        lines: row.lines
        more: row.more
        visible: row.open
        width: row.width - 80 - 33
        x: 40 + 33
    }

    Separator {
        anchors.bottom: parent.bottom
        color: Theme.palette.sep2
        visible: !row.isLast
        width: row.width - 80
        x: 40
    }
}
