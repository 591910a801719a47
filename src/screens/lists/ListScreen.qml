pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Frame
import Zolva.Lists
import Zolva.Model

// A screen that scans, lists what it found and removes what is ticked of it.
FocusScope {
    id: screen

    required property ScreenModel model
    required property ListScreenModel list
    property string title
    property string icon
    property string welcomeTitle
    property string message
    /// Stands in the place of the rows where there are none.
    property string nothing
    property int linkWeight: Font.Medium
    /// Between the head and the rows.
    property Component summary: null
    property Component row: null
    property alias page: slot.item

    /// Of the row at that place of it, by the pointer or by the keys.
    signal menuWanted(row: ListRow, at: point)

    Slot {
        id: slot

        anchors.fill: parent
        component: screen.list.page === ListScreenModel.List ? loaded : welcome
    }

    Component {
        id: welcome

        WelcomePage {
            focus: true
            icon: screen.icon
            message: screen.message
            scanning: screen.list.page === ListScreenModel.Scanning
            subtitle: screen.list.subtitle
            title: screen.title
            welcomeTitle: screen.welcomeTitle

            onScan: screen.list.scan()
        }
    }

    Component {
        id: loaded

        ListPage {
            focus: true
            linkWeight: screen.linkWeight
            list: screen.list
            model: screen.model
            nothing: screen.nothing
            row: screen.row
            summary: screen.summary
            title: screen.title

            onMenuWanted: (row, at) => screen.menuWanted(row, at)
        }
    }
}
