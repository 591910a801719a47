pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import Zolva.Frame
import Zolva.Kit
import Zolva.Model
import Zolva.Screens.Menu

// What could be had back now, in all and by kind.
ColumnLayout {
    id: block

    required property MenuPanelModel panel

    spacing: 0

    RowLayout {
        Layout.leftMargin: 16
        Layout.rightMargin: 12
        Layout.topMargin: 8

        Label {
            Accessible.role: Accessible.Heading
            Layout.fillWidth: true
            color: Theme.palette.label3
            size: 9.5
            text: "RECLAIMABLE"
            tracking: 0.5
            weight: Font.DemiBold
        }

        RescanButton {
            onClicked: block.panel.rescan()
        }
    }

    Label {
        Layout.leftMargin: 16
        Layout.preferredHeight: total.implicitHeight
        color: Theme.palette.label2
        size: 13
        text: "Scanning…"
        verticalAlignment: Text.AlignVCenter
        visible: block.panel.scanning
    }

    Label {
        id: total

        Layout.leftMargin: 16
        size: 26
        text: block.panel.totalText
        tracking: -0.6
        visible: !block.panel.scanning
        weight: Font.Bold
    }

    Label {
        Layout.leftMargin: 16
        color: Theme.palette.label3
        size: 11.5
        text: block.panel.keptText
        visible: !block.panel.scanning && text !== ""
    }

    Column {
        Layout.bottomMargin: 8
        Layout.fillWidth: true
        Layout.topMargin: 8
        spacing: 2

        Repeater {
            model: block.panel

            delegate: ReclaimRowView {
                required property int index

                width: parent?.width ?? 0
                onClicked: block.panel.chooseRow(index)
            }
        }
    }

    Shortcut {
        sequence: "Ctrl+R"
        onActivated: block.panel.rescan()
    }
}
