pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Kit

/// The box alone, on or off. What it stands in is clicked and spoken of.
Rectangle {
    id: box

    property bool on: false
    property bool dimmed: false

    Accessible.ignored: true
    color: on ? Theme.palette.accent : Theme.palette.card
    implicitHeight: 19
    implicitWidth: 19
    opacity: dimmed ? 0.45 : 1
    radius: 5

    Rectangle {
        anchors.fill: parent
        anchors.margins: 0.5
        border.color: Theme.palette.sep
        border.pixelAligned: false
        border.width: 1.4
        color: "transparent"
        radius: 4.5
        visible: !box.on
    }

    Symbol {
        anchors.fill: parent
        color: "white"
        name: "checkmark"
        size: 9
        visible: box.on
        weight: Font.Bold
    }
}
