pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts
import Zolva.Kit

// A head, and one card below it with rows.
ColumnLayout {
    id: section

    required property string title
    default property alias rows: rows.data

    Layout.fillWidth: true
    spacing: 9

    FieldLabel {
        Layout.fillWidth: true
        text: section.title
    }

    Card {
        Layout.fillWidth: true
        implicitHeight: rows.implicitHeight

        ColumnLayout {
            id: rows

            spacing: 0
            width: parent.width
        }
    }
}
