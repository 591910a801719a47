pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import Zolva.Kit

// The middle of a page that has not scanned yet.
FocusScope {
    id: welcome

    property string title
    property string message
    property string icon
    property bool scanning: false

    signal scan

    implicitHeight: column.implicitHeight
    implicitWidth: column.implicitWidth

    ColumnLayout {
        id: column

        anchors.centerIn: parent
        spacing: 0
        width: Math.min(400, welcome.width)

        Symbol {
            Layout.alignment: Qt.AlignHCenter
            color: Theme.palette.accent
            name: welcome.icon
            size: 44
        }

        Label {
            Accessible.role: Accessible.Heading
            Layout.fillWidth: true
            Layout.topMargin: 18
            horizontalAlignment: Text.AlignHCenter
            size: 19
            text: welcome.title
            weight: Font.DemiBold
            wrapMode: Text.WordWrap
        }

        Label {
            Layout.fillWidth: true
            Layout.topMargin: 8
            color: Theme.palette.label2
            horizontalAlignment: Text.AlignHCenter
            lineHeight: 1.15
            size: 13.5
            text: welcome.message
            wrapMode: Text.WordWrap
        }

        Item {
            Layout.alignment: Qt.AlignHCenter
            Layout.topMargin: 22
            implicitHeight: 38
            implicitWidth: Math.max(button.implicitWidth, busy.implicitWidth)

            PillButton {
                id: button

                anchors.centerIn: parent
                // Out of sight, the keys would still press it.
                enabled: !welcome.scanning
                focus: true
                font: Face.text(15, Font.DemiBold)
                radius: 10
                role: PillButton.Accent
                title: "Scan"
                visible: enabled
                onClicked: welcome.scan()
            }

            RowLayout {
                id: busy

                anchors.centerIn: parent
                spacing: 10
                visible: welcome.scanning

                Spinner {
                    size: 16
                }

                Label {
                    color: Theme.palette.label2
                    size: 13.5
                    text: "Scanning…"
                }
            }
        }
    }
}
