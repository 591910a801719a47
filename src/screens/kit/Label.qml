pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Kit

/// Text in the faces of the kit; plain, never markup.
Text {
    property real size: 13
    property int weight: Font.Normal
    property real tracking: 0
    property bool mono: false

    // Nothing that the keyboard could come to.
    Accessible.focusable: false
    Accessible.name: text
    Accessible.role: Accessible.StaticText
    color: Theme.palette.label
    font: mono ? Face.mono(size, weight) : Face.text(size, weight, tracking)
    linkColor: Theme.palette.accent
    renderType: Text.NativeRendering
    textFormat: Text.PlainText
}
