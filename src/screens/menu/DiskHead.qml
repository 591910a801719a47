pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import Zolva.Kit
import Zolva.Model

// How much room is left on the disk; one thing to a screen reader.
Item {
    id: head

    required property MenuPanelModel panel

    Accessible.focusable: false
    Accessible.name: panel.spokenDisk
    Accessible.role: Accessible.StaticText
    implicitHeight: lines.implicitHeight + 26

    ColumnLayout {
        id: lines

        spacing: 5
        width: parent.width - 32
        x: 16
        y: 14

        RowLayout {
            spacing: 8

            Label {
                Accessible.ignored: true
                Layout.fillWidth: true
                elide: Text.ElideMiddle
                size: 14
                text: head.panel.volumeName
                weight: Font.DemiBold
            }

            Label {
                Accessible.ignored: true
                Layout.alignment: Qt.AlignBaseline
                color: Theme.palette.label3
                size: 11.5
                text: head.panel.fullText
            }
        }

        RowLayout {
            spacing: 5

            Label {
                Accessible.ignored: true
                Layout.alignment: Qt.AlignBaseline
                size: 17
                text: head.panel.freeText
                weight: Font.DemiBold
            }

            Label {
                Accessible.ignored: true
                Layout.alignment: Qt.AlignBaseline
                Layout.fillWidth: true
                color: Theme.palette.label2
                size: 11.5
                text: head.panel.ofTotalText
            }
        }
    }
}
