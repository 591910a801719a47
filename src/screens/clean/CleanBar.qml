pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import Zolva.Frame
import Zolva.Kit
import Zolva.Model
import Zolva.Sheets

// What goes, or how far it has gone.
ActionBar {
    id: bar

    required property ScreenModel model
    readonly property CleanModel clean: model.clean
    readonly property bool isBusy: model.bulk.present

    height: implicitHeight

    BulkProgressView {
        bulk: bar.model.bulk
        enabled: bar.isBusy
        focus: bar.isBusy
        height: implicitHeight
        visible: bar.isBusy
        width: parent.width

        onStop: bar.model.bulk.requestCancel()
    }

    RowLayout {
        enabled: !bar.isBusy
        spacing: 16
        visible: !bar.isBusy
        width: parent.width

        Label {
            Layout.fillWidth: true
            Layout.maximumWidth: 420
            color: Theme.palette.label3
            size: 13
            text: bar.clean.note
            wrapMode: Text.Wrap
        }

        Item {
            Layout.fillWidth: true
        }

        LinkButton {
            font: Face.text(13)
            hoverColor: Theme.palette.accentHover
            title: bar.clean.selectWord

            onClicked: bar.clean.toggleAll()
        }

        PillButton {
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
