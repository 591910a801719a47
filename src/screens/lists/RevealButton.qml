// Not bound: the loaders of Qt 6.4 refuse bound components.
import QtQuick
import Zolva.Kit

// Shows the file of a row where it lies.
PointerButton {
    id: button

    implicitHeight: 26
    implicitWidth: 26
    ringRadius: 7
    spokenName: "Show in Finder"

    background: HoverFill {
        hover: Theme.palette.btnHover
        hovering: button.hovering
        radius: 7
    }
    contentItem: Symbol {
        color: button.hovering ? Theme.palette.label : Theme.palette.label3
        name: "folder"
        size: 13
    }

    // Every row has one of these buttons: the tip is made when it is wanted.
    Loader {
        active: button.hovering
        anchors.fill: parent

        sourceComponent: Item {
            HintTip {
                text: button.spokenName
                visible: true
            }
        }
    }
}
