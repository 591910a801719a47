pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Lists
import Zolva.Model

// One installer; what can be done with it alone is in its menu.
TickRow {
    id: row

    required property InstallerModel installer

    hasMenu: true
    head.isLit: head.hovering || revealer.hovering
    head.room: 54
    head.spokenHint: "Include this installer in the next removal"

    RevealButton {
        id: revealer

        activeFocusOnTab: row.isCurrent
        x: row.head.x + row.head.width - width - 18
        y: (row.head.height - height) / 2

        onClicked: row.installer.reveal(row.rowId)
    }
}
