pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import Zolva.Kit
import Zolva.Model

// How far a run has come, in the place of a screen's action bar.
FocusScope {
    id: view

    required property BulkModel bulk
    property bool canStop: true

    signal stop

    Accessible.description: bulk.spokenValue
    Accessible.name: bulk.title
    Accessible.role: Accessible.ProgressBar
    implicitHeight: column.implicitHeight + 28

    Card {
        anchors.fill: parent
    }

    ColumnLayout {
        id: column

        spacing: 9
        width: parent.width - 36
        x: 18
        y: 14

        RowLayout {
            Layout.fillWidth: true
            spacing: 10

            Spinner {
                size: 14
            }

            Label {
                Accessible.ignored: true
                Layout.fillWidth: true
                elide: Text.ElideRight
                size: 13
                text: view.bulk.title
                weight: Font.Medium
            }

            Label {
                Accessible.ignored: true
                color: Theme.palette.label2
                size: 12.5
                text: view.bulk.countText
            }

            LinkButton {
                Layout.leftMargin: 4
                focus: true
                font: Face.text(12.5, Font.DemiBold)
                hoverColor: Theme.palette.accentHover
                spokenHint: "Items already removed are not restored"
                spokenName: "Stop removing"
                title: "Stop"
                visible: view.canStop

                onClicked: view.stop()
            }
        }

        Rectangle {
            Layout.fillWidth: true
            Layout.preferredHeight: 5
            color: Theme.palette.well
            radius: 2.5

            Rectangle {
                color: Theme.palette.accent
                height: parent.height
                radius: parent.radius
                width: parent.width * view.bulk.fraction

                Behavior on width {
                    NumberAnimation {
                        duration: Motion.bar
                        easing.type: Easing.OutQuad
                    }
                }
            }
        }

        // Its room is there from the beginning of a run that goes from path to path.
        Label {
            Accessible.ignored: true
            Layout.fillWidth: true
            color: Theme.palette.label3
            elide: Text.ElideMiddle
            maximumLineCount: 1
            size: 12
            text: view.bulk.current
            visible: text !== "" || view.bulk.countText !== ""
        }
    }
}
