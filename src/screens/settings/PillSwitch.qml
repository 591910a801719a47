pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Kit

// The switch alone, on or off. What it stands in is clicked and spoken of.
Rectangle {
    id: track

    required property bool on

    Accessible.ignored: true
    color: on ? Theme.palette.green : Theme.palette.btnHover
    implicitHeight: 23
    implicitWidth: 38
    radius: height / 2

    Behavior on color {
        ColorAnimation {
            duration: Motion.selection
        }
    }

    Item {
        height: 19
        width: 19
        x: track.on ? track.width - width - 2 : 2
        y: 2

        Behavior on x {
            NumberAnimation {
                duration: Motion.selection
                easing.type: Easing.InOutQuad
            }
        }

        Shadow {
            anchors.fill: parent
            blur: 1
            radius: height / 2
            strength: 0.3
        }

        Rectangle {
            anchors.fill: parent
            color: "white"
            radius: height / 2
        }
    }
}
