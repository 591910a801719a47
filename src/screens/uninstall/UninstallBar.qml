pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import Zolva.Frame
import Zolva.Kit
import Zolva.Model
import Zolva.Sheets

// What becomes of the ticked applications, or how far a run has gone.
ActionBar {
    id: bar

    required property ScreenModel model
    readonly property UninstallModel uninstall: model.uninstall
    readonly property bool isBusy: model.bulk.present

    height: implicitHeight

    BulkProgressView {
        bulk: bar.model.bulk
        enabled: bar.isBusy
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
            color: Theme.palette.label3
            size: 13
            text: bar.uninstall.note
            wrapMode: Text.Wrap
        }

        PillButton {
            enabled: bar.uninstall.canUninstall
            font: Face.text(13.5, Font.DemiBold)
            opacity: bar.uninstall.canUninstall ? 1 : 0.45
            radius: 9
            role: PillButton.Accent
            title: bar.uninstall.buttonTitle

            onClicked: bar.uninstall.uninstall()
        }
    }
}
