pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import Zolva.Kit

/// Everything that can be clicked, without a look of its own: the pointing hand, the keys, the
/// focus ring and the spoken words.
T.AbstractButton {
    id: button

    readonly property bool hovering: hovered && enabled
    readonly property bool shiftHeld: shift.held
    property string spokenName: text
    property string spokenValue
    property string spokenHint
    property int spokenRole: Accessible.Button
    property real ringRadius: 6
    property real ringInset: -3
    property color ringColor: Theme.palette.accent

    function press(): void {
        if (!enabled)
            return;
        if (checkable)
            toggle();
        clicked();
    }

    function pressByKey(event: KeyEvent): void {
        if (!event.isAutoRepeat)
            press();
    }

    Accessible.checkable: checkable
    Accessible.checked: checked
    Accessible.description: spokenValue && spokenHint ? spokenValue + ". " + spokenHint : spokenValue + spokenHint
    Accessible.focusable: enabled // Qt before 6.5 tells nothing more of a disabled item
    Accessible.name: spokenName
    Accessible.role: spokenRole
    // The toolkit gives every button its own role, each time that somebody begins to listen; before
    // Qt 6.5 nothing helps against that, and all are told as buttons.
    Accessible.onRoleChanged: Accessible.role = spokenRole
    Keys.onEnterPressed: event => button.pressByKey(event)
    Keys.onReturnPressed: event => button.pressByKey(event)
    activeFocusOnTab: enabled
    focusPolicy: Qt.TabFocus
    hoverEnabled: true
    implicitHeight: implicitContentHeight + topPadding + bottomPadding
    implicitWidth: implicitContentWidth + leftPadding + rightPadding

    Accessible.onPressAction: {
        shift.clear();
        button.press();
    }

    // In a part of its own: what has a handler takes the presses of every mouse button in Qt 6.4,
    // and a button would be pressed by them all.
    Item {
        anchors.fill: parent

        HoverCursor {
            enabled: button.enabled
        }
    }

    ShiftWatch {
        id: shift

        target: button
    }

    FocusRing {
        border.color: button.ringColor
        inset: button.ringInset
        ringRadius: button.ringRadius
        visible: button.visualFocus
    }
}
