pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import Zolva.Kit

// One reading. It is spoken of as a whole: its labels, which change every second, have no names of
// their own that would each be told of.
Card {
    id: tile

    required property string label
    // Not "value": the toolkit would tell of that one by itself.
    required property string figure
    required property string unit
    required property string sub
    required property string spoken
    /// There is no room for the unit beside the value.
    readonly property bool isStacked: value.width + 5 + unit.implicitWidth > column.width

    Accessible.description: spoken
    Accessible.focusable: false
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

        Item {
            Layout.fillWidth: true
            implicitHeight: tile.isStacked ? unit.y + unit.height : value.height

            Label {
                id: value

                Accessible.ignored: true
                Accessible.name: ""
                size: 28
                text: tile.figure
                tracking: -0.5
                weight: Font.Bold
            }

            Label {
                id: unit

                Accessible.ignored: true
                Accessible.name: ""
                color: Theme.palette.label2
                elide: Text.ElideRight
                size: 13
                text: tile.unit
                width: parent.width - x
                x: tile.isStacked ? 0 : value.width + 5
                y: tile.isStacked ? value.height : value.baselineOffset - baselineOffset
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
