pragma ComponentBehavior: Bound

import QtQuick
import Zolva.Kit
import Zolva.Model

// How far a run has come, in the place of a screen's action bar.
Item {
    id: view

    required property BulkModel bulk
    property bool canStop: true

    signal stop()

    implicitHeight: column.height

    Accessible.description: bulk.spokenValue
    Accessible.name: bulk.title
    Accessible.role: Accessible.ProgressBar

    Column {
        id: column

        spacing: 10
        width: parent.width

        Item {
            height: Math.max(title.height, stopButton.height)
            width: parent.width

            Spinner {
                id: spinner

                anchors.verticalCenter: parent.verticalCenter
                size: 14
            }

            Label {
                id: title

                Accessible.ignored: true
                anchors.left: spinner.right
                anchors.leftMargin: 10
                anchors.right: count.left
                anchors.rightMargin: 10
                anchors.verticalCenter: parent.verticalCenter
                elide: Text.ElideRight
                size: 13
                text: view.bulk.title
                weight: Font.Medium
            }

            Label {
                id: count

                Accessible.ignored: true
                anchors.right: stopButton.visible ? stopButton.left : parent.right
                anchors.rightMargin: stopButton.visible ? 14 : 0
                anchors.verticalCenter: parent.verticalCenter
                color: Theme.palette.label2
                size: 12.5
                text: view.bulk.countText
            }

            LinkButton {
                id: stopButton

                anchors.right: parent.right
                anchors.verticalCenter: parent.verticalCenter
                font: Face.text(12.5, Font.DemiBold)
                spokenHint: "Items already removed are not restored"
                spokenName: "Stop removing"
                title: "Stop"
                visible: view.canStop

                onClicked: view.stop()
            }
        }

        Rectangle {
            color: Theme.palette.well
            height: 5
            radius: 2.5
            width: parent.width

            Rectangle {
                color: Theme.palette.accent
                height: parent.height
                radius: parent.radius
                width: parent.width * view.bulk.fraction

                Behavior on width {
                    NumberAnimation {
                        duration: Motion.bar
                        easing.bezierCurve: Motion.easeOut
                        easing.type: Easing.BezierSpline
                    }
                }
            }
        }

        Label {
            Accessible.ignored: true
            color: Theme.palette.label3
            elide: Text.ElideMiddle
            maximumLineCount: 1
            size: 12
            text: view.bulk.current
            visible: text !== ""
            width: parent.width
        }
    }
}
