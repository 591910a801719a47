pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import Zolva.Kit

// One way to reclaim; the whole card is the button.
PointerButton {
    id: card

    required property string name
    required property string sub
    required property string size
    required property bool muted
    required property string symbol
    required property string goTo

    implicitHeight: row.implicitHeight + 40
    ringRadius: 12
    spokenName: name
    spokenValue: sub + ", " + size

    HoverFill {
        anchors.fill: parent
        base: Theme.palette.card
        hover: Theme.palette.cardHover
        hovering: card.hovering
        radius: 12
    }

    RowLayout {
        id: row

        anchors.verticalCenter: parent.verticalCenter
        spacing: 14
        width: parent.width - 44
        x: 22

        Item {
            Layout.preferredHeight: 38
            Layout.preferredWidth: 34

            Symbol {
                anchors.centerIn: parent
                color: Theme.palette.accent
                name: card.symbol
                size: 24
                weight: Font.Medium
            }
        }

        ColumnLayout {
            Layout.fillWidth: true
            spacing: 7

            Label {
                Accessible.ignored: true
                Layout.fillWidth: true
                elide: Text.ElideRight
                size: 14
                text: card.name
                weight: Font.DemiBold
            }

            Label {
                Accessible.ignored: true
                Layout.fillWidth: true
                color: Theme.palette.label2
                elide: Text.ElideRight
                maximumLineCount: 2
                size: 12.5
                text: card.sub
                wrapMode: Text.Wrap
            }
        }

        Label {
            Accessible.ignored: true
            color: card.muted ? Theme.palette.label3 : Theme.palette.label
            size: 16
            text: card.size
            weight: Font.DemiBold
        }
    }
}
