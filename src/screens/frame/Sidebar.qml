pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Frame
import Zolva.Kit
import Zolva.Model

// The way to every screen, and what the Trash and the outside tool are like.
FocusScope {
    id: sidebar

    required property ScreenModel model
    readonly property alias listView: list

    implicitWidth: 264

    Rectangle {
        anchors.fill: parent
        color: Theme.palette.sidebar
    }

    ListView {
        id: list

        // The row that the Tab key comes to. Not the list's own current item, to which the list would
        // give the focus without a reason, so that no ring would show.
        property int place: 0

        function step(from: int, by: int) {
            const next = Math.max(0, Math.min(count - 1, from + by));
            if (by !== 0)
                (itemAtIndex(next) as SidebarEntry).row.forceActiveFocus(Qt.TabFocusReason);
            place = next;
            // Not while that row is being made: the list would lay itself out within itself.
            if (itemAtIndex(next))
                positionViewAtIndex(next, ListView.Contain);
        }

        Accessible.name: "Screens"
        Accessible.role: Accessible.PageTabList
        boundsBehavior: Flickable.StopAtBounds
        cacheBuffer: 1000
        clip: true
        currentIndex: -1
        focus: true
        height: footer.y - y
        keyNavigationEnabled: false
        model: sidebar.model.sidebar
        width: parent.width - 20
        x: 10
        y: 54

        delegate: SidebarEntry {
            id: entry

            isCurrent: index === list.place
            width: list.width
            onChosen: sidebar.model.go(entry.itemId)
            onStepped: by => list.step(entry.index, by)
        }
    }

    SidebarFooter {
        id: footer

        sidebar: sidebar.model.sidebar
        width: parent.width
        y: parent.height - height
    }

    Separator {
        height: parent.height
        width: 1
        x: parent.width - 1
    }
}
