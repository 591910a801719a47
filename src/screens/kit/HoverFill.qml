pragma ComponentBehavior: Bound
import QtQuick

/// Lies behind its content; another colour while the pointer is over that.
Rectangle {
    property color base: "transparent"
    property color hover: "transparent"
    property bool hovering: false

    color: hovering ? hover : base
}
