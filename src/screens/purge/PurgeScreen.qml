pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Lists
import Zolva.Screens.Purge

// The build folders of the user's projects.
ListScreen {
    id: screen

    icon: "hammer.fill"
    list: model.purge
    message: "Zolva looks through your project folders for node_modules, build output and other rebuildable artifacts."
    nothing: "No build artifacts found in your project folders."
    title: "Purge"
    welcomeTitle: "Scan for build artifacts"

    row: PurgeRow {
        list: screen.list
        width: ListView.view.width
    }
}
