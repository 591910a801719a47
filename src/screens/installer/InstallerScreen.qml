pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Kit
import Zolva.Lists
import Zolva.Screens.Installer

// Disk images and packages that were left behind.
ListScreen {
    id: screen

    readonly property alias menu: menu

    icon: "opticaldisc.fill"
    list: model.installer
    message: "Zolva finds the disk images and packages left in your Downloads and other folders after you installed from them."
    nothing: "No installers found in your Downloads and other folders."
    title: "Installers"
    welcomeTitle: "Scan for installers"

    row: InstallerRow {
        id: item

        installer: screen.model.installer
        list: screen.list
        width: ListView.view.width

        onMenuWanted: at => menu.openFor(item, at)
    }

    onMenuWanted: (row, at) => menu.openFor(row as TickRow, at)

    RowMenu {
        id: menu

        PopupItem {
            symbol: "folder"
            text: "Show in Finder"
            onTriggered: screen.model.installer.reveal(menu.rowId)
        }

        PopupItem {
            isDestructive: true
            symbol: "trash"
            text: "Remove"
            onTriggered: screen.model.installer.removeOne(menu.rowId)
        }
    }
}
