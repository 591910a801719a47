pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import QtQuick.Templates as T
import Zolva.Kit

// A pill in the head of a page that opens a menu of which one entry holds.
PointerButton {
    id: button

    property string label
    property string symbol: "arrow.up.arrow.down"
    property list<string> entries
    property int current: -1
    readonly property alias menu: menu

    signal chosen(int place)

    down: pressed || menu.opened
    implicitHeight: 30
    implicitWidth: row.implicitWidth + 24
    ringRadius: 15
    spokenName: label
    spokenRole: Accessible.ButtonMenu

    background: Rectangle {
        color: button.hovering || menu.opened ? Theme.palette.btnHover : Theme.palette.btn
        radius: height / 2
    }
    contentItem: Item {
        RowLayout {
            id: row

            anchors.centerIn: parent
            spacing: 6

            Symbol {
                color: Theme.palette.label2
                name: button.symbol
                size: 11
                weight: Font.DemiBold
            }

            Label {
                Accessible.ignored: true
                size: 12.5
                text: button.label
                weight: Font.Medium
            }
        }
    }

    onClicked: menu.opened ? menu.close() : menu.open()
    Keys.onDownPressed: menu.open()
    // It does not outlive the page, nor stand over what covers it.
    onEnabledChanged: {
        if (!enabled)
            menu.close();
    }
    onVisibleChanged: {
        if (!visible)
            menu.close();
    }

    PopupMenu {
        id: menu

        x: button.width - width
        y: button.height + 4
        // A press on the button is the button's.
        closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent
        onClosed: {
            if (button.enabled && button.visible)
                button.forceActiveFocus(Qt.PopupFocusReason);
        }

        Repeater {
            model: button.entries

            PopupItem {
                required property int index
                required property string modelData

                current: index === button.current
                text: modelData
                onTriggered: button.chosen(index)
            }
        }
    }
}
