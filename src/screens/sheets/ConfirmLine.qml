pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Kit
import Zolva.Model

// One of the things that will go; the whole of its path is told where it was shortened.
Item {
    id: line

    required property confirmRow modelData
    readonly property bool hasSize: modelData.size !== ""

    Accessible.name: hasSize ? modelData.fullText + ", " + modelData.size : modelData.fullText
    Accessible.role: Accessible.ListItem
    implicitHeight: label.height + 7

    Label {
        id: label

        Accessible.ignored: true
        anchors.left: parent.left
        anchors.right: amount.left
        anchors.rightMargin: line.hasSize ? 10 : 0
        color: Theme.palette.label2
        elide: Text.ElideMiddle
        maximumLineCount: 1
        mono: true
        size: 11.5
        text: line.modelData.label
        y: 3.5
    }

    Label {
        id: amount

        Accessible.ignored: true
        anchors.baseline: label.baseline
        anchors.right: parent.right
        color: Theme.palette.label2
        size: 11.5
        text: line.modelData.size
    }

    HoverHandler {
        id: hover
    }

    HintTip {
        text: line.modelData.fullText
        visible: hover.hovered && (label.truncated || text !== line.modelData.label)
    }
}
