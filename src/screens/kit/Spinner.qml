pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Kit

/// Something is going on. It turns in few steps, only while it can be seen, and stands still where
/// less motion is asked for.
Item {
    id: spinner

    property real size: 16
    property color color: Theme.palette.label2
    readonly property bool running: visible && !Motion.reduced && Window.visibility !== Window.Hidden && Window.visibility !== Window.Minimized
    property int step: 0
    readonly property int spokes: 8

    Accessible.ignored: true
    implicitHeight: size
    implicitWidth: size

    Timer {
        interval: 100
        repeat: true
        running: spinner.running

        onTriggered: spinner.step = (spinner.step + 1) % spinner.spokes
    }

    Repeater {
        model: Motion.reduced ? 0 : spinner.spokes

        Item {
            id: spoke

            required property int index

            anchors.centerIn: parent
            height: spinner.size
            opacity: 1 - 0.8 * ((spinner.step - index + spinner.spokes) % spinner.spokes) / (spinner.spokes - 1)
            rotation: 360 / spinner.spokes * index
            width: Math.max(1.5, spinner.size / 9)

            Rectangle {
                antialiasing: true
                color: spinner.color
                height: spinner.size * 0.3
                radius: width / 2
                width: parent.width
            }
        }
    }

    Row {
        anchors.centerIn: parent
        spacing: spinner.size / 8
        visible: Motion.reduced

        Repeater {
            model: 3

            Rectangle {
                color: spinner.color
                height: width
                radius: width / 2
                width: spinner.size / 5
            }
        }
    }
}
