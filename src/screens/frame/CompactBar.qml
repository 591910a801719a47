pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import Zolva.Frame
import Zolva.Kit

// What stays of a page's head once it has been scrolled away.
Item {
    id: bar

    property string title
    property bool canRescan: false
    property Component trailing: null
    /// How far the head is gone, 0 to 1.
    property real progress: 0
    property bool inReach: progress >= 0.5
    readonly property alias rescanButton: rescanButton
    readonly property alias trailingItem: trailingSlot.item

    signal rescan

    implicitHeight: 52

    // The rows below it are covered: they must not be pressed through it.
    MouseArea {
        acceptedButtons: Qt.AllButtons
        anchors.fill: parent
        enabled: bar.progress >= 0.5
        hoverEnabled: enabled
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.palette.content
        opacity: bar.progress
    }

    Separator {
        opacity: bar.progress
        width: bar.width
        y: bar.height
    }

    RowLayout {
        enabled: bar.inReach
        // Not before the head has half gone: two titles in one place could not be read.
        opacity: Math.max(0, 2 * bar.progress - 1)
        spacing: 10
        visible: opacity > 0

        anchors {
            fill: parent
            leftMargin: 40
            rightMargin: 40
        }

        Label {
            Accessible.role: Accessible.Heading
            Layout.fillWidth: true
            elide: Text.ElideRight
            size: 15
            text: bar.title
            weight: Font.DemiBold
        }

        RescanButton {
            id: rescanButton

            visible: bar.canRescan
            onClicked: bar.rescan()
        }

        Slot {
            id: trailingSlot

            component: bar.trailing
            visible: item !== null
        }
    }
}
