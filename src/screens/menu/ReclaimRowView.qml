pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import Zolva.Kit

// One kind of what can be reclaimed; leads to where that is done.
PointerButton {
    id: row

    required property string label
    required property string symbol
    required property string count
    required property string size
    required property string spoken
    required property string hint

    implicitHeight: 42
    ringInset: 2
    ringRadius: 9
    spokenHint: hint
    spokenName: spoken

    background: Item {
        HoverFill {
            anchors.fill: parent
            anchors.leftMargin: 6
            anchors.rightMargin: 6
            hover: Theme.palette.cardHover
            hovering: row.hovering
            radius: 7
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

            Symbol {
                Layout.preferredHeight: 20
                Layout.preferredWidth: 20
                color: Theme.palette.accent
                name: row.symbol
                size: 15
                weight: Font.Medium
            }

            ColumnLayout {
                spacing: 1

                Label {
                    Accessible.ignored: true
                    Layout.fillWidth: true
                    elide: Text.ElideRight
                    size: 13
                    text: row.label
                }

                Label {
                    Accessible.ignored: true
                    Layout.fillWidth: true
                    color: Theme.palette.label3
                    elide: Text.ElideRight
                    size: 11
                    text: row.count
                }
            }

            Label {
                Accessible.ignored: true
                color: Theme.palette.label2
                size: 13
                text: row.size
                visible: text !== ""
            }
        }
    }
}
