pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Kit
import Zolva.Lists
import Zolva.Model

// One large file, and the way to the Trash.
ListRow {
    id: row

    required property AnalyzeModel analyze
    required property string name
    required property string path
    required property string sizeText
    required property bool inTrash
    required property string spokenName
    required property string spokenHint

    function keepFocus() {
        if (activeFocus)
            takeFocus();
    }

    hasMenu: true
    implicitHeight: 56
    inset: 0
    lineInset: 18
    target: inTrash ? still : button

    // What was pressed is gone, or is there again.
    onInTrashChanged: Qt.callLater(keepFocus)

    Column {
        anchors.verticalCenter: parent.verticalCenter
        spacing: 2
        width: amount.x - 16 - x
        x: 18

        Label {
            Accessible.ignored: true
            elide: Text.ElideMiddle
            maximumLineCount: 1
            size: 13
            text: row.name
            width: parent.width
        }

        Label {
            id: where

            Accessible.ignored: true
            color: Theme.palette.label3
            elide: Text.ElideMiddle
            maximumLineCount: 1
            size: 12
            text: row.path
            width: parent.width
        }
    }

    HoverHandler {
        id: hover
    }

    HintTip {
        text: row.path
        visible: hover.hovered && where.truncated
    }

    Label {
        id: amount

        Accessible.ignored: true
        anchors.verticalCenter: parent.verticalCenter
        horizontalAlignment: Text.AlignRight
        size: 13
        text: row.sizeText
        weight: Font.Medium
        width: 82
        x: row.width - 18 - button.width - 16 - width
    }

    PillButton {
        id: button

        activeFocusOnTab: row.isCurrent
        anchors.verticalCenter: parent.verticalCenter
        enabled: visible
        focus: !row.inTrash
        font: Face.text(12.5)
        hpad: 12
        pillHeight: 28
        role: PillButton.Neutral
        spokenName: row.spokenName
        title: "Move to Trash"
        visible: !row.inTrash
        x: row.width - 18 - width

        onClicked: row.analyze.moveFile(row.index)
    }

    Label {
        Accessible.ignored: true
        anchors.centerIn: button
        color: Theme.palette.label3
        size: 12.5
        text: "In the Trash"
        visible: row.inTrash
    }

    Bystander {
        id: still

        Accessible.role: Accessible.StaticText
        activeFocusOnTab: row.isCurrent
        focus: row.inTrash
        height: row.height
        spokenName: row.spokenName
        spokenText: row.spokenHint
        visible: row.inTrash
        width: row.width
    }
}
