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

    /// To the overlay that wants its answer; where there is none, to where it was on the desk.
    function giveFocusBack() {
        if (!isCovered)
            desk.forceActiveFocus(keeper.reason);
        for (const overlay of [sheet, intro, alert])
            overlay.takeFocus();
    }

    // The overlay has had the focus.
    onIsCoveredChanged: {
        if (!isCovered)
            Qt.callLater(root.giveFocusBack);
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
            id: column

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
        id: sheet

        anchors.fill: parent
        isBehind: root.isHeld
        model: root.model
    }

    AccessIntro {
        id: intro

        access: root.model.access
        anchors.fill: parent
        isBehind: root.model.quit.isAsking
    }

    QuitAlert {
        id: alert

        anchors.fill: parent
        quit: root.model.quit
    }

    ToastStack {
        anchors.fill: parent
        model: root.model
        onFocusLeft: root.giveFocusBack()
    }

    FocusKeeper {
        id: keeper

        ground: desk
        regions: [column, sidebar]
        onLost: root.giveFocusBack()
    }

    WindowKeys {
        isHeld: root.isHeld
        model: root.model
        onCloseWanted: root.closeWanted()
    }
}
