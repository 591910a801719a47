pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import Zolva.Kit

/// What an icon stands for, or a whole text that was shortened; show it by `visible`.
T.ToolTip {
    id: tip

    closePolicy: T.Popup.CloseOnEscape | T.Popup.CloseOnPressOutsideParent | T.Popup.CloseOnReleaseOutsideParent
    delay: 600
    implicitHeight: contentHeight + topPadding + bottomPadding
    implicitWidth: Math.min(contentWidth + leftPadding + rightPadding, 480)
    leftPadding: 9
    margins: 8
    padding: 5
    rightPadding: 9
    x: parent ? Math.round((parent.width - implicitWidth) / 2) : 0
    y: -implicitHeight - 6

    background: Item {
        Shadow {
            anchors.fill: parent
            blur: 5
            radius: 6
            strength: 0.2
        }

        Rectangle {
            anchors.fill: parent
            border.color: Theme.palette.sep
            color: Theme.palette.sheet
            radius: 6
        }
    }
    contentItem: Label {
        size: 12
        text: tip.text
        wrapMode: Text.Wrap
    }
}
