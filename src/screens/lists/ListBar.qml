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
    required property ListScreenModel list
    property int linkWeight: Font.Medium
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
            text: bar.list.note
            visible: text !== ""
            wrapMode: Text.Wrap
        }

        Item {
            Layout.fillWidth: true
            visible: bar.list.note !== ""
        }

        // Where there is no note it has the leading side to itself.
        Label {
            color: Theme.palette.label2
            size: 12.5
            text: bar.list.countText
            visible: text !== ""
        }

        Item {
            Layout.fillWidth: true
            visible: bar.list.note === ""
        }

        LinkButton {
            font: Face.text(13, bar.linkWeight)
            hoverColor: Theme.palette.accentHover
            title: bar.list.selectWord

            onClicked: bar.list.toggleAll()
        }

        PillButton {
            enabled: bar.list.canRemove
            font: Face.text(13.5, Font.DemiBold)
            opacity: bar.list.canRemove ? 1 : 0.45
            radius: 9
            role: PillButton.Accent
            title: bar.list.buttonTitle

            onClicked: bar.list.remove()
        }
    }
}
