pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Templates as T
import Zolva.Kit

// What the list is searched for.
T.TextField {
    id: field

    property string query
    // The toolkit's own would be spoken a second time.
    readonly property string prompt: "Search"

    signal searched(text: string)
    /// On to what was found.
    signal finished

    Accessible.name: prompt
    Accessible.role: Accessible.EditableText
    color: Theme.palette.label
    font: Face.text(12.5)
    implicitHeight: 30
    implicitWidth: 180
    leftPadding: 28
    renderType: Text.NativeRendering
    rightPadding: 10
    selectByMouse: true
    selectedTextColor: Theme.palette.label
    selectionColor: Theme.palette.accentTint
    text: query
    verticalAlignment: Text.AlignVCenter

    background: Rectangle {
        color: Theme.palette.btn
        radius: 8
    }

    Keys.onDownPressed: finished()
    Keys.onEscapePressed: event => {
        event.accepted = text !== "";
        if (event.accepted)
            searched("");
    }
    onTextEdited: searched(text)

    Symbol {
        anchors.verticalCenter: parent.verticalCenter
        color: Theme.palette.label2
        name: "magnifyingglass"
        size: 11
        x: 10
    }

    Label {
        Accessible.ignored: true
        anchors.fill: parent
        color: Theme.palette.label3
        elide: Text.ElideRight
        font: field.font
        leftPadding: field.leftPadding
        rightPadding: field.rightPadding
        text: field.prompt
        verticalAlignment: Text.AlignVCenter
        visible: field.length === 0 && field.preeditText === ""
    }

    FocusRing {
        ringRadius: 8
        visible: field.activeFocus
    }

    Shortcut {
        enabled: field.enabled && field.visible
        sequence: "Ctrl+F"

        onActivated: {
            field.forceActiveFocus(Qt.ShortcutFocusReason);
            field.selectAll();
        }
    }
}
