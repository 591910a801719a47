pragma ComponentBehavior: Bound

import QtQuick
import Zolva.Kit

// A card that stands over everything else until it is answered.
FocusScope {
    id: overlay

    required property bool isOpen
    property bool closesOnScrim: true
    property real padAcross: 26
    property real padTop: 24
    property real padBottom: 20
    property string spokenName
    // What has the focus when the card appears.
    property Item firstFocus
    default property alias content: body.data
    property Item focusBefore

    signal cancelled()

    function takeFocus(): void {
        focusBefore = Window.activeFocusItem;
        (firstFocus ?? body).forceActiveFocus(Qt.TabFocusReason);
    }

    function giveFocusBack(): void {
        if (focusBefore)
            focusBefore.forceActiveFocus(Qt.OtherFocusReason);
        focusBefore = null;
    }

    anchors.fill: parent
    enabled: isOpen
    opacity: isOpen ? 1 : 0
    visible: opacity > 0

    Keys.onEscapePressed: overlay.cancelled()
    onIsOpenChanged: isOpen ? Qt.callLater(overlay.takeFocus) : overlay.giveFocusBack()
    Component.onCompleted: if (isOpen)
        Qt.callLater(overlay.takeFocus)

    Behavior on opacity {
        NumberAnimation {
            duration: Motion.sheet
            easing.bezierCurve: Motion.easeOut
            easing.type: Easing.BezierSpline
        }
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.palette.scrim

        // Nothing behind it hears of the pointer, wheel included.
        MouseArea {
            anchors.fill: parent
            hoverEnabled: true

            onClicked: if (overlay.closesOnScrim)
                overlay.cancelled()
            onWheel: wheel => wheel.accepted = true
        }
    }

    Item {
        id: card

        anchors.centerIn: parent
        height: body.height + overlay.padTop + overlay.padBottom
        scale: overlay.isOpen ? 1 : 0.94
        width: 432

        Accessible.name: overlay.spokenName
        Accessible.role: Accessible.Dialog

        Behavior on scale {
            NumberAnimation {
                duration: Motion.sheet
                easing.bezierCurve: Motion.easeOut
                easing.type: Easing.BezierSpline
            }
        }

        Shadow {
            anchors.fill: parent
            blur: 20
            radius: 14
            strength: 0.5
        }

        Rectangle {
            anchors.fill: parent
            color: Theme.palette.sheet
            radius: 14

            MouseArea {
                anchors.fill: parent
                hoverEnabled: true
            }
        }

        Item {
            id: body

            height: childrenRect.height
            width: card.width - 2 * overlay.padAcross
            x: overlay.padAcross
            y: overlay.padTop
        }
    }
}
