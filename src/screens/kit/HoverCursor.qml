pragma ComponentBehavior: Bound
import QtQuick

/// The pointing hand while the pointer is over its item. The window asks for the cursor anew at
/// every move, so nothing is left behind when the item goes away under the pointer.
HoverHandler {
    cursorShape: Qt.PointingHandCursor
}
