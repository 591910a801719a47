pragma ComponentBehavior: Bound
import QtQuick
import QtQuick.Layouts

// Things beside one another, in a card.
Item {
    id: row

    default property alias things: things.data
    property real topPadding: 14
    property real bottomPadding: 14

    Layout.fillWidth: true
    implicitHeight: things.implicitHeight + topPadding + bottomPadding

    RowLayout {
        id: things

        spacing: 14
        width: parent.width - 36
        x: 18
        y: row.topPadding
    }
}
