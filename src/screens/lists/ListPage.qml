pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Frame
import Zolva.Lists
import Zolva.Model

// The rows, what of them is ticked, and what can be done with it.
FocusScope {
    id: page

    required property ScreenModel model
    required property ListScreenModel list
    property string title
    property string nothing
    property alias linkWeight: bar.linkWeight
    property Component summary: null
    property alias row: scroll.delegate
    readonly property bool isBusy: model.bulk.present
    readonly property alias scroll: scroll
    readonly property alias bar: bar

    signal menuWanted(row: ListRow, at: point)

    CollapsingPage {
        id: scroll

        canRescan: true
        enabled: !page.isBusy
        focus: true
        height: bar.y
        model: page.list.rows
        opacity: page.isBusy ? 0.5 : 1
        subtitle: page.list.subtitle
        title: page.title
        width: page.width

        footer: Item {
            implicitHeight: 24
        }
        header: Component {
            ListHead {
                isEmpty: page.list.isEmpty
                nothing: page.nothing
                summary: page.summary
            }
        }
        trailing: Component {
            HeaderMenu {
                current: page.list.sort.current
                entries: page.list.sort.names
                label: page.list.sort.label

                onChosen: place => page.list.sort.choose(place)
            }
        }

        onRescan: page.list.rescan()
    }

    RowTap {
        view: scroll.listView

        onMenuWanted: (row, at) => page.menuWanted(row, at)
    }

    RowsCard {
        view: scroll.listView
    }

    ListBar {
        id: bar

        list: page.list
        model: page.model
        width: page.width
        y: page.height - height
    }
}
