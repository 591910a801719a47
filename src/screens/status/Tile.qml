pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import Zolva.Kit

// One reading. It is spoken of as a whole: its labels, which change every second, have no names of
// their own that would each be told of.
Card {
    id: tile

    required property string label
    required property string value
    required property string unit
    required property string sub
    required property string spoken

    Accessible.description: spoken
    Accessible.name: label
    Accessible.role: Accessible.StaticText
    implicitHeight: column.implicitHeight + 40

    ColumnLayout {
        id: column

        spacing: 14
        width: parent.width - 44
        x: 22
        y: 20

        Label {
            Accessible.ignored: true
            Layout.fillWidth: true
            color: Theme.palette.label2
            elide: Text.ElideRight
            size: 12.5
            text: tile.label
        }

        RowLayout {
            Layout.fillWidth: true
            spacing: 5

            Label {
                Accessible.ignored: true
                Accessible.name: ""
                Layout.alignment: Qt.AlignBaseline
                size: 28
                text: tile.value
                tracking: -0.5
                weight: Font.Bold
            }

            Label {
                Accessible.ignored: true
                Accessible.name: ""
                Layout.alignment: Qt.AlignBaseline
                Layout.fillWidth: true
                color: Theme.palette.label2
                elide: Text.ElideRight
                size: 13
                text: tile.unit
            }
        }

        Label {
            Accessible.ignored: true
            Accessible.name: ""
            Layout.fillWidth: true
            color: Theme.palette.label3
            size: 12.5
            text: tile.sub
            wrapMode: Text.Wrap
        }
    }
}
