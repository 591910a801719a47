pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Kit

/// A symbol in a circle of its own colour, as large as its width.
Rectangle {
    id: mascot

    property string symbol
    property color tint: Theme.palette.accent

    Accessible.ignored: true
    color: Qt.alpha(tint, Theme.palette.accentTint.a)
    height: width
    implicitWidth: 88
    radius: width / 2

    Symbol {
        anchors.fill: parent
        color: mascot.tint
        name: mascot.symbol
        size: mascot.width * 0.58
    }
}
