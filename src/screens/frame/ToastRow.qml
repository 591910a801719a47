pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Frame
import Zolva.Kit
import Zolva.Model

// The place of one toast in the stack: it comes in from the trailing edge and leaves towards it.
FocusScope {
    id: row

    required property ScreenModel screens
    required property string toastId
    required property string kind
    required property string text
    required property string actionTitle
    /// 0 is beyond the edge, 1 at its place. A toast that is dismissed while it comes in turns
    /// back from where it is.
    property real arrival: 0

    signal focusLeft

    implicitHeight: toast.implicitHeight

    ListView.onRemove: {
        const hadFocus = activeFocus;
        enabled = false;
        if (hadFocus)
            focusLeft();
        if (!Motion.reduced) {
            ListView.delayRemove = true;
            arrival = 0;
            leaving.start();
        }
    }
    Component.onCompleted: arrival = 1

    Behavior on arrival {
        enabled: !Motion.reduced

        ToastSpring {
            epsilon: 0.002
        }
    }

    Timer {
        id: leaving

        interval: 450
        onTriggered: row.ListView.delayRemove = false
    }

    ToastView {
        id: toast

        actionTitle: row.actionTitle
        height: implicitHeight
        kind: row.kind
        opacity: Math.max(0, Math.min(1, row.arrival))
        text: row.text
        width: implicitWidth
        x: row.width - width + (1 - row.arrival) * (width + 20)
        onAction: row.screens.runToast(row.toastId)
        onDismiss: row.screens.dismissToast(row.toastId)
    }
}
