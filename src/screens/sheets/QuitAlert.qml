pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import Zolva.Kit
import Zolva.Model
import Zolva.Sheets

// Asked to quit while a run is going.
OverlayCard {
    id: alert

    required property QuitModel quit

    closesOnScrim: false
    firstFocus: keepGoing
    isOpen: quit.isAsking
    spokenBody: quit.detail
    spokenName: quit.message

    onCancelled: quit.keepGoing()

    Mascot {
        Layout.alignment: Qt.AlignHCenter
        Layout.preferredHeight: 88
        Layout.preferredWidth: 88
        symbol: "exclamationmark.triangle.fill"
        tint: Theme.palette.amber
    }

    Label {
        Accessible.role: Accessible.Heading
        Layout.fillWidth: true
        Layout.topMargin: 14
        horizontalAlignment: Text.AlignHCenter
        size: 15
        text: alert.quit.message
        weight: Font.Bold
        wrapMode: Text.Wrap
    }

    Paragraph {
        Layout.fillWidth: true
        Layout.topMargin: 14
        text: alert.quit.detail
    }

    RowLayout {
        Layout.fillWidth: true
        Layout.topMargin: 20
        spacing: 10

        PillButton {
            id: keepGoing

            KeyNavigation.right: stopAndQuit
            Layout.fillWidth: true
            Layout.preferredWidth: 1
            font: Face.text(13, Font.Medium)
            role: PillButton.Neutral
            title: alert.quit.keepGoingTitle

            onClicked: alert.quit.keepGoing()
        }

        PillButton {
            id: stopAndQuit

            Layout.fillWidth: true
            Layout.preferredWidth: 1
            font: Face.text(13, Font.DemiBold)
            role: PillButton.Destructive
            title: alert.quit.stopAndQuitTitle

            onClicked: alert.quit.stopAndQuit()
        }
    }
}
