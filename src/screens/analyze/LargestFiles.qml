pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Frame
import Zolva.Kit
import Zolva.Lists
import Zolva.Model
import Zolva.Screens.Analyze

// The largest files of the place, each to be moved to the Trash at once.
Item {
    id: files

    required property AnalyzeModel analyze

    implicitHeight: column.height

    Column {
        id: column

        bottomPadding: 32
        spacing: 12
        topPadding: 28
        width: files.width - 80
        x: 40

        Row {
            spacing: 8
            width: parent.width

            Label {
                id: head

                Accessible.role: Accessible.Heading
                size: 12.5
                text: "Largest files"
                weight: Font.DemiBold
            }

            Label {
                color: Theme.palette.label3
                elide: Text.ElideRight
                size: 12.5
                text: "These move to the Trash and can be put back."
                width: parent.width - head.width - parent.spacing
            }
        }

        Label {
            color: Theme.palette.label2
            size: 13
            text: "No large files here."
            visible: files.analyze.largeFiles.isEmpty
        }

        Card {
            height: list.height
            visible: !files.analyze.largeFiles.isEmpty
            width: parent.width

            ListView {
                id: list

                currentIndex: -1
                height: contentHeight
                highlightFollowsCurrentItem: false
                interactive: false
                keyNavigationEnabled: false
                model: files.analyze.largeFiles
                width: parent.width

                delegate: LargeFileRow {
                    id: file

                    analyze: files.analyze
                    width: ListView.view.width

                    onMenuWanted: at => menu.openFor(file, at)
                }

                RowTap {
                    view: list

                    onMenuWanted: (row, at) => menu.openFor(row, at)
                }
            }
        }
    }

    ReadingOrder {
        list: list
    }

    RowMenu {
        id: menu

        PopupItem {
            symbol: "folder"
            text: "Show in Finder"

            onTriggered: files.analyze.revealFile(menu.place)
        }

        PopupItem {
            enabled: !((menu.row as LargeFileRow)?.inTrash ?? false)
            symbol: "trash"
            text: "Move to Trash"

            onTriggered: files.analyze.moveFile(menu.place)
        }
    }
}
