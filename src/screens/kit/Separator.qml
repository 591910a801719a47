pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Kit

/// A line between two things. Give it a width.
Rectangle {
    color: Theme.palette.sep
    implicitHeight: 1
}
