pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Kit

/// A button with a fill. Whoever disables it also sets its opacity.
PointerButton {
    id: pill

    enum Role {
        Accent,
        Neutral,
        Destructive
    }

    property string title
    property int role: PillButton.Accent
    property real pillHeight: 38
    property real hpad: 22
    property real radius: 9

    font: Face.text(13, Font.Medium)
    implicitHeight: pillHeight
    implicitWidth: Math.ceil(implicitContentWidth) + leftPadding + rightPadding
    leftPadding: hpad
    ringRadius: radius
    rightPadding: hpad
    spokenName: title

    background: HoverFill {
        base: [Theme.palette.accent, Theme.palette.btn, Theme.palette.red][pill.role]
        hover: [Theme.palette.accentHover, Theme.palette.btnHover, Theme.palette.redHover][pill.role]
        hovering: pill.hovering
        radius: pill.radius
    }
    contentItem: Label {
        Accessible.ignored: true
        color: pill.role === PillButton.Neutral ? Theme.palette.label : "white"
        elide: Text.ElideRight
        font: pill.font
        horizontalAlignment: Text.AlignHCenter
        text: pill.title
        verticalAlignment: Text.AlignVCenter
    }
}
