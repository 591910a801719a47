pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import Zolva.Frame
import Zolva.Kit
import Zolva.Model

// Why there are no readings, and the way to try again.
Card {
    id: card

    required property StatusModel status

    Accessible.focusable: false
    Accessible.name: status.error
    Accessible.role: Accessible.AlertMessage
    implicitHeight: row.implicitHeight + 30

    onVisibleChanged: {
        if (visible)
            Announcement.alert(card);
    }

    RowLayout {
        id: row

        spacing: 13
        width: parent.width - 36
        x: 18
        y: 15

        Rectangle {
            color: Theme.palette.red
            implicitHeight: 8
            implicitWidth: 8
            radius: 4
        }

        Label {
            Accessible.ignored: true
            Layout.fillWidth: true
            size: 13
            text: card.status.error
            wrapMode: Text.Wrap
        }

        LinkButton {
            font: Face.text(13, Font.Medium)
            hoverColor: Theme.palette.accentHover
            spokenHint: "Starts reading the system status again"
            title: "Retry"

            onClicked: card.status.retry()
        }
    }
}
