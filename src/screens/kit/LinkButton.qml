pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Kit

/// A button that is only its words. Without a `hoverColor` it keeps its colour.
PointerButton {
    id: link

    property string title
    property color color: Theme.palette.accent
    property color hoverColor: color

    font: Face.text(13)
    ringRadius: 4
    spokenName: title

    contentItem: Label {
        Accessible.ignored: true
        color: link.hovering ? link.hoverColor : link.color
        elide: Text.ElideRight
        font: link.font
        text: link.title
        verticalAlignment: Text.AlignVCenter
    }
}
