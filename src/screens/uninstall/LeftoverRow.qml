pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Kit
import Zolva.Model

// One place where the application has left something.
Item {
    id: row

    required property leftoverLine modelData
    required property int index
    property bool isLast: false
    readonly property bool isNarrow: width < 400

    Accessible.description: modelData.spoken
    Accessible.name: modelData.place
    Accessible.role: Accessible.ListItem
    implicitHeight: words.height + 24

    Column {
        id: words

        spacing: 3
        width: amounts.x - x - 16
        x: 16
        y: 12

        // The tag goes below where it finds no room.
        Flow {
            spacing: 8
            width: parent.width

            Label {
                id: place

                Accessible.ignored: true
                elide: Text.ElideRight
                size: 13
                text: row.modelData.place
                width: Math.min(implicitWidth, parent.width)
            }

            Label {
                Accessible.ignored: true
                color: Theme.palette.amber
                elide: Text.ElideRight
                height: place.height
                size: 11.5
                text: row.modelData.tag
                verticalAlignment: Text.AlignVCenter
                visible: text !== ""
                width: Math.min(implicitWidth, parent.width)
            }
        }

        Label {
            id: path

            Accessible.ignored: true
            color: Theme.palette.label3
            elide: Text.ElideMiddle
            maximumLineCount: 1
            size: 12.5
            text: row.modelData.path
            width: parent.width
        }

        Label {
            Accessible.ignored: true
            color: Theme.palette.label2
            size: 11.5
            text: row.modelData.kept
            visible: text !== ""
            width: parent.width
            wrapMode: Text.Wrap
        }
    }

    Grid {
        id: amounts

        columnSpacing: 14
        columns: row.isNarrow ? 1 : 2
        horizontalItemAlignment: Grid.AlignRight
        rowSpacing: 3
        verticalItemAlignment: Grid.AlignVCenter
        x: row.width - width - 16
        y: 12

        Label {
            Accessible.ignored: true
            color: Theme.palette.label2
            size: 12.5
            text: row.modelData.files
        }

        Label {
            Accessible.ignored: true
            horizontalAlignment: Text.AlignRight
            size: 13
            text: row.modelData.size
            width: row.isNarrow ? implicitWidth : Math.max(64, implicitWidth)
        }
    }

    Separator {
        color: Theme.palette.sep2
        visible: !row.isLast
        width: row.width - x
        x: 16
        y: row.height - 1
    }

    HoverHandler {
        id: hover
    }

    HintTip {
        text: row.modelData.path
        visible: hover.hovered && path.truncated
    }
}
