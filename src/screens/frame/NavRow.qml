pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import Zolva.Kit

// One row of the sidebar.
PointerButton {
    id: row

    property string label
    property string symbol
    property string chip
    property bool active: false

    Accessible.selectable: true
    Accessible.selected: active
    implicitHeight: 46
    ringColor: active ? "white" : Theme.palette.accent
    ringInset: 2 // the list cuts off what lies outside of the row
    ringRadius: 9
    spokenName: label
    spokenRole: Accessible.PageTab
    spokenValue: chip

    background: Item {
        Rectangle {
            anchors.fill: parent
            color: Theme.palette.cardHover
            radius: 9
            visible: row.hovering && !row.active
        }

        Rectangle {
            anchors.fill: parent
            color: Theme.palette.accent
            opacity: row.active ? 1 : 0
            radius: 9

            Behavior on opacity {
                NumberAnimation {
                    duration: Motion.selection
                    easing.type: Easing.InOutQuad
                }
            }
        }
    }
    contentItem: Item {
        RowLayout {
            spacing: 12

            anchors {
                fill: parent
                leftMargin: 12
                rightMargin: 12
            }

            Symbol {
                Layout.preferredHeight: 24
                Layout.preferredWidth: 24
                color: row.active ? "white" : Theme.palette.label2
                name: row.symbol
                size: 16
                weight: Font.Medium
            }

            Label {
                Accessible.ignored: true
                Layout.fillWidth: true
                color: row.active ? "white" : Theme.palette.label
                elide: Text.ElideRight
                size: 14
                text: row.label
                weight: row.active ? Font.DemiBold : Font.Normal
            }

            Label {
                Accessible.ignored: true
                color: row.active ? "white" : Theme.palette.label3
                opacity: row.active ? 0.85 : 1
                size: 12
                text: row.chip
                visible: row.chip !== ""
            }
        }
    }
}
