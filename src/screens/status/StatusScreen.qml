pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Frame
import Zolva.Kit
import Zolva.Model
import Zolva.Screens.Status

// The live state of the machine.
FocusScope {
    id: screen

    required property ScreenModel model

    StatusWatch {
        active: screen.visible && screen.Window.visibility !== Window.Hidden
                && screen.Window.visibility !== Window.Minimized
        status: screen.model.status
    }

    CollapsingPage {
        anchors.fill: parent
        focus: true
        title: "Status"

        header: Component {
            StatusBody {
                status: screen.model.status
            }
        }
    }

    Row {
        anchors.centerIn: parent
        spacing: 10
        visible: screen.model.status.page === StatusModel.Waiting

        Spinner {
            anchors.verticalCenter: parent.verticalCenter
            size: 16
        }

        Label {
            color: Theme.palette.label2
            size: 13
            text: "Reading system status…"
        }
    }
}
