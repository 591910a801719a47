pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Kit
import Zolva.Model

// One path of an open category; the whole of it is told where it was shortened.
Item {
    id: line

    required property pathLine modelData

    Accessible.description: modelData.trailing
    Accessible.name: modelData.fullText
    Accessible.role: Accessible.StaticText
    implicitHeight: path.height

    Label {
        id: path

        Accessible.ignored: true
        anchors.left: parent.left
        anchors.right: amount.left
        anchors.rightMargin: 16
        color: Theme.palette.label2
        elide: Text.ElideMiddle
        maximumLineCount: 1
        mono: true
        size: 12.5
        text: line.modelData.text
    }

    Label {
        id: amount

        Accessible.ignored: true
        anchors.baseline: path.baseline
        anchors.right: parent.right
        color: line.modelData.isSize ? Theme.palette.label2 : Theme.palette.label3
        size: 12.5
        text: line.modelData.trailing
    }

    HoverHandler {
        id: hover
    }

    HintTip {
        text: line.modelData.fullText
        visible: hover.hovered && (path.truncated
                                   || line.modelData.fullText !== line.modelData.text)
    }
}
