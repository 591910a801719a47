// Not bound: the list views of Qt 6.4 refuse bound components as their header and footer.
import QtQuick
import QtQuick.Templates as T
import Zolva.Frame
import Zolva.Kit

// A page that scrolls, with its head at the top of what scrolls and a compact bar that takes the
// head's place. One list carries it all, so that only the rows in sight are made.
FocusScope {
    id: page

    property string title
    property string subtitle
    property bool canRescan: false
    property Component trailing: null
    /// Between the head and the rows.
    property Component header: null
    /// Below the rows.
    property Component footer: null
    property alias model: list.model
    property alias delegate: list.delegate
    readonly property alias listView: list
    readonly property real offset: list.contentY - list.originY
    readonly property real progress: {
        const way = page.subtitle === "" ? 40 : 58;
        return Math.max(0, Math.min(1, page.offset / way));
    }
    property PageHeader head: null
    /// The head is, and the bar has its place.
    property bool isGone: false

    signal rescan

    /// Head and bar have the same buttons: the keyboard stays on the one that it was on.
    function exchange(gone: bool) {
        const from = gone ? head : bar;
        const to = gone ? bar : head;
        const onRescan = from?.rescanButton.activeFocus ?? false;
        const onTrailing = from?.trailingItem?.activeFocus ?? false;
        isGone = gone;
        if (onRescan)
            to.rescanButton.forceActiveFocus(Qt.TabFocusReason);
        else if (onTrailing)
            to.trailingItem.forceActiveFocus(Qt.TabFocusReason);
    }

    /// Scrolls by so many pages, not beyond either end.
    function turn(pages: real) {
        const last = list.originY + Math.max(0, list.contentHeight - list.height);
        const target = list.contentY + pages * Math.max(40, list.height - bar.height - 40);
        list.contentY = Math.max(list.originY, Math.min(last, target));
    }

    /// Scrolls as little as shows this much of the content, clear of the bar.
    function reveal(top: real, bottom: real) {
        if (top < list.contentY + bar.height + 12)
            list.contentY = Math.max(list.originY, top - bar.height - 12);
        else if (bottom > list.contentY + list.height - 16)
            list.contentY = bottom - list.height + 16;
    }

    onProgressChanged: {
        if (isGone !== (progress >= 0.5))
            exchange(!isGone);
    }

    // Under the full bar nothing is drawn: a page that is dimmed as a whole would show it through.
    Item {
        id: sight

        clip: true
        height: page.height - y
        width: page.width
        y: page.progress < 1 ? 0 : bar.height

        ListView {
            id: list

            // The page stays at its top while what is above the rows grows or shrinks. The list may
            // have moved by itself before it tells of that; else it was moved.
            property real lastOrigin: 0
            property real lastY: 0
            property real lastHead: 0

            function headHeight(): real {
                return headerItem ? headerItem.height : 0;
            }

            boundsBehavior: Flickable.StopAtBounds
            cacheBuffer: 400
            currentIndex: -1
            height: page.height
            highlightFollowsCurrentItem: false
            keyNavigationEnabled: false
            model: 0
            width: page.width
            y: -sight.y

            header: Column {
                width: list.width

                // It keeps its room while it is out of sight.
                Item {
                    height: head.implicitHeight
                    width: parent.width

                    PageHeader {
                        id: head

                        canRescan: page.canRescan
                        // Out of sight it is out of reach of the keyboard, too.
                        enabled: !page.isGone
                        height: implicitHeight
                        isGone: page.isGone
                        opacity: 1 - page.progress
                        subtitle: page.subtitle
                        title: page.title
                        trailing: page.trailing
                        visible: page.progress < 1
                        width: parent.width
                        onRescan: page.rescan()
                        Component.onCompleted: page.head = head
                    }
                }

                Slot {
                    component: page.header
                    width: parent.width
                }
            }

            footer: Slot {
                component: page.footer
                width: list.width
            }

            T.ScrollBar.vertical: PageScrollBar {
                topPadding: bar.height + 3
            }

            onContentYChanged: {
                lastY = contentY;
                lastHead = headHeight();
            }
            onOriginYChanged: {
                const before = headHeight() === lastHead ? contentY : lastY;
                const wasAtTop = Math.abs(before - lastOrigin) <= 0.5;
                lastOrigin = originY;
                lastHead = headHeight();
                if (wasAtTop)
                    contentY = originY;
            }
            Keys.onUpPressed: event => event.accepted = reach.step(false)
            Keys.onDownPressed: event => event.accepted = reach.step(true)
        }
    }

    CompactBar {
        id: bar

        canRescan: page.canRescan
        inReach: page.isGone
        progress: page.progress
        title: page.title
        trailing: page.trailing
        width: page.width
        onRescan: page.rescan()
    }

    ReadingOrder {
        list: list
    }

    FocusReach {
        id: reach

        inside: list.contentItem
        onReached: (top, bottom) => page.reveal(top, bottom)
    }

    Shortcut {
        enabled: page.canRescan && page.enabled && page.visible
        sequence: "Ctrl+R"
        onActivated: page.rescan()
    }

    Shortcut {
        enabled: page.enabled && page.visible
        sequence: "PgDown"
        onActivated: page.turn(1)
    }

    Shortcut {
        enabled: page.enabled && page.visible
        sequence: "PgUp"
        onActivated: page.turn(-1)
    }
}
