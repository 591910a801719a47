pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Kit
import Zolva.Model

// How much is ticked.
Item {
    id: summary

    required property CleanModel clean

    implicitHeight: amount.height

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
