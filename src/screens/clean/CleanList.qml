pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Frame
import Zolva.Model
import Zolva.Screens.Clean

// The rows, what of them is ticked, and what can be done with it.
FocusScope {
    id: list

    required property ScreenModel model
    readonly property CleanModel clean: model.clean
    readonly property bool isBusy: model.bulk.present
    readonly property alias page: page
    readonly property alias bar: bar

    CollapsingPage {
        id: page

        canRescan: true
        enabled: !list.isBusy
        focus: true
        height: bar.y
        model: list.clean.rows
        opacity: list.isBusy ? 0.5 : 1
        subtitle: list.clean.subtitle
        title: "Clean"
        width: list.width

        delegate: CleanRow {
            clean: list.clean
            width: ListView.view.width
        }
        footer: Item {
            implicitHeight: 24
        }
        header: Component {
            CleanSummary {
                clean: list.clean
            }
        }
        trailing: Component {
            HeaderMenu {
                current: list.clean.sort.current
                entries: list.clean.sort.names
                label: list.clean.sort.label

                onChosen: place => list.clean.sort.choose(place)
            }
        }

        onRescan: list.clean.rescan()
    }

    RowsCard {
        view: page.listView
    }

    CleanBar {
        id: bar

        model: list.model
        width: list.width
        y: list.height - height
    }
}
