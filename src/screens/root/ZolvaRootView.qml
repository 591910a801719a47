pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import Zolva.Frame
import Zolva.Kit
import Zolva.Model
import Zolva.Root
import Zolva.Sheets

// All that the window shows, from back to front.
FocusScope {
    id: root

    required property ScreenModel model
    readonly property bool isHeld: model.quit.isAsking || model.access.introShown
    readonly property bool isCovered: isHeld || model.confirm.isOpen

    signal closeWanted

    // The overlay has had the focus; it goes back to where it was.
    onIsCoveredChanged: {
        if (!isCovered)
            Qt.callLater(desk.forceActiveFocus, Qt.PopupFocusReason);
    }

    Binding {
        property: "light"
        target: Theme
        value: root.model.lightTheme
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.palette.win
    }

    // Nothing under an overlay can be pressed, hovered or come to by the keyboard.
    FocusScope {
        id: desk

        anchors.fill: parent
        enabled: !root.isCovered
        focus: true

        Sidebar {
            id: sidebar

            focus: true
            height: parent.height
            model: root.model
            width: implicitWidth
        }

        ContentColumn {
            height: parent.height
            model: root.model
            width: parent.width - x
            x: sidebar.width
        }
    }

    NoiseOverlay {
        anchors.fill: parent
        opacity: 0.04
    }

    ConfirmSheet {
        anchors.fill: parent
        isBehind: root.isHeld
        model: root.model
    }

    AccessIntro {
        access: root.model.access
        anchors.fill: parent
        isBehind: root.model.quit.isAsking
    }

    QuitAlert {
        anchors.fill: parent
        quit: root.model.quit
    }

    ToastStack {
        anchors.fill: parent
        model: root.model
    }

    WindowKeys {
        isHeld: root.isHeld
        model: root.model
        onCloseWanted: root.closeWanted()
    }
}
