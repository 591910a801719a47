pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Kit
import Zolva.Lists
import Zolva.Model

// One entry, sized against the whole; a folder can be gone into.
ListRow {
    id: row

    required property AnalyzeModel analyze
    required property string name
    required property bool isFolder
    required property real share
    required property string shareText
    required property string sizeText
    required property string spokenValue

    hasMenu: true
    implicitHeight: 44
    target: isFolder ? head : still

    Keys.onLeftPressed: analyze.goUp()
    Keys.onRightPressed: analyze.open(index)

    PointerButton {
        id: head

        activeFocusOnTab: row.isCurrent
        enabled: row.isFolder
        focus: row.isFolder
        height: row.height
        ringInset: 4
        ringRadius: 13
        spokenName: row.name
        spokenValue: row.spokenValue
        visible: row.isFolder
        width: row.width - 2 * row.inset
        x: row.inset

        onClicked: row.analyze.open(row.index)

        HoverFill {
            anchors.fill: parent
            anchors.margins: 4
            hover: Theme.palette.cardHover
            hovering: head.hovering
            radius: 9
        }
    }

    Bystander {
        id: still

        Accessible.role: Accessible.ListItem
        activeFocusOnTab: row.isCurrent
        focus: !row.isFolder
        height: row.height
        spokenName: row.name
        spokenText: row.spokenValue
        visible: !row.isFolder
        width: head.width
        x: row.inset
    }

    Symbol {
        id: icon

        anchors.verticalCenter: parent.verticalCenter
        color: row.isFolder ? Theme.palette.accent : Theme.palette.label3
        name: row.isFolder ? "folder.fill" : "doc.fill"
        size: 15
        x: row.inset + 18 + (21 - width) / 2
    }

    Label {
        Accessible.ignored: true
        anchors.verticalCenter: parent.verticalCenter
        elide: Text.ElideMiddle
        maximumLineCount: 1
        size: 13.5
        text: row.name
        width: bar.x - 20 - x
        x: row.inset + row.lineInset
    }

    Rectangle {
        id: bar

        anchors.verticalCenter: parent.verticalCenter
        border.color: Theme.palette.sep2
        color: Theme.palette.well
        height: 5
        radius: 2.5
        width: 120
        x: percent.x - 14 - width

        Rectangle {
            color: Theme.palette.accent
            height: parent.height
            radius: parent.radius
            visible: row.share > 0
            width: Math.max(parent.height, parent.width * row.share)
        }
    }

    Label {
        id: percent

        Accessible.ignored: true
        anchors.verticalCenter: parent.verticalCenter
        color: Theme.palette.label3
        horizontalAlignment: Text.AlignRight
        size: 12.5
        text: row.shareText
        width: 52
        x: amount.x - 10 - width
    }

    Label {
        id: amount

        Accessible.ignored: true
        anchors.verticalCenter: parent.verticalCenter
        horizontalAlignment: Text.AlignRight
        size: 13.5
        text: row.sizeText
        weight: Font.Medium
        width: 82
        x: row.width - row.inset - 18 - width
    }
}
