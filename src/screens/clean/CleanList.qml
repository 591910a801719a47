pragma ComponentBehavior: Bound

import QtQuick
import Zolva.Frame
import Zolva.Kit
import Zolva.Model

// The rows, what of them is ticked, and what can be done with it.
Item {
    id: list

    required property ScreenModel model
    readonly property CleanModel clean: model.clean

    CollapsingPage {
        anchors.bottom: bar.top
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: parent.top
        canRescan: true
        enabled: !list.model.bulk.present
        model: list.clean.rows
        opacity: list.model.bulk.present ? 0.5 : 1
        subtitle: list.clean.subtitle
        title: "Clean"

        delegate: CleanRow {
            clean: list.clean
            width: ListView.view.width
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

    CleanBar {
        id: bar

        anchors.bottom: parent.bottom
        model: list.model
        width: parent.width
    }
}
