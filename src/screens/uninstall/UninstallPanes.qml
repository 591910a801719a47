pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Kit
import Zolva.Model
import Zolva.Screens.Uninstall

// The applications, the one in focus beside them, and what can be done with the ticked ones.
FocusScope {
    id: panes

    required property ScreenModel model
    readonly property alias list: list
    readonly property alias detail: detail
    readonly property alias bar: bar

    function takeFocus() {
        list.takeFocus();
    }

    // The boxes of the rows stand below the title of the page.
    AppList {
        id: list

        focus: true
        height: bar.y
        uninstall: panes.model.uninstall
        width: 300
        x: 28
    }

    Rectangle {
        Accessible.ignored: true
        color: Theme.palette.sep
        height: bar.y
        width: 1
        x: list.x + list.width + 12
    }

    AppPane {
        id: detail

        detail: panes.model.uninstall.detail
        height: bar.y
        width: panes.width - x
        x: list.x + list.width + 13
    }

    UninstallBar {
        id: bar

        model: panes.model
        width: panes.width
        y: panes.height - height
    }
}
