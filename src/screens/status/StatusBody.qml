pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import Zolva.Kit
import Zolva.Model
import Zolva.Screens.Status

// What went wrong, or the readings.
Item {
    id: body

    required property StatusModel status
    readonly property bool isLive: status.page === StatusModel.Live

    implicitHeight: column.implicitHeight + 44

    ColumnLayout {
        id: column

        spacing: 0
        width: parent.width - 80
        x: 40
        y: 4

        StatusError {
            Layout.fillWidth: true
            status: body.status
            visible: body.status.page === StatusModel.Failed
        }

        RowLayout {
            Layout.fillWidth: true
            spacing: 14
            visible: body.isLive

            Repeater {
                model: body.status.tiles

                delegate: Tile {
                    Layout.fillHeight: true
                    Layout.fillWidth: true
                    Layout.preferredWidth: 1
                }
            }
        }

        StatusCard {
            Layout.fillWidth: true
            Layout.topMargin: 28
            status: body.status
            visible: body.isLive
        }

        Label {
            Layout.fillWidth: true
            Layout.topMargin: 20
            color: Theme.palette.label3
            size: 12.5
            text: body.status.footer
            visible: body.isLive
            wrapMode: Text.Wrap
        }
    }
}
