pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Frame
import Zolva.Kit
import Zolva.Model

// The toasts that stand, one under the other, oldest first, in the corner at the trailing side.
Item {
    id: stack

    required property ScreenModel model
    readonly property alias count: list.count

    /// The toast that had the focus goes; somebody else has to take it.
    signal focusLeft

    // A list, for a row stays in it until it has left the screen.
    ListView {
        id: list

        // All are in sight however many there are; those beyond the upper edge are the oldest.
        height: Math.max(stack.height, contentHeight)
        cacheBuffer: 4000
        interactive: false
        keyNavigationEnabled: false
        model: stack.model.toasts
        spacing: 10
        width: 460
        x: stack.width - width - 20
        y: stack.height - contentHeight - 20

        delegate: ToastRow {
            screens: stack.model
            width: list.width
            onFocusLeft: stack.focusLeft()
        }
        displaced: Transition {
            enabled: !Motion.reduced

            ToastSpring {
                epsilon: 0.25
                property: "y"
            }
        }

        Behavior on y {
            enabled: !Motion.reduced

            ToastSpring {
                epsilon: 0.25
            }
        }
    }
}
