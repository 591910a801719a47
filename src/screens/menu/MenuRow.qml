pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import Zolva.Kit

// One command of the panel, and its keys.
PointerButton {
    id: row

    required property string symbol
    required property string title
    required property string keys
    required property string shortcut

    implicitHeight: 30
    ringInset: 2
    ringRadius: 8
    spokenName: title
    spokenValue: shortcut

    background: Item {
        HoverFill {
            anchors.fill: parent
            anchors.leftMargin: 6
            anchors.rightMargin: 6
            hover: Theme.palette.cardHover
            hovering: row.hovering
            radius: 6
        }
    }
    contentItem: Item {
        RowLayout {
            spacing: 10

            anchors {
                fill: parent
                leftMargin: 16
                rightMargin: 16
            }

            Item {
                Layout.fillHeight: true
                Layout.preferredWidth: 20

                Symbol {
                    anchors.centerIn: parent
                    color: Theme.palette.label2
                    name: row.symbol
                    size: 14
                }
            }

            Label {
                Accessible.ignored: true
                Layout.fillWidth: true
                elide: Text.ElideRight
                size: 13
                text: row.title
            }

            Label {
                Accessible.ignored: true
                color: Theme.palette.label3
                size: 13
                text: row.shortcut
                visible: text !== ""
            }
        }
    }

    Shortcut {
        enabled: row.keys !== ""
        sequence: row.keys
        onActivated: row.press()
    }
}
