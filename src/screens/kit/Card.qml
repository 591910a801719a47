pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Kit

/// The ground that a group of things stands on.
Rectangle {
    color: Theme.palette.card
    radius: 12
}
