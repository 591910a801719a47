pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import Zolva.Frame
import Zolva.Kit

// One short report of a result.
Item {
    id: toast

    property string kind
    property string text
    property string actionTitle
    readonly property string symbol: kind === "warning" ? "exclamationmark.triangle.fill" : kind
                                                          === "success" ? "checkmark.circle.fill" :
                                                                          "info.circle.fill"
    readonly property color tint: kind === "warning" ? Theme.palette.amber : kind === "success"
                                                       ? Theme.palette.green : Theme.palette.accent

    signal action
    signal dismiss

    Accessible.name: text
    Accessible.role: Accessible.AlertMessage
    implicitHeight: row.implicitHeight + 24
    implicitWidth: Math.max(340, Math.min(460, row.implicitWidth + 26))

    Keys.onEscapePressed: dismiss()
    Component.onCompleted: Announcement.alert(toast)

    Shadow {
        anchors.fill: parent
        blur: 12
        radius: 12
        strength: 0.28
    }

    Rectangle {
        anchors.fill: parent
        border.color: Theme.palette.sep
        border.width: 1
        color: Theme.palette.sheet
        radius: 12
    }

    // What lies below is covered, from every button and the wheel.
    MouseArea {
        acceptedButtons: Qt.AllButtons
        anchors.fill: parent
        cursorShape: Qt.ArrowCursor
        hoverEnabled: true

        onWheel: wheel => wheel.accepted = true
    }

    RowLayout {
        id: row

        spacing: 10

        anchors {
            left: parent.left
            leftMargin: 14
            right: parent.right
            rightMargin: 12
            verticalCenter: parent.verticalCenter
        }

        Symbol {
            color: toast.tint
            name: toast.symbol
            size: 14
            weight: Font.DemiBold
        }

        Label {
            Accessible.ignored: true
            Layout.fillWidth: true
            elide: Text.ElideRight
            // A path can be as long as it likes; a reader hears all of it.
            maximumLineCount: 6
            size: 13
            text: toast.text
            weight: Font.Medium
            wrapMode: Text.Wrap
        }

        LinkButton {
            color: Theme.palette.accent
            font: Face.text(13, Font.DemiBold)
            hoverColor: Theme.palette.accentHover
            title: toast.actionTitle
            visible: toast.actionTitle !== ""
            onClicked: toast.action()
        }

        PointerButton {
            id: closer

            Layout.preferredHeight: 20
            Layout.preferredWidth: 20
            ringRadius: 6
            spokenName: "Dismiss notification"

            background: Rectangle {
                color: closer.hovering ? Theme.palette.btnHover : "transparent"
                radius: 6
            }
            contentItem: Item {
                Symbol {
                    anchors.centerIn: parent
                    color: closer.hovering ? Theme.palette.label : Theme.palette.label2
                    name: "xmark"
                    size: 10
                    weight: Font.Bold
                }
            }

            onClicked: toast.dismiss()
        }
    }
}
