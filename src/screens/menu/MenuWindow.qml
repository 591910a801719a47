pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Kit
import Zolva.Model
import Zolva.Screens.Menu

// The panel of the menu bar in a window without a frame. Where it stands and when it shows is the
// program's decision; it goes when another window gets the keys.
Window {
    id: window

    required property ScreenModel model

    function dismiss() {
        visible = false;
    }

    color: Theme.palette.win
    flags: Qt.Tool | Qt.FramelessWindowHint | Qt.WindowStaysOnTopHint
    height: view.implicitHeight
    title: "Zolva menu"
    visible: false
    width: view.implicitWidth

    onActiveChanged: {
        if (!active)
            dismiss();
    }

    MenuBarView {
        id: view

        anchors.fill: parent
        focus: true
        model: window.model
        onDismissed: window.dismiss()
    }
}
