pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Frame
import Zolva.Kit
import Zolva.Model
import Zolva.Root

// The chosen screen's page, and what drifts behind it.
Item {
    id: column

    required property ScreenModel model
    readonly property alias router: router

    Rectangle {
        anchors.fill: parent
        color: Theme.palette.content
    }

    PageBackdrop {
        anchors.fill: parent
        screen: column.model.screen
    }

    ScreenRouter {
        id: router

        anchors.fill: parent
        model: column.model
    }
}
