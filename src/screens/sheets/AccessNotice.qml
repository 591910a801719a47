pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Kit
import Zolva.Model

// Stands wherever totals lack what could not be looked into.
Card {
    id: notice

    required property AccessModel access

    Accessible.name: access.noticeSpoken
    Accessible.role: Accessible.StaticText
    implicitHeight: Math.max(words.height, button.height) + 28
    visible: access.noticeShown

    // By hand: a layout within the page's layout does not come to rest where the words wrap.
    Symbol {
        id: lock

        anchors.left: parent.left
        anchors.leftMargin: 18
        anchors.verticalCenter: parent.verticalCenter
        color: Theme.palette.label2
        name: "lock.fill"
        size: 12
    }

    Column {
        id: words

        anchors.left: lock.right
        anchors.leftMargin: 12
        anchors.right: button.left
        anchors.rightMargin: 12
        anchors.verticalCenter: parent.verticalCenter
        spacing: 3

        Label {
            Accessible.ignored: true
            size: 13
            text: notice.access.noticeTitle
            weight: Font.Medium
            width: parent.width
            wrapMode: Text.Wrap
        }

        Label {
            Accessible.ignored: true
            color: Theme.palette.label3
            size: 12
            text: "macOS is blocking access, so anything there is missing from these totals."
            width: parent.width
            wrapMode: Text.Wrap
        }
    }

    PillButton {
        id: button

        anchors.right: parent.right
        anchors.rightMargin: 16
        anchors.verticalCenter: parent.verticalCenter
        hpad: 14
        pillHeight: 30
        role: PillButton.Neutral
        title: "Open Settings"

        onClicked: notice.access.openSettings()
    }
}
