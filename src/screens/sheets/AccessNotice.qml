pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import Zolva.Kit
import Zolva.Model

// Stands wherever totals lack what could not be looked into.
Card {
    id: notice

    required property AccessModel access

    Accessible.name: access.noticeSpoken
    Accessible.role: Accessible.StaticText
    implicitHeight: row.implicitHeight + 28
    visible: access.noticeShown

    RowLayout {
        id: row

        anchors.verticalCenter: parent.verticalCenter
        spacing: 12
        width: parent.width - 34
        x: 18

        Symbol {
            color: Theme.palette.label2
            name: "lock.fill"
            size: 12
        }

        ColumnLayout {
            Layout.fillWidth: true
            spacing: 3

            Label {
                Accessible.ignored: true
                Layout.fillWidth: true
                size: 13
                text: notice.access.noticeTitle
                weight: Font.Medium
                wrapMode: Text.Wrap
            }

            Label {
                Accessible.ignored: true
                Layout.fillWidth: true
                color: Theme.palette.label3
                size: 12
                text: "macOS is blocking access, so anything there is missing from these totals."
                wrapMode: Text.Wrap
            }
        }

        PillButton {
            font: Face.text(12.5, Font.Medium)
            hpad: 14
            pillHeight: 30
            radius: 8
            role: PillButton.Neutral
            title: "Open Settings"

            onClicked: notice.access.openSettings()
        }
    }
}
