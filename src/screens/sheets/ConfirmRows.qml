pragma ComponentBehavior: Bound

import QtQuick
import QtQuick.Templates as T
import Zolva.Kit
import Zolva.Model

// What will go, as far as it is listed.
Rectangle {
    id: box

    required property list<confirmRow> rows
    required property string more

    clip: true
    color: Theme.palette.well
    height: Math.min(132, column.height + 18)
    radius: 8

    Flickable {
        id: scroll

        activeFocusOnTab: contentHeight > height
        anchors.fill: parent
        boundsBehavior: Flickable.StopAtBounds
        contentHeight: column.height + 18

        Keys.onDownPressed: contentY = Math.min(contentY + 20, contentHeight - height)
        Keys.onUpPressed: contentY = Math.max(contentY - 20, 0)

        Column {
            id: column

            width: scroll.width - 24
            x: 12
            y: 9

            Repeater {
                model: box.rows

                Item {
                    id: line

                    required property confirmRow modelData

                    height: label.height + 7
                    width: column.width

                    Accessible.name: line.modelData.size === "" ? line.modelData.label
                                     : line.modelData.label + ", " + line.modelData.size
                    Accessible.role: Accessible.StaticText

                    Label {
                        id: label

                        Accessible.ignored: true
                        color: Theme.palette.label2
                        elide: Text.ElideMiddle
                        mono: true
                        size: 11.5
                        text: line.modelData.label
                        width: parent.width - (sizeText.visible ? sizeText.width + 10 : 0)
                        y: 3.5
                    }

                    Label {
                        id: sizeText

                        Accessible.ignored: true
                        anchors.right: parent.right
                        color: Theme.palette.label2
                        size: 11.5
                        text: line.modelData.size
                        visible: text !== ""
                        y: 3.5
                    }
                }
            }

            Label {
                color: Theme.palette.label3
                height: implicitHeight + 7
                size: 11.5
                text: box.more
                verticalAlignment: Text.AlignVCenter
                visible: text !== ""
            }
        }

        T.ScrollBar.vertical: PageScrollBar {
            policy: T.ScrollBar.AlwaysOn
        }
    }

    FocusRing {
        radius: box.radius
        visible: scroll.activeFocus
    }
}
