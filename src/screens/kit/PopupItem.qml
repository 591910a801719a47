pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import Zolva.Kit

/// One entry of a `PopupMenu`: one of several choices, with a check mark where it is the current one,
/// or something to do, with a symbol of its own.
T.MenuItem {
    id: item

    property bool current: false
    property string symbol
    property bool isDestructive: false
    readonly property bool isChoice: symbol === ""
    readonly property color ink: isDestructive ? Theme.palette.red : Theme.palette.label

    Accessible.checkable: isChoice
    Accessible.checked: current
    Accessible.name: text
    Accessible.role: Accessible.MenuItem
    Keys.onEnterPressed: triggered()
    Keys.onReturnPressed: triggered()
    font: Face.text(13)
    implicitHeight: 28
    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    leftPadding: 28
    opacity: enabled ? 1 : 0.45
    rightPadding: 14

    // The toolkit offers a menu's entries to a screen reader without anything to do to them.
    Accessible.onPressAction: triggered()

    background: Rectangle {
        color: item.highlighted ? Theme.palette.accentTint : "transparent"
        radius: 5
    }
    contentItem: Label {
        Accessible.ignored: true
        color: item.ink
        elide: Text.ElideRight
        font: item.font
        text: item.text
        verticalAlignment: Text.AlignVCenter
    }

    // In a part of its own, which leaves the presses of the other buttons of the pointer alone.
    Item {
        anchors.fill: parent

        HoverCursor {
            enabled: item.enabled
        }
    }

    Symbol {
        anchors.left: parent.left
        anchors.leftMargin: 9
        anchors.verticalCenter: parent.verticalCenter
        color: item.ink
        name: item.isChoice ? "checkmark" : item.symbol
        size: 11
        visible: item.current || !item.isChoice
        weight: Font.Medium
    }
}
