pragma ComponentBehavior: Bound

import QtQuick
import Zolva.Kit
import Zolva.Model

// Asked to quit while a run is going.
OverlayCard {
    id: alert

    required property QuitModel quit

    closesOnScrim: false
    firstFocus: keepGoing
    isOpen: quit.isAsking
    spokenName: quit.message

    onCancelled: quit.keepGoing()

    Column {
        width: parent.width

        Mascot {
            anchors.horizontalCenter: parent.horizontalCenter
            height: 64
            symbol: "exclamationmark.triangle.fill"
            tint: Theme.palette.amber
            width: 64
        }

        Item {
            height: 14
            width: 1
        }

        Label {
            horizontalAlignment: Text.AlignHCenter
            size: 15
            text: alert.quit.message
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
            size: 12.5
            text: alert.quit.detail
            width: parent.width
            wrapMode: Text.Wrap
        }

        Item {
            height: 20
            width: 1
        }

        Row {
            spacing: 10
            width: parent.width

            PillButton {
                id: keepGoing

                font: Face.text(13, Font.DemiBold)
                role: PillButton.Neutral
                title: alert.quit.keepGoingTitle
                width: (parent.width - 10) / 2

                onClicked: alert.quit.keepGoing()
            }

            PillButton {
                font: Face.text(13, Font.DemiBold)
                role: PillButton.Destructive
                title: alert.quit.stopAndQuitTitle
                width: (parent.width - 10) / 2

                onClicked: alert.quit.stopAndQuit()
            }
        }
    }
}
