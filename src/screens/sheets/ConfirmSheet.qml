pragma ComponentBehavior: Bound

import QtQuick
import Zolva.Kit
import Zolva.Model

// Says what is about to go, and asks.
OverlayCard {
    id: sheet

    required property ScreenModel model
    readonly property ConfirmModel confirm: model.confirm

    firstFocus: cancelButton
    isOpen: confirm.isOpen
    spokenName: confirm.title

    onCancelled: confirm.cancel()

    Column {
        width: parent.width

        Mascot {
            anchors.horizontalCenter: parent.horizontalCenter
            height: 88
            symbol: sheet.confirm.symbol
            width: 88
        }

        Item {
            height: 14
            width: 1
        }

        Label {
            horizontalAlignment: Text.AlignHCenter
            size: 15
            text: sheet.confirm.title
            weight: Font.Bold
            width: parent.width
            wrapMode: Text.Wrap
        }

        Item {
            height: 14
            width: 1
        }

        Label {
            color: Theme.palette.label2
            horizontalAlignment: Text.AlignHCenter
            lineHeight: implicitLine.height + 3
            lineHeightMode: Text.FixedHeight
            size: 12.5
            text: sheet.confirm.body
            width: parent.width
            wrapMode: Text.Wrap

            FontMetrics {
                id: implicitLine

                font: Face.text(12.5)
            }
        }

        Item {
            height: 16
            visible: rowsBox.visible
            width: 1
        }

        ConfirmRows {
            id: rowsBox

            more: sheet.confirm.more
            rows: sheet.confirm.rows
            visible: rows.length > 0
            width: parent.width
        }

        Item {
            height: 20
            width: 1
        }

        Row {
            spacing: 10
            width: parent.width

            PillButton {
                id: cancelButton

                font: Face.text(13, Font.Medium)
                role: PillButton.Neutral
                spokenHint: "Closes this without removing anything"
                title: "Cancel"
                width: (parent.width - 10) / 2

                onClicked: sheet.confirm.cancel()
            }

            PillButton {
                font: Face.text(13, Font.DemiBold)
                role: PillButton.Destructive
                spokenHint: "This cannot be undone"
                spokenName: "Confirm: %1".arg(sheet.confirm.button)
                title: sheet.confirm.button
                width: (parent.width - 10) / 2

                onClicked: sheet.confirm.confirm()
            }
        }
    }
}
