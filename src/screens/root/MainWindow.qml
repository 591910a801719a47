pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Kit
import Zolva.Model
import Zolva.Root

// The one window. Whether it hides or the program ends when somebody closes it is the program's
// decision; so is when it is shown first.
Window {
    id: window

    required property ScreenModel model

    signal closeWanted

    color: Theme.palette.win
    height: 812
    minimumHeight: 660
    minimumWidth: 980
    title: "Zolva"
    width: 1220

    onClosing: close => {
        close.accepted = false;
        window.closeWanted();
    }

    ZolvaRootView {
        anchors.fill: parent
        focus: true
        model: window.model
        onCloseWanted: window.closeWanted()
    }
}
