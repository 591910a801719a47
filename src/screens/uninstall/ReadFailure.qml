pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Kit

// Why there is nothing to list.
Card {
    id: card

    property string text

    height: words.height

    Rectangle {
        Accessible.ignored: true
        anchors.verticalCenter: card.verticalCenter
        color: Theme.palette.red
        height: 8
        radius: 4
        width: 8
        x: 18
    }

    Label {
        id: words

        bottomPadding: 18
        size: 13
        text: card.text
        topPadding: 18
        width: card.width - x - 18
        wrapMode: Text.Wrap
        x: 38
    }
}
