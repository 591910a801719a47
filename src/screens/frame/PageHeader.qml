pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Frame
import Zolva.Kit

// The head of a page: its title, and at the trailing side what can be done with the whole page.
Item {
    id: header

    property string title
    property string subtitle
    property bool canRescan: false
    property Component trailing: null
    /// Scrolled away; what took its place is spoken of instead.
    property bool isGone: false
    readonly property alias rescanButton: rescanButton
    readonly property alias trailingItem: trailingSlot.item

    signal rescan

    implicitHeight: Math.max(words.height, deeds.height) + 60

    Column {
        id: words

        spacing: 2
        width: header.width - 80 - (deeds.width > 0 ? deeds.width + 10 : 0)
        x: 40
        y: 40

        Label {
            Accessible.ignored: header.isGone
            Accessible.role: Accessible.Heading
            elide: Text.ElideRight
            size: 28
            text: header.title
            tracking: -0.6
            weight: Font.Bold
            width: parent.width
        }

        Label {
            Accessible.ignored: header.isGone
            color: Theme.palette.label2
            size: 13.5
            text: header.subtitle
            visible: header.subtitle !== ""
            width: parent.width
            wrapMode: Text.WordWrap
        }
    }

    Row {
        id: deeds

        anchors.verticalCenter: words.verticalCenter
        spacing: 10
        x: header.width - width - 40

        RescanButton {
            id: rescanButton

            Accessible.ignored: header.isGone
            anchors.verticalCenter: parent.verticalCenter
            visible: header.canRescan
            onClicked: header.rescan()
        }

        Slot {
            id: trailingSlot

            anchors.verticalCenter: parent.verticalCenter
            component: header.trailing
            visible: item !== null
        }
    }
}
