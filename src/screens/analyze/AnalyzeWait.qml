pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Kit

// A place is being walked, or that failed.
Item {
    id: wait

    property string waitText
    /// Empty unless it failed.
    property string failText
    readonly property bool hasFailed: failText !== ""

    implicitHeight: Math.max(words.height, 16)

    Spinner {
        anchors.verticalCenter: parent.verticalCenter
        size: 16
        visible: !wait.hasFailed
        x: 40
    }

    Rectangle {
        id: dot

        anchors.verticalCenter: parent.verticalCenter
        color: Theme.palette.red
        height: 8
        radius: 4
        visible: wait.hasFailed
        width: 8
        x: 40
    }

    Label {
        id: words

        color: wait.hasFailed ? Theme.palette.label : Theme.palette.label2
        size: 13.5
        text: wait.hasFailed ? wait.failText : wait.waitText
        width: wait.width - 40 - x
        wrapMode: Text.Wrap
        x: wait.hasFailed ? 58 : 66
    }
}
