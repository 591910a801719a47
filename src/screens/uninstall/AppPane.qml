pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import Zolva.Kit
import Zolva.Model
import Zolva.Screens.Uninstall

// The application in focus, with what would go with it.
Item {
    id: pane

    required property AppDetail detail

    Column {
        anchors.centerIn: parent
        spacing: 12
        visible: !pane.detail.present

        Symbol {
            anchors.horizontalCenter: parent.horizontalCenter
            color: Theme.palette.label3
            name: "magnifyingglass"
            size: 30
        }

        Label {
            color: Theme.palette.label2
            size: 14
            text: "Select an application"
        }
    }

    Flickable {
        id: scroll

        readonly property string subject: pane.detail.name

        // By the keys, only as far as there is anything.
        function scrollTo(y: real) {
            contentY = Math.max(0, Math.min(contentHeight - height, y));
        }

        Accessible.name: subject
        Accessible.role: Accessible.Grouping
        // What has the focus cannot give that up.
        activeFocusOnTab: contentHeight > height || activeFocus
        anchors.fill: parent
        boundsBehavior: Flickable.StopAtBounds
        clip: true
        contentHeight: column.height + 30
        visible: pane.detail.present

        T.ScrollBar.vertical: PageScrollBar {
        }

        Keys.onDownPressed: scrollTo(contentY + 40)
        Keys.onUpPressed: scrollTo(contentY - 40)
        onSubjectChanged: contentY = 0

        Column {
            id: column

            width: pane.width - 68
            x: 28
            y: 2

            Label {
                Accessible.role: Accessible.Heading
                size: 26
                text: pane.detail.name
                tracking: -0.4
                weight: Font.DemiBold
                width: parent.width
                wrapMode: Text.Wrap
            }

            Label {
                color: Theme.palette.label2
                size: 13
                text: pane.detail.meta
                topPadding: 4
                visible: text !== ""
                width: parent.width
                wrapMode: Text.Wrap
            }

            Label {
                size: 14
                text: pane.detail.summary
                topPadding: 14
                width: parent.width
                wrapMode: Text.Wrap
            }

            Label {
                color: Theme.palette.label2
                size: 13
                text: "No leftover files found for this app."
                topPadding: 14
                visible: pane.detail.isEmpty
                width: parent.width
                wrapMode: Text.Wrap
            }

            Item {
                height: 14
                visible: lines.count > 0
                width: 1
            }

            Card {
                height: rows.height
                visible: lines.count > 0
                width: parent.width

                Column {
                    id: rows

                    width: parent.width

                    Repeater {
                        id: lines

                        model: pane.detail.lines

                        delegate: LeftoverRow {
                            isLast: index === lines.count - 1
                            width: rows.width
                        }
                    }
                }
            }
        }
    }

    FocusRing {
        inset: 3
        ringRadius: 9
        visible: scroll.activeFocus
    }
}
