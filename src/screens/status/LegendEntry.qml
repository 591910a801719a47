pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Kit

// Which line is which.
Row {
    id: entry

    required property color color
    required property string word

    spacing: 6

    Rectangle {
        anchors.verticalCenter: parent.verticalCenter
        color: entry.color
        height: 2
        width: 8
    }

    Label {
        Accessible.ignored: true
        color: Theme.palette.label2
        size: 12
        text: entry.word
    }
}
