pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Kit

/// Shows which thing the keys go to. `inset` moves it into its parent, a negative one out of it;
/// `radius` is that of the parent's own corners.
Rectangle {
    property real inset: -3
    property real ringRadius: 6

    Accessible.ignored: true
    anchors.fill: parent
    anchors.margins: inset
    border.color: Theme.palette.accent
    border.width: 2
    color: "transparent"
    radius: Math.max(0, ringRadius - inset)
    z: 1
}
