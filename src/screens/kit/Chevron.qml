pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Kit

/// Points to what is closed, and down at what is open.
Symbol {
    property bool open: false

    color: Theme.palette.label3
    name: "chevron.right"
    rotation: open ? 90 : 0
    size: 11
    weight: Font.DemiBold
}
