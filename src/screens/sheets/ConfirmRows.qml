pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import Zolva.Kit
import Zolva.Model

// What will go, as far as it is listed.
Rectangle {
    id: box

    required property ConfirmModel confirm
    readonly property alias count: lines.count

    color: Theme.palette.well
    implicitHeight: Math.min(132, column.height + 18)
    radius: 8

    // Each sheet is read from its beginning.
    Connections {
        target: box.confirm

        function onIsOpenChanged() {
            if (box.confirm.isOpen)
                scroll.contentY = 0;
        }
        function onSubjectChanged() {
            scroll.contentY = 0;
        }
    }

    Flickable {
        id: scroll

        // By the keys, only as far as there is anything.
        function scrollTo(y: real) {
            contentY = Math.max(0, Math.min(contentHeight - height, y));
        }

        Accessible.name: "What will be removed"
        Accessible.role: Accessible.List
        activeFocusOnTab: contentHeight > height
        anchors.fill: parent
        boundsBehavior: Flickable.StopAtBounds
        clip: true
        contentHeight: column.height + 18

        T.ScrollBar.vertical: PageScrollBar {
        }

        Keys.onDownPressed: scrollTo(contentY + 24)
        Keys.onUpPressed: scrollTo(contentY - 24)

        Column {
            id: column

            width: scroll.width - 24
            x: 12
            y: 9

            Repeater {
                id: lines

                model: box.confirm.rows

                delegate: ConfirmLine {
                    width: column.width
                }
            }

            Label {
                bottomPadding: 3.5
                color: Theme.palette.label3
                size: 11.5
                text: box.confirm.more
                topPadding: 3.5
                visible: text !== ""
            }
        }
    }

    FocusRing {
        ringRadius: box.radius
        visible: scroll.activeFocus
    }
}
