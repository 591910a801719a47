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

        function step(from: int, by: int) {
            currentIndex = Math.max(0, Math.min(count - 1, from + by));
            if (by !== 0)
                (currentItem as SidebarEntry).row.forceActiveFocus(Qt.TabFocusReason);
        }

        Accessible.name: "Screens"
        Accessible.role: Accessible.PageTabList
        boundsBehavior: Flickable.StopAtBounds
        cacheBuffer: 1000
        clip: true
        focus: true
        height: footer.y - y
        highlightFollowsCurrentItem: true
        keyNavigationEnabled: false
        model: sidebar.model.sidebar
        width: parent.width - 20
        x: 10
        y: 54

        delegate: SidebarEntry {
            id: entry

            isCurrent: ListView.isCurrentItem
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
