pragma ComponentBehavior: Bound

import QtQuick
import Zolva.Frame
import Zolva.Kit
import Zolva.Model
import Zolva.Sheets

// What goes, or how far it has gone.
ActionBar {
    id: bar

    required property ScreenModel model
    readonly property CleanModel clean: model.clean

    BulkProgressView {
        bulk: bar.model.bulk
        visible: bar.model.bulk.present
        width: parent.width

        onStop: bar.model.bulk.requestCancel()
    }

    Item {
        height: button.height
        visible: !bar.model.bulk.present
        width: parent.width

        Label {
            anchors.left: parent.left
            anchors.verticalCenter: parent.verticalCenter
            color: Theme.palette.label3
            size: 13
            text: bar.clean.note
            width: Math.min(420, selectLink.x - 16)
            wrapMode: Text.Wrap
        }

        LinkButton {
            id: selectLink

            anchors.right: button.left
            anchors.rightMargin: 18
            anchors.verticalCenter: parent.verticalCenter
            color: Theme.palette.accent
            font: Face.text(13)
            hoverColor: Theme.palette.accentHover
            title: bar.clean.selectWord

            onClicked: bar.clean.toggleAll()
        }

        PillButton {
            id: button

            anchors.right: parent.right
            enabled: bar.clean.canClean
            font: Face.text(13.5, Font.DemiBold)
            opacity: bar.clean.canClean ? 1 : 0.45
            radius: 9
            role: PillButton.Accent
            title: bar.clean.buttonTitle

            onClicked: bar.clean.clean()
        }
    }
}
