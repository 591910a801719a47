pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import Zolva.Kit
import Zolva.Model

// Below the sidebar's rows: the Trash while there is anything in it, and which versions these are.
Item {
    id: footer

    required property SidebarModel sidebar

    implicitHeight: column.implicitHeight + 26

    Separator {
        width: footer.width
    }

    ColumnLayout {
        id: column

        spacing: 10

        anchors {
            fill: parent
            leftMargin: 10
            rightMargin: 10
            topMargin: 11
            bottomMargin: 15
        }

        PointerButton {
            id: button

            Layout.fillWidth: true
            Layout.preferredHeight: 34
            ringRadius: 9
            spokenName: "Empty Trash"
            spokenValue: footer.sidebar.trashText
            visible: footer.sidebar.hasTrash

            background: Rectangle {
                color: button.hovering ? Theme.palette.btnHover : Theme.palette.btn
                radius: 9
            }
            contentItem: Item {
                RowLayout {
                    spacing: 8

                    anchors {
                        fill: parent
                        leftMargin: 12
                        rightMargin: 12
                    }

                    Symbol {
                        color: Theme.palette.label2
                        name: "trash"
                        size: 13
                        weight: Font.Medium
                    }

                    Label {
                        Accessible.ignored: true
                        Layout.fillWidth: true
                        elide: Text.ElideRight
                        size: 13
                        text: "Empty Trash"
                        weight: Font.Medium
                    }

                    Label {
                        Accessible.ignored: true
                        color: Theme.palette.label3
                        size: 12
                        text: footer.sidebar.trashText
                    }
                }
            }

            onClicked: footer.sidebar.askEmptyTrash()
        }

        Label {
            Layout.fillWidth: true
            Layout.leftMargin: 16
            color: Theme.palette.label3
            elide: Text.ElideRight
            lineHeight: 1.2
            maximumLineCount: 2
            size: 12
            text: footer.sidebar.versionLine + "\n" + footer.sidebar.toolLine
        }
    }
}
