pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import Zolva.Frame
import Zolva.Kit
import Zolva.Model
import Zolva.Screens.Uninstall

// The applications that are searched for, and how many of them are ticked.
FocusScope {
    id: pane

    required property UninstallModel uninstall
    readonly property alias listView: list

    function takeFocus() {
        list.currentIndex = Math.max(0, Math.min(list.currentIndex, list.count - 1));
        (list.currentItem as AppRow)?.takeFocus();
    }

    Item {
        id: head

        height: 32
        width: pane.width

        Label {
            id: count

            anchors.verticalCenter: parent.verticalCenter
            size: 13
            text: pane.uninstall.countText
            x: 12
        }

        Label {
            anchors.baseline: count.baseline
            anchors.left: count.right
            anchors.leftMargin: 8
            anchors.right: all.left
            anchors.rightMargin: 8
            color: Theme.palette.label2
            elide: Text.ElideRight
            size: 12.5
            text: pane.uninstall.tickedText
            visible: text !== ""
        }

        LinkButton {
            id: all

            anchors.right: parent.right
            anchors.rightMargin: 12
            anchors.verticalCenter: parent.verticalCenter
            font: Face.text(13)
            hoverColor: Theme.palette.accentHover
            title: pane.uninstall.selectWord

            onClicked: pane.uninstall.toggleAll()
        }
    }

    ListView {
        id: list

        readonly property bool hasRoom: height > 0

        function turn(pages: real) {
            const last = originY + Math.max(0, contentHeight - height);
            contentY = Math.max(originY, Math.min(last, contentY + pages * Math.max(44, height - 44)));
        }

        // The application in focus is where the keyboard begins, and in sight once it is another
        // one or elsewhere; not while the keyboard is somewhere in the list, nor before the list has
        // its room.
        function beginAtFocus() {
            if (!hasRoom || activeFocus)
                return;
            forceLayout();
            const place = pane.uninstall.rows.focusedRow();
            if (currentIndex !== place) {
                currentIndex = place;
                // Once what is around the list has its room, too.
                Qt.callLater(bringIntoSight);
            }
        }

        function bringIntoSight() {
            if (currentIndex >= 0)
                positionViewAtIndex(currentIndex, ListView.Contain);
        }

        anchors.bottom: parent.bottom
        anchors.left: parent.left
        anchors.right: parent.right
        anchors.top: head.bottom
        anchors.topMargin: 6
        bottomMargin: 12
        boundsBehavior: Flickable.StopAtBounds
        cacheBuffer: 400
        clip: true
        currentIndex: -1
        focus: true
        highlightFollowsCurrentItem: false
        keyNavigationEnabled: false
        model: pane.uninstall.rows

        delegate: AppRow {
            uninstall: pane.uninstall
            width: list.width

            onArrived: arrival.restart()
        }
        T.ScrollBar.vertical: PageScrollBar {
        }

        onHasRoomChanged: beginAtFocus()
    }

    ReadingOrder {
        list: list
    }

    Connections {
        function onFocusCame() {
            list.beginAtFocus();
        }

        target: pane.uninstall.rows
    }

    // On the way through the list nothing is looked for.
    Timer {
        id: arrival

        interval: 120
        onTriggered: {
            const row = list.currentItem as AppRow;
            if (row?.activeFocus && !row.inFocus)
                pane.uninstall.show(row.rowId);
        }
    }

    Shortcut {
        enabled: pane.enabled && pane.visible
        sequence: "PgDown"
        onActivated: list.turn(1)
    }

    Shortcut {
        enabled: pane.enabled && pane.visible
        sequence: "PgUp"
        onActivated: list.turn(-1)
    }
}
