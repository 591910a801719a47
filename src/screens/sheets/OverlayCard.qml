pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import Zolva.Kit

// A card that stands over everything else until it is answered. Who shows it disables what lies
// behind it, and gives the focus back.
FocusScope {
    id: overlay

    required property bool isOpen
    /// Another one stands over it.
    property bool isBehind: false
    property bool closesOnScrim: true
    property string spokenName
    /// What has the focus when the card appears.
    property Item firstFocus: null
    readonly property alias card: card
    default property alias content: body.data
    /// 0 is gone, 1 is there.
    property real arrival: isOpen ? 1 : 0

    signal cancelled

    function takeFocus() {
        if (enabled && firstFocus)
            firstFocus.forceActiveFocus(Qt.TabFocusReason);
    }

    enabled: isOpen && !isBehind
    opacity: arrival
    visible: arrival > 0

    Keys.onEscapePressed: overlay.cancelled()
    onEnabledChanged: {
        if (enabled)
            Qt.callLater(overlay.takeFocus);
    }
    Component.onCompleted: {
        if (enabled)
            Qt.callLater(overlay.takeFocus);
    }

    Behavior on arrival {
        NumberAnimation {
            duration: Motion.sheet
            easing.type: Easing.OutQuad
        }
    }

    Rectangle {
        anchors.fill: parent
        color: Theme.palette.scrim

        // Nothing behind it hears of the pointer, wheel included.
        MouseArea {
            acceptedButtons: Qt.AllButtons
            anchors.fill: parent
            hoverEnabled: true

            onClicked: mouse => {
                if (overlay.closesOnScrim && mouse.button === Qt.LeftButton)
                    overlay.cancelled();
            }
            onWheel: wheel => wheel.accepted = true
        }
    }

    Item {
        id: card

        Accessible.name: overlay.spokenName
        Accessible.role: Accessible.Dialog
        height: body.implicitHeight + 44
        scale: 0.94 + 0.06 * overlay.arrival
        width: 432
        // On whole pixels, for sharp letters.
        x: Math.round((overlay.width - width) / 2)
        y: Math.round((overlay.height - height) / 2)

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
                acceptedButtons: Qt.AllButtons
                anchors.fill: parent
                hoverEnabled: true

                onWheel: wheel => wheel.accepted = true
            }
        }

        ColumnLayout {
            id: body

            spacing: 0
            width: card.width - 52
            x: 26
            y: 24
        }
    }
}
