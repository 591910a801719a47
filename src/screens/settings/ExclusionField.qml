pragma ComponentBehavior: Bound
import QtQuick
import Zolva.Kit
import Zolva.Model

// Where a path is typed.
TextInput {
    id: field

    required property SettingsModel settings

    Accessible.description: settings.draftError
    Accessible.name: prompt.text
    Accessible.role: Accessible.EditableText
    activeFocusOnTab: true
    clip: true
    color: Theme.palette.label
    font: Face.text(13)
    renderType: Text.NativeRendering
    selectByMouse: true
    selectedTextColor: "white"
    selectionColor: Theme.palette.accent
    text: settings.draft

    onAccepted: settings.add()
    onTextEdited: settings.draft = text

    Label {
        id: prompt

        Accessible.ignored: true
        anchors.fill: parent
        color: Theme.palette.label3
        elide: Text.ElideRight
        font: field.font
        text: "Add a folder or file to never touch"
        visible: field.text === "" && field.preeditText === ""
    }

    HoverHandler {
        cursorShape: Qt.IBeamCursor
    }
}
