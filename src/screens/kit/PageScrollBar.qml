pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import Zolva.Kit

/// The narrow bar at the edge of what scrolls; there only where there is more than fits.
T.ScrollBar {
    id: bar

    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    implicitWidth: implicitContentWidth + leftPadding + rightPadding
    minimumSize: orientation === Qt.Vertical && height > 0 ? Math.min(0.5, 32 / height) : 0.05
    padding: 3
    visible: policy === T.ScrollBar.AlwaysOn || (policy === T.ScrollBar.AsNeeded && size < 1)

    contentItem: Rectangle {
        color: Theme.palette.label
        implicitHeight: 6
        implicitWidth: 6
        opacity: bar.pressed ? 0.5 : bar.hovered ? 0.4 : 0.2
        radius: 3
    }
}
