pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Kit

// Runs the scan of a page again.
PointerButton {
    id: button

    implicitHeight: 26
    implicitWidth: 26
    ringRadius: 7
    spokenHint: "Runs the scan again and refreshes the list"
    spokenName: "Rescan"

    background: Rectangle {
        color: button.hovering ? Theme.palette.btnHover : Theme.palette.btn
        radius: 7
    }
    contentItem: Item {
        Symbol {
            anchors.centerIn: parent
            color: button.hovering ? Theme.palette.label : Theme.palette.label2
            name: "arrow.clockwise"
            size: 13
            weight: Font.DemiBold
        }
    }

    HintTip {
        text: "Rescan"
        visible: button.hovering
    }
}
