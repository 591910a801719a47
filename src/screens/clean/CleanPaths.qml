pragma ComponentBehavior: Bound

import QtQuick
import Zolva.Kit
import Zolva.Model

// The paths of an open category, as far as they are listed.
Column {
    id: paths

    required property list<pathLine> lines
    required property string more
    required property string detail

    bottomPadding: 14
    spacing: 7

    Label {
        color: Theme.palette.label2
        size: 12.5
        text: paths.detail
    }

    Repeater {
        model: paths.lines

        Item {
            id: line

            required property pathLine modelData

            height: pathText.height
            width: paths.width

            Accessible.description: modelData.trailing
            Accessible.name: modelData.fullText
            Accessible.role: Accessible.StaticText

            Label {
                id: pathText

                Accessible.ignored: true
                color: Theme.palette.label2
                elide: Text.ElideMiddle
                mono: true
                size: 12.5
                text: line.modelData.text
                width: parent.width - trailingText.width - 16

                HoverHandler {
                    id: hover
                }

                HintTip {
                    text: line.modelData.fullText
                    visible: hover.hovered && line.modelData.fullText !== line.modelData.text
                }
            }

            Label {
                id: trailingText

                Accessible.ignored: true
                anchors.right: parent.right
                color: line.modelData.isSize ? Theme.palette.label2 : Theme.palette.label3
                size: 12.5
                text: line.modelData.trailing
            }
        }
    }

    Label {
        color: Theme.palette.label3
        size: 12
        text: paths.more
        visible: text !== ""
    }
}
