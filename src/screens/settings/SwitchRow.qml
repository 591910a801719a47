pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import Zolva.Kit
import Zolva.Screens.Settings

// Something that is on or off; the whole row switches it.
PointerButton {
    id: row

    required property string heading
    required property bool on
    property string note
    property string spokenState: on ? "On" : "Off"

    Accessible.checkable: true
    Accessible.checked: on
    // The toolkit puts its own in their place as soon as somebody listens.
    Accessible.onCheckableChanged: Accessible.checkable = true
    Accessible.onCheckedChanged: Accessible.checked = Qt.binding(() => row.on)
    Layout.fillWidth: true
    implicitHeight: words.implicitHeight + 28
    ringInset: 4
    ringRadius: 13
    spokenHint: note
    spokenName: heading
    spokenRole: Accessible.CheckBox
    spokenValue: spokenState

    HoverFill {
        anchors.fill: parent
        anchors.margins: 4
        hover: Theme.palette.cardHover
        hovering: row.hovering
        radius: 9
    }

    ColumnLayout {
        id: words

        anchors.verticalCenter: parent.verticalCenter
        spacing: 5
        width: toggle.x - 18 - 18
        x: 18

        Label {
            Accessible.ignored: true
            Layout.fillWidth: true
            size: 13
            text: row.heading
            wrapMode: Text.Wrap
        }

        Label {
            Accessible.ignored: true
            Layout.fillWidth: true
            Layout.maximumWidth: 560
            color: Theme.palette.label2
            size: 12.5
            text: row.note
            visible: text !== ""
            wrapMode: Text.Wrap
        }
    }

    PillSwitch {
        id: toggle

        anchors.verticalCenter: parent.verticalCenter
        on: row.on
        x: row.width - width - 18
    }
}
