pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Frame
import Zolva.Kit

// What stands above the rows, or in their place where there are none.
Item {
    id: head

    property Component summary: null
    property string nothing
    property bool isEmpty: false

    implicitHeight: column.height > 0 ? column.height + 14 : 0

    Column {
        id: column

        spacing: 14
        width: parent.width - 80
        x: 40

        Slot {
            component: head.summary
            height: implicitHeight
            visible: item !== null
            width: parent.width
        }

        Card {
            height: words.height
            visible: head.isEmpty
            width: parent.width

            Label {
                id: words

                padding: 18
                size: 13
                text: head.nothing
                width: parent.width
                wrapMode: Text.Wrap
            }
        }
    }
}
