pragma ComponentBehavior: Bound

import QtQuick
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

    implicitHeight: Math.max(38, words.height) + 40
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

    Item {
        id: icon

        anchors.left: parent.left
        anchors.leftMargin: 22
        anchors.verticalCenter: parent.verticalCenter
        height: 38
        width: 34

        Symbol {
            anchors.centerIn: parent
            color: Theme.palette.accent
            name: card.symbol
            size: 24
            weight: Font.Medium
        }
    }

    Column {
        id: words

        anchors.left: icon.right
        anchors.leftMargin: 14
        anchors.right: sizeText.left
        anchors.rightMargin: 14
        anchors.verticalCenter: parent.verticalCenter
        spacing: 7

        Label {
            elide: Text.ElideRight
            size: 14
            text: card.name
            weight: Font.DemiBold
            width: parent.width
        }

        Label {
            color: Theme.palette.label2
            elide: Text.ElideRight
            size: 12.5
            text: card.sub
            width: parent.width
        }
    }

    Label {
        id: sizeText

        anchors.right: parent.right
        anchors.rightMargin: 22
        anchors.verticalCenter: parent.verticalCenter
        color: card.muted ? Theme.palette.label3 : Theme.palette.label
        size: 16
        text: card.size
        weight: Font.DemiBold
    }
}
