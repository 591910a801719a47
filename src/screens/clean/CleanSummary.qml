pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Kit
import Zolva.Model

// How much is ticked; and the card that stands in the place of the rows where there are none.
Item {
    id: summary

    required property CleanModel clean

    implicitHeight: column.height + 14

    Column {
        id: column

        spacing: 14
        width: parent.width - 80
        x: 40

        Item {
            height: amount.height
            width: parent.width

            Label {
                id: amount

                size: 22
                text: summary.clean.selectedSize
                tracking: -0.4
                weight: Font.Bold
            }

            Label {
                anchors.baseline: amount.baseline
                anchors.left: amount.right
                anchors.leftMargin: 10
                anchors.right: parent.right
                color: Theme.palette.label2
                elide: Text.ElideRight
                size: 13
                text: summary.clean.selectedCount
            }
        }

        Card {
            height: nothing.height
            visible: summary.clean.isEmpty
            width: parent.width

            Label {
                id: nothing

                padding: 18
                size: 13
                text: "Nothing to clean right now. Your caches are already at their floor."
                width: parent.width
                wrapMode: Text.Wrap
            }
        }
    }
}
