pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import Zolva.Kit
import Zolva.Model

// The outside tool, its licence and its source.
Item {
    id: notice

    required property SettingsModel settings

    implicitHeight: column.implicitHeight + 32

    ColumnLayout {
        id: column

        spacing: 10
        width: parent.width - 36
        x: 18
        y: 16

        RowLayout {
            spacing: 10

            Symbol {
                color: Theme.palette.accent
                name: "shippingbox.fill"
                size: 16
            }

            Label {
                Layout.fillWidth: true
                size: 13
                text: "Bundled mole (mo)"
                weight: Font.Medium
            }
        }

        Repeater {
            model: [notice.settings.toolLine, notice.settings.toolAbout, notice.settings.toolSourceNote]

            delegate: Label {
                required property string modelData

                Layout.fillWidth: true
                Layout.maximumWidth: 640
                color: Theme.palette.label2
                lineHeight: 1.15
                size: 12.5
                text: modelData
                wrapMode: Text.Wrap
            }
        }

        RowLayout {
            Layout.topMargin: 2
            spacing: 18

            LinkButton {
                hoverColor: Theme.palette.accentHover
                title: "View source"

                onClicked: notice.settings.viewSource()
            }

            LinkButton {
                hoverColor: Theme.palette.accentHover
                title: "License"

                onClicked: notice.settings.openLicense()
            }
        }
    }
}
