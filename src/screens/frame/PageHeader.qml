pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import Zolva.Frame
import Zolva.Kit

// The head of a page: its title, and at the trailing side what can be done with the whole page.
Item {
    id: header

    property string title
    property string subtitle
    property bool canRescan: false
    property Component trailing: null

    signal rescan

    implicitWidth: row.implicitWidth + 80
    implicitHeight: row.implicitHeight + 60

    RowLayout {
        id: row

        spacing: 10

        anchors {
            fill: parent
            leftMargin: 40
            rightMargin: 40
            topMargin: 40
            bottomMargin: 20
        }

        ColumnLayout {
            Layout.fillWidth: true
            Layout.alignment: Qt.AlignVCenter
            spacing: 2

            Label {
                Layout.fillWidth: true
                Accessible.role: Accessible.Heading
                elide: Text.ElideRight
                size: 28
                text: header.title
                tracking: -0.6
                weight: Font.Bold
            }

            Label {
                Layout.fillWidth: true
                color: Theme.palette.label2
                size: 13.5
                text: header.subtitle
                visible: header.subtitle !== ""
                wrapMode: Text.WordWrap
            }
        }

        RescanButton {
            visible: header.canRescan
            onClicked: header.rescan()
        }

        Loader {
            sourceComponent: header.trailing
            visible: item !== null
        }
    }
}
