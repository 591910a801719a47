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
    /// What it asks or tells in full, for those who do not see it.
    property string spokenBody
    /// What has the focus when the card appears.
    property Item firstFocus: null
    readonly property bool isAnswerable: isOpen && !isBehind
    readonly property alias card: card
    default property alias content: body.data
    /// 0 is gone, 1 is there.
    property real arrival: isOpen ? 1 : 0

    signal cancelled

    function takeFocus() {
        if (isAnswerable && firstFocus)
            firstFocus.forceActiveFocus(Qt.TabFocusReason);
    }

    // While it goes it still keeps the second press of a double click from what lies behind it.
    enabled: visible && !isBehind
    opacity: arrival
    visible: arrival > 0

    Keys.onEscapePressed: {
        if (isAnswerable)
            cancelled();
    }
    onIsAnswerableChanged: Qt.callLater(overlay.takeFocus)
    Component.onCompleted: Qt.callLater(overlay.takeFocus)

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
            cursorShape: Qt.ArrowCursor
            hoverEnabled: true

            onClicked: mouse => {
                if (overlay.closesOnScrim && overlay.isAnswerable && mouse.button === Qt.LeftButton)
                    overlay.cancelled();
            }
            onWheel: wheel => wheel.accepted = true
        }
    }

    Item {
        id: card

        Accessible.description: overlay.spokenBody
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
                cursorShape: Qt.ArrowCursor
                hoverEnabled: true

                onWheel: wheel => wheel.accepted = true
            }
        }

        ColumnLayout {
            id: body

            enabled: overlay.isAnswerable
            spacing: 0
            width: card.width - 52
            x: 26
            y: 24
        }
    }
}
