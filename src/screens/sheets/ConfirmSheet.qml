pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import Zolva.Kit
import Zolva.Model
import Zolva.Sheets

// Says what is about to go, and asks.
OverlayCard {
    id: sheet

    required property ScreenModel model
    readonly property ConfirmModel confirm: model.confirm

    firstFocus: cancelButton
    isOpen: confirm.isOpen
    spokenBody: confirm.body
    spokenName: confirm.title

    onCancelled: confirm.cancel()

    // At once: the next press of Return must not confirm what has not been read.
    Connections {
        target: sheet.confirm

        function onSubjectChanged() {
            sheet.takeFocus();
        }
    }

    Mascot {
        Layout.alignment: Qt.AlignHCenter
        Layout.preferredHeight: 88
        Layout.preferredWidth: 88
        symbol: sheet.confirm.symbol
    }

    Label {
        Accessible.role: Accessible.Heading
        Layout.fillWidth: true
        Layout.topMargin: 14
        horizontalAlignment: Text.AlignHCenter
        size: 15
        text: sheet.confirm.title
        weight: Font.Bold
        wrapMode: Text.Wrap
    }

    Paragraph {
        Layout.fillWidth: true
        Layout.topMargin: 14
        text: sheet.confirm.body
    }

    ConfirmRows {
        Layout.fillWidth: true
        Layout.preferredHeight: implicitHeight
        Layout.topMargin: 16
        confirm: sheet.confirm
        visible: count > 0
    }

    RowLayout {
        Layout.fillWidth: true
        Layout.topMargin: 20
        spacing: 10

        PillButton {
            id: cancelButton

            KeyNavigation.right: confirmButton
            Layout.fillWidth: true
            Layout.preferredWidth: 1
            font: Face.text(13, Font.Medium)
            role: PillButton.Neutral
            spokenHint: "Closes this without removing anything"
            title: "Cancel"

            onClicked: sheet.confirm.cancel()
        }

        PillButton {
            id: confirmButton

            Layout.fillWidth: true
            Layout.preferredWidth: 1
            font: Face.text(13, Font.DemiBold)
            role: PillButton.Destructive
            spokenHint: "This cannot be undone"
            spokenName: "Confirm: %1".arg(sheet.confirm.button)
            title: sheet.confirm.button

            onClicked: sheet.confirm.confirm()
        }
    }
}
