pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Kit

// What the keyboard comes to in a row of which nothing can be pressed.
Item {
    id: stand

    property string spokenName
    property string spokenText
    /// By which way it got the focus.
    property int focusReason: Qt.OtherFocusReason

    Accessible.description: spokenText
    Accessible.focusable: true
    Accessible.name: spokenName
    Accessible.role: Accessible.Button

    FocusRing {
        inset: 4
        ringRadius: 13
        visible: stand.activeFocus
    }
}
